#include <gtest/gtest.h>

#include "event_log_form.h"

namespace vd::forms::test {
namespace {

using Names = std::vector<std::string>;

OptionButton& Option(EventLogForm& form, const std::string& name) {
  auto* option = dynamic_cast<OptionButton*>(form.FindControl(vd::automation::FromUtf8(name)));
  if (option == nullptr) throw std::invalid_argument(name);
  return *option;
}

Names SelectedOptions(EventLogForm& form) {
  Names selected;
  for (Control* control : form.AllControls()) {
    auto* option = dynamic_cast<OptionButton*>(control);
    if (option != nullptr && option->Value()) selected.push_back(vd::automation::ToUtf8(option->Name()));
  }
  return selected;
}

struct GroupCase {
  const char* name;
  Names selectedBefore;
  std::string assigned;
  bool value;
  Names selectedAfter;
  Names events;
};

class OptionGroups : public ::testing::TestWithParam<GroupCase> {};

TEST_P(OptionGroups, SelectingClearsOnlyTheSameContainer) {
  const GroupCase& c = GetParam();
  EventLogForm form;
  for (const std::string& name : c.selectedBefore) Option(form, name).SetValue(true);
  form.log.clear();
  Option(form, c.assigned).SetValue(c.value);
  EXPECT_EQ(SelectedOptions(form), c.selectedAfter);
  EXPECT_EQ(form.log, c.events);
}

INSTANTIATE_TEST_SUITE_P(
    Containers, OptionGroups,
    ::testing::Values(GroupCase{"FirstInFrame", {}, "optLeft2", true, {"optLeft2"}, {"optLeft2.Click"}},
                      GroupCase{"SwitchInFrame", {"optLeft1"}, "optLeft3", true, {"optLeft3"}, {"optLeft3.Click"}},
                      GroupCase{"OtherFramesKeepTheirs",
                                {"optLeft1", "optRight1", "optForm1"},
                                "optRight2",
                                true,
                                {"optLeft1", "optRight2", "optForm1"},
                                {"optRight2.Click"}},
                      GroupCase{"FormGroupIgnoresFrames",
                                {"optLeft2", "optForm1"},
                                "optForm2",
                                true,
                                {"optLeft2", "optForm2"},
                                {"optForm2.Click"}},
                      GroupCase{"AlreadySelected", {"optLeft1"}, "optLeft1", true, {"optLeft1"}, {}},
                      GroupCase{"ClearedLeavesNoneSelected", {"optLeft1"}, "optLeft1", false, {}, {}},
                      GroupCase{"ClearingAnUnselectedOne", {"optLeft1"}, "optLeft2", false, {"optLeft1"}, {}}),
    [](const ::testing::TestParamInfo<GroupCase>& param) { return std::string(param.param.name); });

TEST(OptionGroups, TheClickHandlerSeesTheOthersAlreadyCleared) {
  EventLogForm form;
  form.optLeft1.SetValue(true);
  bool otherStillSet = true;
  form.optLeft2.onClick = [&] { otherStillSet = form.optLeft1.Value(); };
  form.optLeft2.SetValue(true);
  EXPECT_FALSE(otherStillSet);
}

TEST(OptionGroups, AUserClickSelectsWithFocusFirst) {
  EventLogForm form;
  form.optRight1.SetValue(true);
  form.log.clear();
  ASSERT_TRUE(form.optRight2.UserClick());
  EXPECT_EQ(form.log, (Names{"optRight2.GotFocus", "optRight2.Click"}));
  EXPECT_EQ(SelectedOptions(form), (Names{"optRight2"}));
}

}  // namespace
}  // namespace vd::forms::test
