// The selection filter across modes, types, shapes and the writable check,
// its wording in the status bar, and the host's preselection marker.
#include <string>

#include "browser_harness.h"

namespace vd::system_test {
namespace {

// Variable i of data source 1 is what its name says; then one variable each of
// a file, a constant and a custom data source, and custom variables by access.
constexpr std::string_view kFilterJson = R"({ "dataSources": [
  { "name": "Mem", "kind": "memory", "variables": [
      { "name": "Double1x1", "type": "Double" }, { "name": "Float1x3", "type": "Float", "cols": 3 },
      { "name": "Float3x1", "type": "Float", "rows": 3 }, { "name": "Long2x4", "type": "Long", "rows": 2, "cols": 4 },
      { "name": "ULong1x1", "type": "ULong" }, { "name": "Byte1x1", "type": "Byte" },
      { "name": "Text1x40", "type": "Text", "cols": 40 } ] },
  { "name": "File", "kind": "file", "variables": [ { "name": "FileVar", "type": "Float" } ] },
  { "name": "Const", "kind": "constant", "variables": [ { "name": "ConstVar", "type": "Float" } ] },
  { "name": "Lab", "kind": "custom", "className": "Lab.Sampler", "variables": [ { "name": "Access0", "type": "Double" },
      { "name": "Access1", "type": "Double", "access": 1 }, { "name": "Access2", "type": "Double", "access": 2 } ] } ] })";

struct FilterCase {
  int32_t mode, type, rows, cols;
  bool writableOnly;
  const char16_t* variable;
  bool selectable;
};

TEST(SelectionFilter, DecidesByModeTypeShapeAndWritability) {
  const FilterCase cases[] = {
      // Modes that let every variable through the type and shape test; 500 only with the panel closed.
      {kPickAny, 9, 1, 1, false, u"Double1x1", true},
      {kEdit, 500, 0, 0, false, u"Double1x1", false},
      {7, 501, 0, 0, false, u"Double1x1", true},
      // Numeric is anything but Text; other codes match literally.
      {kSelect, 501, 0, 0, false, u"Text1x40", false},
      {kSelect, 5, 0, 0, false, u"ULong1x1", false},
      // Columns, then rows, when at least 1; never a Text variable's shape.
      {kSelect, 7, 1, 1, false, u"Float1x3", false},
      {kSelect, 7, 3, 0, false, u"Float3x1", true},
      {kSelect, 501, 2, 3, false, u"Long2x4", false},
      {kSelect, 9, 3, 3, false, u"Text1x40", true},
      // Writable: a custom data source's variable whose access is not 1, in every mode.
      {kSelect, 500, 0, 0, true, u"ConstVar", false},
      {kSelect, 500, 0, 0, true, u"Access0", true},
      {kSelect, 500, 0, 0, true, u"Access1", false},
      {kPickAny, 500, 0, 0, true, u"Double1x1", false},
      {kSelect, 9, 0, 0, true, u"Access0", false}};
  BrowserHarness h;
  auto display = DisplayFromJson(kFilterJson);
  h.dlg.InitDBForEdit(display);
  for (const FilterCase& c : cases) {
    h.inside.SetDialogMode(c.mode);
    h.inside.SetFilter(c.type, c.rows, c.cols, c.writableOnly);
    toolkit::DsvRef dsv;
    for (int32_t i = 1; i <= 4; ++i) {
      const auto vars = display->DataSources()->Item(i)->Variables();
      for (int32_t j = 1; j <= vars->DsvCount(); ++j)
        if (vars->Item(j)->GetDsvName() == c.variable) dsv = vars->Item(j);
    }
    ASSERT_NE(dsv, nullptr);
    EXPECT_EQ(h.inside.IsDsvSelectable(dsv), c.selectable)
        << "mode " << c.mode << ", filter " << c.type << " " << c.rows << "x" << c.cols
        << (c.writableOnly ? " writable, " : ", ") << ToUtf8(c.variable);
  }
}

struct StatusCase {
  int32_t context, type, rows, cols;
  const char16_t* text;
};

