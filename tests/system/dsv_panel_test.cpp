// The data variable panel: what a look at a variable shows and writes, and
// what the user's edits write to the variable.
#include <vector>

#include "panel_harness.h"

namespace vd::system_test {
namespace {

using forms::vbExclamation;
namespace dsvtype = toolkit::dsvtype;

class DsvPanel : public ::testing::Test {
 protected:
  void SetUp() override { h.dlg.InitDBForEdit(h.panels); }
  void Look(const String& key) { ASSERT_TRUE(h.Click(key)) << ToUtf8(key); }
  std::vector<String> TypeEntries() const {
    std::vector<String> entries;
    for (int32_t i = 0; i < h.dlg.cboDsvType.ListCount(); ++i) entries.push_back(h.dlg.cboDsvType.List(i));
    return entries;
  }
  PanelHarness h;
};

TEST_F(DsvPanel, FillSetsControlsInStepOrderAndTheFlagIsDownFromTheUseCountOn) {
  PanelRecorder recorder(h);
  Look(u"2:1");  // constant, value 1.5, public
  EXPECT_EQ(recorder.log, (std::vector<std::string>{"txtDsvName filling", "cboDsvType filling", "txtMappings",
                                                    "txtDsvValue", "optDsvScalar filling", "optDsvPublic"}));
  // The value box and the scope option acted: a mere look marks the display as modified.
  EXPECT_TRUE(h.dlg.IsModified());
  EXPECT_FALSE(h.inside.PanelFilling());
  EXPECT_EQ(h.dlg.GetSelectedDsv(), h.Var(2, 1));
}

TEST_F(DsvPanel, ALookWritesTheShownValueAndScopeBackToTheVariableLookedAt) {
  Look(u"2:1");
  Look(u"2:2");  // its value and scope go to Low, not to the variable shown before
  EXPECT_EQ(h.Var(2, 1)->GetDsvValue(), 1.5);
  EXPECT_EQ(h.Var(2, 2)->GetDsvValue(), -0.25);
  EXPECT_EQ(h.Var(2, 2)->GetDsvScope(), toolkit::scope::kPrivate);
  EXPECT_EQ(h.dlg.txtDsvValue.Text(), u"-0.25");

  // A look that changes no control's value leaves the display unmodified.
  h.dlg.InitDBForEdit(h.panels);
  Look(u"1:2");  // private, like Low; not a constant
  EXPECT_FALSE(h.dlg.IsModified());
  Look(u"1:1");  // public
  EXPECT_TRUE(h.dlg.IsModified());
}

TEST_F(DsvPanel, ShowsNameMappingsValueAndButtonsByDataSourceKind) {
  struct Case {
    const char16_t* key;
    const char16_t* mappings;
    bool value, more, scadaFrame;
  };
  const Case cases[] = {{u"1:4", u"2", false, false, false},
                        {u"2:2", u"0", true, false, false},
                        {u"6:1", u"0", false, false, true},
                        {u"6:4", u"0", false, true, false}};
  for (const Case& c : cases) {
    Look(c.key);
    EXPECT_EQ(h.dlg.txtDsvName.Text(), h.Node(c.key)->Text()) << ToUtf8(c.key);
    EXPECT_EQ(h.dlg.txtMappings.Text(), c.mappings) << ToUtf8(c.key);
    EXPECT_EQ(h.dlg.txtDsvValue.Visible(), c.value) << ToUtf8(c.key);
    EXPECT_EQ(h.dlg.lblDsvValue.Visible(), c.value) << ToUtf8(c.key);
    EXPECT_EQ(h.dlg.cmdDSVcustom.Visible(), c.more) << ToUtf8(c.key);
    EXPECT_EQ(h.dlg.fraTelvaneDsvSettings.Visible(), c.scadaFrame) << ToUtf8(c.key);
    EXPECT_TRUE(h.dlg.fraDsv.Visible() && !h.dlg.fraDs.Visible());
    EXPECT_TRUE(h.dlg.chkSort.Enabled() && h.dlg.cmdMoveUp.Enabled());
  }
}

TEST_F(DsvPanel, ASortedDataSourceTicksSortAndLocksTheMoves) {
  h.inside.DsSortFlags().AddAfter(1, true);
  h.inside.DsSortFlags().Remove(1);
  h.inside.RebuildDsvNodes(1);
  Look(u"1:3");
  EXPECT_EQ(h.dlg.chkSort.Value(), forms::vbChecked);
  EXPECT_FALSE(h.dlg.cmdMoveUp.Enabled() || h.dlg.cmdMoveDown.Enabled());
  Look(u"2:1");
  EXPECT_EQ(h.dlg.chkSort.Value(), forms::vbUnchecked);
  EXPECT_TRUE(h.dlg.cmdMoveUp.Enabled() && h.dlg.cmdMoveDown.Enabled());
}

TEST_F(DsvPanel, ShapeShowsOptionsAndDimensionsByTypeAndParameterList) {
  struct Case {
    const char16_t* key;
    bool scalar, vector, matrix, optionsEnabled;
    const char16_t* colsCaption;
    const char16_t* cols;
    bool colsEnabled;
    const char16_t* rows;
    bool rowsEnabled;
  };
  const Case cases[] = {
      {u"1:3", false, false, false, false, u"Length", u"40", true, u"", false},   // Text: its length
      {u"5:2", false, false, false, false, u"Length", u"40", false, u"", false},  // parameter list: fixed
      {u"6:1", false, false, true, true, u"Cols", u"3", true, u"2", true},        // SCADA signal type 2: free
      {u"6:2", true, false, false, false, u"Cols", u"", false, u"", false},       // signal type 1
      {u"6:3", false, true, false, true, u"Length", u"3", true, u"", false}};     // 18 And 15 is 2
  for (const Case& c : cases) {
    Look(c.key);
    const std::string label = ToUtf8(c.key);
    if (c.scalar || c.vector || c.matrix) {
      EXPECT_EQ(h.dlg.optDsvScalar.Value(), c.scalar) << label;
      EXPECT_EQ(h.dlg.optDsvVector.Value(), c.vector) << label;
      EXPECT_EQ(h.dlg.optDsvMatrix.Value(), c.matrix) << label;
    }
    for (const forms::OptionButton* o : {&h.dlg.optDsvScalar, &h.dlg.optDsvVector, &h.dlg.optDsvMatrix})
      EXPECT_EQ(o->Enabled(), c.optionsEnabled) << label;
    if (c.colsEnabled) {
      EXPECT_EQ(h.dlg.lblDsvCols.Caption(), c.colsCaption) << label;
    }
    EXPECT_EQ(h.dlg.txtDsvCols.Text(), c.cols) << label;
    EXPECT_EQ(h.dlg.txtDsvCols.Enabled(), c.colsEnabled) << label;
    EXPECT_EQ(h.dlg.lblDsvCols.Enabled(), c.colsEnabled) << label;
    EXPECT_EQ(h.dlg.txtDsvRows.Text(), c.rows) << label;
    EXPECT_EQ(h.dlg.txtDsvRows.Enabled(), c.rowsEnabled) << label;
    EXPECT_EQ(h.dlg.lblDsvRows.Enabled(), c.rowsEnabled) << label;
  }
}

TEST_F(DsvPanel, ChoosingATypeWritesItAndResetsTheShape) {
  struct Case {
    const char16_t* key;
    const char16_t* pick;  // nullptr: Click on the entry already selected
    int32_t type, rows, cols;
  };
  const Case cases[] = {{u"1:2", u"Text", dsvtype::kText, 1, 255},  // a 3 x 5 Float becomes Text
                        {u"2:1", nullptr, dsvtype::kFloat, 1, 1},   // the constant's only entry writes Float
                        {u"1:4", nullptr, dsvtype::kLong, 1, 4}};   // the same type: nothing written
  for (const Case& c : cases) {
    Look(c.key);
    h.inside.ClearModified();
    if (c.pick != nullptr) {
      ASSERT_TRUE(h.dlg.cboDsvType.UserPick(c.pick));
    } else {
      h.dlg.cboDsvType.onClick();  // the list's Click, as picking the selected entry raises it
    }
    const auto dsv = h.dlg.GetSelectedDsv();
    EXPECT_EQ(dsv->GetDsvType(), c.type) << ToUtf8(c.key);
    EXPECT_EQ(dsv->GetDsvRows(), c.rows) << ToUtf8(c.key);
    EXPECT_EQ(dsv->GetDsvCols(), c.cols) << ToUtf8(c.key);
    EXPECT_TRUE(h.dlg.IsModified()) << ToUtf8(c.key);  // also when the type did not change
    EXPECT_EQ(h.dlg.txtDsvCols.Text(), c.cols == 1 ? String() : automation::ToDecimal(c.cols));
  }
}

TEST_F(DsvPanel, DimensionEntriesWriteWhatConvertsAndRefuseOtherText) {
  struct Case {
    bool rows;
    const char16_t* typed;
    int32_t written;          // the count after the entry
    const char16_t* refused;  // the text the message quotes, nullptr for none
  };
  const Case cases[] = {
      {false, u"2.5", 2, nullptr}, {false, u"  7 ", 7, nullptr}, {false, u"", 7, nullptr}, {true, u" x y ", 3, u"x y"}};
  Look(u"1:2");  // 3 x 5
  for (const Case& c : cases) {
    const std::string label = ToUtf8(c.typed);
    h.inside.ClearModified();
    if (c.refused != nullptr) {
      h.ui.ExpectMessageBox(
          u"Invalid nummeric entry, '" + String(c.refused) + u"'.  Entry must be a positive whole number.",
          vbExclamation);
    }
    forms::TextBox& box = c.rows ? h.dlg.txtDsvRows : h.dlg.txtDsvCols;
    ASSERT_TRUE(box.UserType(c.typed)) << label;
    const auto dsv = h.Var(1, 2);
    EXPECT_EQ(c.rows ? dsv->GetDsvRows() : dsv->GetDsvCols(), c.written) << label;
    // A refused entry puts the count back, which writes it again.
    EXPECT_EQ(box.Text(), c.refused != nullptr ? automation::ToDecimal(c.written) : String(c.typed)) << label;
    EXPECT_EQ(h.dlg.IsModified(), *c.typed != u'\0') << label;
    EXPECT_EQ(h.ui.PendingAnswers(), 0u) << label;
  }
  ASSERT_EQ(h.ui.MessageBoxes().size(), 1u);
  EXPECT_EQ(h.ui.MessageBoxes()[0].title, h.dlg.Caption());
  EXPECT_EQ(ErrorOf([&] { h.dlg.txtDsvCols.UserType(u"-1"); }), 5);  // the toolkit's refusal is not trapped
}

TEST_F(DsvPanel, MoreHandsTheVariableToTheHostThenRebuildsItsDataSource) {
  int calls = 0;
  h.desk.onEditCustomDsv = [&](automation::ObjectRef& obj) {
    EXPECT_EQ(obj, h.Var(5, 2));
    obj = h.Var(5, 1);  // the host may hand back another object
    if (++calls == 2) automation::Raise(automation::err::kInvalidProcedureCall);
    h.Var(5, 2)->SetDsvName(u"Renamed");
  };
  Look(u"5:2");
  h.inside.ClearModified();
  ASSERT_TRUE(h.dlg.cmdDSVcustom.UserClick());
  EXPECT_EQ(h.Node(u"5:2")->Text(), u"Renamed");
  EXPECT_EQ(h.Selected(), u"_Alarms5");  // the selected node went with the rebuild
  EXPECT_FALSE(h.dlg.IsModified());

  Look(u"5:2");
  h.Var(5, 2)->SetDsvName(u"Again");
  ASSERT_TRUE(h.dlg.cmdDSVcustom.UserClick());  // the host's error ends the command quietly
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(h.Node(u"5:2")->Text(), u"Renamed");  // no rebuild after the error
}

TEST_F(DsvPanel, SignalTypeIsTheLowNibbleOfParameterThreeOrMinusOne) {
  const std::pair<int32_t, int32_t> expected[] = {{1, 2}, {2, 1}, {3, 2}, {4, -1}};
  for (const auto& [dsv, type] : expected) EXPECT_EQ(h.inside.GetDsvSignalType(h.Var(6, dsv)), type) << dsv;
  h.Var(6, 4)->Params()->AppendEmpty();
  h.Var(6, 4)->Params()->AppendEmpty();
  EXPECT_EQ(h.inside.GetDsvSignalType(h.Var(6, 4)), 0);  // an Empty code reads as 0
  h.Var(6, 4)->Params()->Item(3)->SetParamValue(toolkit::paramtype::kText, u"255");
  EXPECT_EQ(h.inside.GetDsvSignalType(h.Var(6, 4)), 15);
}

}  // namespace
}  // namespace vd::system_test
