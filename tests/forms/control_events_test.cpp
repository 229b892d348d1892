#include <gtest/gtest.h>

#include <functional>

#include "event_log_form.h"
#include "vd/automation/error.h"

namespace vd::forms::test {
namespace {

using Logs = std::vector<std::string>;

struct AssignmentCase {
  const char* name;
  std::function<void(EventLogForm&)> before;
  std::function<void(EventLogForm&)> assign;
  Logs events;
};

class AssignmentEvents : public ::testing::TestWithParam<AssignmentCase> {};

TEST_P(AssignmentEvents, FireOnlyWhenTheValueChanges) {
  const AssignmentCase& c = GetParam();
  EventLogForm form;
  if (c.before) c.before(form);
  form.log.clear();
  c.assign(form);
  EXPECT_EQ(form.log, c.events);
}

auto Nothing = [](EventLogForm&) {};

INSTANTIATE_TEST_SUITE_P(
    Controls, AssignmentEvents,
    ::testing::Values(
        AssignmentCase{
            "TextDiffers", Nothing, [](EventLogForm& f) { f.txtName.SetText(u"Level"); }, {"txtName.Change"}},
        AssignmentCase{"TextSame",
                       [](EventLogForm& f) { f.txtName.SetText(u"Level"); },
                       [](EventLogForm& f) { f.txtName.SetText(u"Level"); },
                       {}},
        AssignmentCase{"TextEmptyToEmpty", Nothing, [](EventLogForm& f) { f.txtName.SetText(u""); }, {}},
        AssignmentCase{"TextDiffersInCaseOnly",
                       [](EventLogForm& f) { f.txtName.SetText(u"level"); },
                       [](EventLogForm& f) { f.txtName.SetText(u"Level"); },
                       {"txtName.Change"}},
        AssignmentCase{"TextOfDisabledBox",
                       [](EventLogForm& f) { f.txtName.SetEnabled(false); },
                       [](EventLogForm& f) { f.txtName.SetText(u"x"); },
                       {"txtName.Change"}},
        AssignmentCase{"CheckTicked", Nothing, [](EventLogForm& f) { f.chkAll.SetValue(vbChecked); }, {"chkAll.Click"}},
        AssignmentCase{"CheckSame",
                       [](EventLogForm& f) { f.chkAll.SetValue(vbChecked); },
                       [](EventLogForm& f) { f.chkAll.SetValue(vbChecked); },
                       {}},
        AssignmentCase{"CheckUntickedAgain", Nothing, [](EventLogForm& f) { f.chkAll.SetValue(vbUnchecked); }, {}},
        AssignmentCase{"CheckGrayed",
                       [](EventLogForm& f) { f.chkAll.SetValue(vbChecked); },
                       [](EventLogForm& f) { f.chkAll.SetValue(vbGrayed); },
                       {"chkAll.Click"}},
        AssignmentCase{"CheckWhileDisabled",
                       [](EventLogForm& f) { f.chkAll.SetEnabled(false); },
                       [](EventLogForm& f) { f.chkAll.SetValue(vbChecked); },
                       {"chkAll.Click"}},
        AssignmentCase{
            "OptionSelected", Nothing, [](EventLogForm& f) { f.optForm1.SetValue(true); }, {"optForm1.Click"}},
        AssignmentCase{"OptionSelectedAgain",
                       [](EventLogForm& f) { f.optForm1.SetValue(true); },
                       [](EventLogForm& f) { f.optForm1.SetValue(true); },
                       {}},
        AssignmentCase{"OptionCleared",
                       [](EventLogForm& f) { f.optForm1.SetValue(true); },
                       [](EventLogForm& f) { f.optForm1.SetValue(false); },
                       {}},
        AssignmentCase{"ListIndexChanged",
                       [](EventLogForm& f) { f.cboList.AddItem(u"File"); },
                       [](EventLogForm& f) { f.cboList.SetListIndex(0); },
                       {"cboList.Click"}},
        AssignmentCase{"ListIndexSame",
                       [](EventLogForm& f) {
                         f.cboList.AddItem(u"File");
                         f.cboList.SetListIndex(0);
                       },
                       [](EventLogForm& f) { f.cboList.SetListIndex(0); },
                       {}},
        AssignmentCase{"ListIndexToNone",
                       [](EventLogForm& f) {
                         f.cboList.AddItem(u"File");
                         f.cboList.SetListIndex(0);
                       },
                       [](EventLogForm& f) { f.cboList.SetListIndex(-1); },
                       {"cboList.Click"}},
        AssignmentCase{
            "EditableComboText", Nothing, [](EventLogForm& f) { f.cboEdit.SetText(u"12 - Main"); }, {"cboEdit.Change"}},
        AssignmentCase{"EditableComboSameText",
                       [](EventLogForm& f) { f.cboEdit.SetText(u"5"); },
                       [](EventLogForm& f) { f.cboEdit.SetText(u"5"); },
                       {}},
        AssignmentCase{"ListTextSelectsEntry",
                       [](EventLogForm& f) { f.cboList.AddItem(u"Memory"); },
                       [](EventLogForm& f) { f.cboList.SetText(u"memory"); },
                       {"cboList.Click"}},
        AssignmentCase{
            "ButtonPressedFromCode", Nothing, [](EventLogForm& f) { f.cmdOK.SetValue(true); }, {"cmdOK.Click"}},
        AssignmentCase{"ButtonValueFalse", Nothing, [](EventLogForm& f) { f.cmdOK.SetValue(false); }, {}},
        AssignmentCase{"PropertiesWithoutEvents",
                       Nothing,
                       [](EventLogForm& f) {
                         f.lblName.SetCaption(u"&Name:");
                         f.cmdOK.SetEnabled(false);
                         f.txtName.SetVisible(false);
                         f.txtName.SetToolTipText(u"Delete ");
                         f.txtName.SetTag(u"7");
                         f.sbStatus.SetSimpleText(u"Select: Numeric, any shape.");
                         f.pbProgress.SetValue(50);
                       },
                       {}}),
    [](const ::testing::TestParamInfo<AssignmentCase>& param) { return std::string(param.param.name); });

TEST(TextBoxChange, RunsBeforeTheAssignmentReturnsAndSeesTheNewText) {
  EventLogForm form;
  String seen;
  form.txtName.onChange = [&] {
    seen = form.txtName.Text();
    form.log.push_back("Change");
  };
  form.txtName.SetText(u"Plant");
  form.log.push_back("after");
  EXPECT_EQ(seen, u"Plant");
  EXPECT_EQ(form.log, (Logs{"Change", "after"}));
}

TEST(TextBoxChange, AHandlerThatWritesTheSameTextBackEndsTheChain) {
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

TEST(CheckBoxValue, OutsideZeroToTwoIsRefused) {
  EventLogForm form;
  for (const int16_t value : {int16_t{-1}, int16_t{3}}) {
    try {
      form.chkAll.SetValue(value);
      ADD_FAILURE() << value << " was accepted";
    } catch (const vd::automation::AutomationError& e) {
      EXPECT_EQ(e.Number(), err::kInvalidPropertyValue);
    }
  }
  EXPECT_EQ(form.chkAll.Value(), vbUnchecked);
  EXPECT_TRUE(form.log.empty());
}

}  // namespace
}  // namespace vd::forms::test