TEST(SelectStatus, DescribesTheFilterWithEveryTypeWordAndShape) {
  const StatusCase cases[] = {
      {1, 501, 0, 0, u"Select: Numeric, any shape."}, {1, 10, 0, 0, u"Select: Any type, any shape."},
      {1, 1, 0, 0, u"Select: Byte, any shape."},      {1, 8, 0, 4, u"Select: Double, Vector[4],Matrix[*][4]"},
      {1, 8, 1, 0, u"Select: Double, Vector[*]"},     {1, 8, 2, 3, u"Select: Double, Matrix[2][3]"},
      {5, 9, 1, 1, u"Select: Writable, Text, Scalar"}};
  BrowserHarness h;
  for (const StatusCase& c : cases) {
    h.dlg.InitDBForSelect(h.plant, c.context, c.type, c.rows, c.cols);
    EXPECT_EQ(h.dlg.sbSelectStatus.SimpleText(), c.text);
  }
  h.inside.SetDialogMode(kPickAny);
  EXPECT_EQ(h.dlg.sbSelectStatus.SimpleText(), u"Please select any variable now...");
}

// As hosts write it.
const std::string kMarker =
    "0_ThIs_1_StRiNg_2_WiLl_3_NeVeR_4_eVeR_5_bE_6_uSeD_7_aS_8_a_9_nAmE_8_bY_7_THE_6_users543210";

std::shared_ptr<sample::MemoryDisplay> Marked(const std::string& dsMark, const std::string& dsvMark) {
  return DisplayFromJson(R"({ "dataSources": [ { "name": "Plant", "kind": "memory", "variables": [ { "name": "L" } ] },
      { "name": ")" + dsMark +
                         R"(Tanks", "kind": "memory", "variables": [ { "name": "V", "type": "Double" },
          { "name": ")" + dsvMark +
                         R"(Title", "type": "Text", "cols": 20 }, { "name": ")" + dsvMark + R"(X" } ] } ] })");
}

String Name(const std::shared_ptr<sample::MemoryDisplay>& d, int32_t ds, int32_t dsv = 0) {
  auto source = d->DataSources()->Item(ds);
  return dsv == 0 ? source->GetDsName() : source->Variables()->Item(dsv)->GetDsvName();
}

TEST(Preselection, TheMarkedVariableIsStrippedSelectedAndConfirmableThoughTheFilterRefusesIt) {
  BrowserHarness h;
  auto display = Marked(kMarker, kMarker);
  h.user
      .Check([&] {
        EXPECT_EQ(Name(display, 2), u"Tanks");
        EXPECT_EQ(Name(display, 2, 2), u"Title");
        EXPECT_EQ(Name(display, 2, 3), automation::FromUtf8(kMarker + "X"));  // only the first
        EXPECT_EQ(h.Selected(), u"2:2");
        EXPECT_EQ(h.Node(u"2:2")->Text(), u"Title");
        EXPECT_EQ(h.Node(u"_Tanks2")->Index(), 2);
        EXPECT_TRUE(h.dlg.fraDsv.Visible());
        EXPECT_TRUE(h.dlg.dbOK.Enabled());  // Text, under a numeric filter
        EXPECT_EQ(h.dlg.cmdDelete.ToolTipText(), u"Delete 'Title' ");
      })
      .Click(h.dlg.dbOK);
  EXPECT_EQ(h.desk.SelectDataVar(display, 1, 501, 0, 0), Variable(display, 2, 2));
}

TEST(Preselection, AMarkOnADataSourceAloneOnlyRenamesItAndOnlyAnExactPrefixCounts) {
  const std::string lower = ToUtf8(automation::LCase(automation::FromUtf8(kMarker)));
  const std::pair<std::string, std::string> cases[] = {
      {kMarker, ""}, {"", kMarker}, {lower, lower}, {"x" + kMarker, kMarker}, {kMarker.substr(1), kMarker}};
  for (const auto& [dsMark, dsvMark] : cases) {
    BrowserHarness h;
    auto display = Marked(dsMark, dsvMark);
    h.dlg.InitDBForSelect(display, 1, 501, 0, 0);
    EXPECT_EQ(Name(display, 2), dsMark == kMarker ? u"Tanks" : automation::FromUtf8(dsMark + "Tanks"));
    EXPECT_EQ(Name(display, 2, 2), automation::FromUtf8(dsvMark + "Title"));
    EXPECT_EQ(h.Selected(), u"_Plant1");
    EXPECT_FALSE(h.dlg.dbOK.Enabled());
  }
  BrowserHarness h;  // an editing run leaves the mark alone
  auto display = Marked(kMarker, kMarker);
  h.dlg.InitDBForEdit(display);
  EXPECT_EQ(Name(display, 2), automation::FromUtf8(kMarker + "Tanks"));
}

}  // namespace
}  // namespace vd::system_test
