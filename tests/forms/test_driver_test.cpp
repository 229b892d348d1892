#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "tree_fixture.h"
#include "vd/forms/testing/test_driver.h"

namespace vd::forms::test {
namespace {

using Logs = std::vector<std::string>;
using testing::TestDriver;

// The event log form, closed by its OK button.
class DialogForm : public EventLogForm {
 public:
  DialogForm() {
    cmdOK.onClick = [this] {
      log.push_back("cmdOK.Click");
      Hide();
    };
    BuildTree(treItems, 2, 2);
  }
};

TEST(TestDriver, UsesTheSameEntryPointsAsAView) {
  // The same user actions reported by a view and played by the driver leave the same events.
  DialogForm viewed;
  DialogForm driven;
  for (DialogForm* form : {&viewed, &driven}) {
    form->cboEdit.AddItem(u"one");
    form->treItems.Nodes().Item(DsKey(1))->SetExpanded(true);
  }
  viewed.cboEdit.UserPick(u"one");
  viewed.treItems.UserCollapse(viewed.treItems.Nodes().Item(DsKey(1)));
  viewed.treItems.UserDoubleClickNode(viewed.treItems.Nodes().Item(u"2:2"));
  viewed.treItems.UserMouseMove(1, vbShiftMask, 5, 6, nullptr);
  viewed.UserKeyDown(vbKeyF, vbCtrlMask);
  viewed.cmdOK.UserClick();

  TestDriver user;
  user.Pick(driven.cboEdit, u"one")
      .CollapseNode(driven.treItems, DsKey(1))
      .DoubleClickNode(driven.treItems, u"2:2")
      .MouseMove(driven.treItems, 5, 6, u"", 1, vbShiftMask)
      .KeyDown(driven, vbKeyF, vbCtrlMask)
      .Click(driven.cmdOK);
  driven.Show(true);
  EXPECT_EQ(driven.log, viewed.log);
  EXPECT_EQ(driven.log, (Logs{"cboEdit.GotFocus", "cboEdit.DropDown", "cboEdit.Click", "cboEdit.LostFocus",
                              "treItems.GotFocus", "treItems.Collapse _Ds1", "treItems.NodeClick 2:2", "treItems.Click",
                              "treItems.DblClick", "treItems.MouseMove", "treItems.KeyDown 70/2", "treItems.LostFocus",
                              "cmdOK.GotFocus", "cmdOK.Click"}));
}

TEST(TestDriver, FailsAndHidesTheFormWhenTheScriptRunsOut) {
  DialogForm form;
  EXPECT_NONFATAL_FAILURE(
      {
        TestDriver user;
        user.Type(form.txtName, u"x");
        form.Show(true);
      },
      "the script ran out while frmEvents was still shown");
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(form.txtName.Text(), u"x");
}

TEST(TestDriver, FailsOnStepsAUserCouldNotDo) {
  const struct {
    const char* name;
    std::function<void(DialogForm&, TestDriver&)> script;
    const char* message;
  } cases[] = {
      {"DisabledButton",
       [](DialogForm& f, TestDriver& u) {
         f.cmdOK.SetEnabled(false);
         u.Click(f.cmdOK);
       },
       "cmdOK is disabled"},
      {"HiddenFrame",
       [](DialogForm& f, TestDriver& u) {
         f.fraRight.SetVisible(false);
         u.Type(f.txtInFrame, u"x");
       },
       "txtInFrame is hidden"},
      {"MissingNode", [](DialogForm& f, TestDriver& u) { u.SelectNode(f.treItems, u"9:9"); },
       "no node with key \"9:9\""},
      {"MissingEntry", [](DialogForm& f, TestDriver& u) { u.Pick(f.cboList, u"File"); }, "has no entry \"File\""},
      {"AlreadyTicked",
       [](DialogForm& f, TestDriver& u) {
         f.chkAll.SetValue(vbChecked);
         u.Tick(f.chkAll);
       },
       "already is ticked"},
      {"TypingIntoAList", [](DialogForm& f, TestDriver& u) { u.Type(f.cboList, u"x"); }, "is a drop-down list"},
      {"CollapsedNodeCollapse", [](DialogForm& f, TestDriver& u) { u.CollapseNode(f.treItems, DsKey(1)); },
       "shows no minus sign"},
  };
  for (const auto& c : cases) {
    DialogForm form;
    TestDriver user;
    c.script(form, user);
    SCOPED_TRACE(c.name);
    EXPECT_NONFATAL_FAILURE(user.RunAll(), c.message);
  }
}

}  // namespace
}  // namespace vd::forms::test
