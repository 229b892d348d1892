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

TEST(TestDriver, PerformsTheStepsInOrderUntilTheFormHides) {
  DialogForm form;
  TestDriver user;
  user.Type(form.txtName, u"Lev")
      .TypeKeys(form.txtValue, u"12")
      .Tick(form.chkAll)
      .SelectNode(form.treItems, u"2:1")
      .Check([&] { form.log.push_back("check"); })
      .Click(form.cmdOK);
  form.Show(true);
  EXPECT_EQ(form.log, (Logs{"txtName.GotFocus", "txtName.Change", "txtName.LostFocus", "txtValue.GotFocus",
                            "txtValue.KeyPress 49", "txtValue.Change", "txtValue.KeyPress 50", "txtValue.Change",
                            "txtValue.LostFocus", "chkAll.GotFocus", "chkAll.Click", "chkAll.LostFocus",
                            "treItems.GotFocus", "treItems.NodeClick 2:1", "treItems.Click", "check",
                            "treItems.LostFocus", "cmdOK.GotFocus", "cmdOK.Click"}));
  EXPECT_EQ(form.txtValue.Text(), u"12");
  EXPECT_EQ(form.chkAll.Value(), vbChecked);
  EXPECT_FALSE(form.Visible());
}

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

TEST(TestDriver, FailsWhenStepsAreLeftOver) {
  DialogForm form;
  EXPECT_NONFATAL_FAILURE(
      {
        TestDriver user;
        user.Click(form.cmdOK).Type(form.txtName, u"never");
        form.Show(true);
      },
      "1 scripted step(s) never ran; the first: type into txtName");
  EXPECT_EQ(form.txtName.Text(), u"");
}

TEST(TestDriver, TypingTheWholeTextFiresOneChangeKeysOneEach) {
  const struct {
    bool keyByKey;
    const char16_t* start;
    const char16_t* typed;
    const char16_t* text;
    int changes;
  } cases[] = {
      {false, u"", u"Level", u"Level", 1},      {true, u"", u"Level", u"Level", 5},
      {true, u"Lev", u"el", u"Level", 2},       {true, u"Levx", u"\bel", u"Level", 3},
      {false, u"Level", u"Level", u"Level", 0},
  };
  for (const auto& c : cases) {
    DialogForm form;
    form.txtName.SetText(c.start);
    int changes = 0;
    form.txtName.onChange = [&] { ++changes; };
    TestDriver user;
    if (c.keyByKey) {
      user.TypeKeys(form.txtName, c.typed);
    } else {
      user.Type(form.txtName, c.typed);
    }
    user.RunAll();
    EXPECT_EQ(form.txtName.Text(), c.text);
    EXPECT_EQ(changes, c.changes) << vd::automation::ToUtf8(c.typed);
  }
}

}  // namespace
}  // namespace vd::forms::test
