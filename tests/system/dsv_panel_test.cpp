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

}  // namespace
}  // namespace vd::system_test
