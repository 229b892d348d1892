// What the controls raise and refuse: events on assignment, option groups,
// focus moves, and what property observers hear.
#include <gtest/gtest.h>

#include "tree_fixture.h"

namespace vd::forms::test {
namespace {

using Logs = std::vector<std::string>;
using Step = std::function<void(EventLogForm&)>;
using vd::automation::ToUtf8;

TEST(AssignmentEvents, FireOnlyWhenTheValueChanges) {
  const struct {
    const char* name;
    Step before;
    Step assign;
    Logs events;
  } cases[] = {
      {"TextSame",
       [](EventLogForm& f) { f.txtName.SetText(u"Level"); },
       [](EventLogForm& f) { f.txtName.SetText(u"Level"); },
       {}},
      {"TextDiffersInCaseOnly",
       [](EventLogForm& f) { f.txtName.SetText(u"level"); },
       [](EventLogForm& f) { f.txtName.SetText(u"Level"); },
       {"txtName.Change"}},
      {"TextOfDisabledBox",
       [](EventLogForm& f) { f.txtName.SetEnabled(false); },
       [](EventLogForm& f) { f.txtName.SetText(u"x"); },
       {"txtName.Change"}},
      {"CheckUntickedAgain", nullptr, [](EventLogForm& f) { f.chkAll.SetValue(vbUnchecked); }, {}},
      {"CheckGrayed",
       [](EventLogForm& f) { f.chkAll.SetValue(vbChecked); },
       [](EventLogForm& f) { f.chkAll.SetValue(vbGrayed); },
       {"chkAll.Click"}},
      {"OptionCleared",
       [](EventLogForm& f) { f.optForm1.SetValue(true); },
       [](EventLogForm& f) { f.optForm1.SetValue(false); },
       {}},
      {"ListIndexSame",
       [](EventLogForm& f) {
         f.cboList.AddItem(u"File");
         f.cboList.SetListIndex(0);
       },
       [](EventLogForm& f) { f.cboList.SetListIndex(0); },
       {}},
      {"ListIndexToNone",
       [](EventLogForm& f) {
         f.cboList.AddItem(u"File");
         f.cboList.SetListIndex(0);
       },
       [](EventLogForm& f) { f.cboList.SetListIndex(-1); },
       {"cboList.Click"}},
      {"ListTextSelectsEntry",
       [](EventLogForm& f) { f.cboList.AddItem(u"Memory"); },
       [](EventLogForm& f) { f.cboList.SetText(u"memory"); },
       {"cboList.Click"}},
      {"EditableComboSameText",
       [](EventLogForm& f) { f.cboEdit.SetText(u"5"); },
       [](EventLogForm& f) { f.cboEdit.SetText(u"5"); },
       {}},
      {"ButtonPressedFromCode", nullptr, [](EventLogForm& f) { f.cmdOK.SetValue(true); }, {"cmdOK.Click"}},
      {"ButtonValueFalse", nullptr, [](EventLogForm& f) { f.cmdOK.SetValue(false); }, {}},
      {"PropertiesWithoutEvents",
       nullptr,
       [](EventLogForm& f) {
         f.lblName.SetCaption(u"&Name:");
         f.txtName.SetVisible(false);
         f.txtName.SetToolTipText(u"Delete ");
         f.sbStatus.SetSimpleText(u"Select: Numeric, any shape.");
         f.pbProgress.SetValue(50);
       },
       {}},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    if (c.before) c.before(form);
    form.log.clear();
    c.assign(form);
    EXPECT_EQ(form.log, c.events) << c.name;
  }
}

TEST(AssignmentEvents, AChangeHandlerThatWritesTheSameTextBackEndsTheChain) {
  EventLogForm form;
  int changes = 0;
  form.txtValue.onChange = [&] {
    ++changes;
    form.txtValue.SetText(u"3");  // a handler restoring the stored value, as a refused entry does
  };
  form.txtValue.SetText(u"abc");
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(form.txtValue.Text(), u"3");
}

TEST(AssignmentEvents, ACheckBoxValueOutsideZeroToTwoIsRefusedAndChangesNothing) {
  EventLogForm form;
  for (const int16_t value : {int16_t{-1}, int16_t{3}})
    EXPECT_EQ(ErrorOf([&] { form.chkAll.SetValue(value); }), err::kInvalidPropertyValue) << value;
  EXPECT_EQ(form.chkAll.Value(), vbUnchecked);
  EXPECT_TRUE(form.log.empty());
}

std::vector<std::string> SelectedOptions(EventLogForm& form) {
  std::vector<std::string> selected;
  for (Control* control : form.AllControls()) {
    auto* option = dynamic_cast<OptionButton*>(control);
    if (option != nullptr && option->Value()) selected.push_back(ToUtf8(option->Name()));
  }
  return selected;
}

TEST(OptionGroups, SelectingClearsOnlyTheSameContainerAndClicksOnlyTheNewOne) {
  const struct {
    const char* name;
    std::vector<OptionButton EventLogForm::*> before;
    OptionButton EventLogForm::*assigned;
    bool value;
    Logs selectedAfter;
    Logs events;
  } cases[] = {
      {"OtherFramesKeepTheirs",
       {&EventLogForm::optLeft1, &EventLogForm::optRight1, &EventLogForm::optForm1},
       &EventLogForm::optRight2,
       true,
       {"optLeft1", "optRight2", "optForm1"},
       {"optRight2.Click"}},
      {"FormGroupIgnoresFrames",
       {&EventLogForm::optLeft2, &EventLogForm::optForm1},
       &EventLogForm::optForm2,
       true,
       {"optLeft2", "optForm2"},
       {"optForm2.Click"}},
      {"AlreadySelected", {&EventLogForm::optLeft1}, &EventLogForm::optLeft1, true, {"optLeft1"}, {}},
      {"ClearingAnUnselectedOne", {&EventLogForm::optLeft1}, &EventLogForm::optLeft2, false, {"optLeft1"}, {}},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    for (OptionButton EventLogForm::*option : c.before) (form.*option).SetValue(true);
    form.log.clear();
    (form.*c.assigned).SetValue(c.value);
    EXPECT_EQ(SelectedOptions(form), c.selectedAfter) << c.name;
    EXPECT_EQ(form.log, c.events) << c.name;
  }
}

TEST(OptionGroups, TheClickHandlerSeesTheOthersAlreadyCleared) {
  EventLogForm form;
  form.optLeft1.SetValue(true);
  bool otherStillSet = true;
  form.optLeft2.onClick = [&] { otherStillSet = form.optLeft1.Value(); };
  form.optLeft2.SetValue(true);
  EXPECT_FALSE(otherStillSet);
}

TEST(Focus, MovingFiresLostFocusOnTheOldControlThenGotFocusOnTheNew) {
  EventLogForm form;
  form.txtInFrame.SetFocus();
  form.log.clear();
  form.treItems.SetFocus();
  form.treItems.SetFocus();
  EXPECT_EQ(form.log, (Logs{"txtInFrame.LostFocus", "treItems.GotFocus"}));
  EXPECT_EQ(form.ActiveControl(), &form.treItems);
  form.log.clear();
  ASSERT_TRUE(form.cmdOK.UserClick());
  EXPECT_EQ(form.log, (Logs{"treItems.LostFocus", "cmdOK.GotFocus", "cmdOK.Click"}));
}

TEST(Focus, AControlThatCannotTakeItRaisesInvalidProcedureCallAndNothingMoves) {
  const struct {
    const char* name;
    Step prepare;
    const char16_t* target;
  } cases[] = {
      {"Disabled", [](EventLogForm& f) { f.txtName.SetEnabled(false); }, u"txtName"},
      {"InHiddenFrame", [](EventLogForm& f) { f.fraRight.SetVisible(false); }, u"txtInFrame"},
      {"InDisabledFrame", [](EventLogForm& f) { f.fraRight.SetEnabled(false); }, u"txtInFrame"},
      {"OnDisabledForm", [](EventLogForm& f) { f.SetEnabled(false); }, u"txtName"},
      {"Label", [](EventLogForm&) {}, u"lblName"},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    form.cmdOK.SetFocus();
    c.prepare(form);
    form.log.clear();
    EXPECT_EQ(ErrorOf([&] { form.FindControl(c.target)->SetFocus(); }), vd::automation::err::kInvalidProcedureCall)
        << c.name;
    EXPECT_EQ(form.ActiveControl(), &form.cmdOK) << c.name;
    EXPECT_TRUE(form.log.empty()) << c.name;
  }
  for (const Step& prepare :
       {Step([](EventLogForm& f) { f.cmdOK.SetVisible(false); }), Step([](EventLogForm& f) { f.SetEnabled(false); })}) {
    EventLogForm form;
    prepare(form);
    EXPECT_FALSE(form.cmdOK.UserClick());
    EXPECT_FALSE(form.cmdOK.UserFocus());
    EXPECT_TRUE(form.log.empty());
  }
}

TEST(Focus, ALostFocusHandlerThatTakesTheFocusBackCancelsTheGotFocus) {
  EventLogForm form;
  form.txtValue.SetFocus();
  form.txtValue.onLostFocus = [&] {
    form.log.push_back("txtValue.LostFocus");
    form.txtValue.SetFocus();
  };
  form.log.clear();
  form.txtName.SetFocus();
  EXPECT_EQ(form.ActiveControl(), &form.txtValue);
  EXPECT_EQ(form.log, (Logs{"txtValue.LostFocus", "txtValue.GotFocus"}));
}

// Records each change as "control.Property[index] key" ("form" for the form's own).
class ChangeRecorder : public PropertyObserver {
 public:
  void PropertyChanged(const Change& change) override {
    changes.push_back(Entry(change.control != nullptr ? ToUtf8(change.control->Name()) : "form", change.property,
                            change.index, change.node != nullptr ? ToUtf8(change.node->Key()) : ""));
  }
  static std::string Entry(const std::string& control, Property property, int index = -1, const std::string& key = "") {
    std::string entry = control + "." + std::to_string(static_cast<int>(property));
    if (index >= 0) entry += "[" + std::to_string(index) + "]";
    return key.empty() ? entry : entry + " " + key;
  }
  std::vector<std::string> changes;
};

TEST(PropertyObserver, ARemovedSubtreeIsReportedBeforeItGoesWithTheSelectionAfter) {
  EventLogForm form;
  BuildTree(form.treItems, 2, 1);
  form.treItems.Nodes().Item(u"1:1")->SetSelected(true);
  ChangeRecorder recorder;
  form.treItems.SetObserver(&recorder);
  bool attachedWhenReported = false;
  struct Probe : PropertyObserver {
    bool* attached;
    explicit Probe(bool* a) : attached(a) {}
    void PropertyChanged(const Change& change) override {
      if (change.property == Property::kNodeRemoving)
        *attached = !change.node->Removed() && change.node->Children() == 1;
    }
  } probe(&attachedWhenReported);
  form.AddObserver(probe);
  form.treItems.Nodes().Remove(DsKey(1));
  EXPECT_TRUE(attachedWhenReported);
  EXPECT_EQ(recorder.changes, (Logs{ChangeRecorder::Entry("treItems", Property::kNodeRemoving, -1, "_Ds1"),
                                    ChangeRecorder::Entry("treItems", Property::kSelectedItem, -1, "_Ds2")}));
}

}  // namespace
}  // namespace vd::forms::test
