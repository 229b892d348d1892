// The forms' side of two things the views only pass on: which buttons Enter
// and Escape press (Default, Cancel), and a pick in a combo's list, step by
// step as the list reports it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vd/forms/forms.h"

namespace vd::forms::test {
namespace {

class KeysForm : public Form {
 public:
  KeysForm() : Form(u"frmKeys") {
    for (const char16_t* entry : {u"Double", u"Float", u"Text"}) cboType.AddItem(entry);
    cboType.onClick = [this] { log.push_back("Click:" + std::to_string(cboType.ListIndex())); };
    cboType.onDropDown = [this] { log.emplace_back("DropDown"); };
    cboType.onGotFocus = [this] { log.emplace_back("GotFocus"); };
  }
  Frame fraButtons{*this, u"fraButtons"};
  CommandButton cmdOK{*this, u"cmdOK"};
  CommandButton cmdCancel{*this, u"cmdCancel"};
  CommandButton cmdInFrame{fraButtons, u"cmdInFrame"};
  ComboBox cboType{*this, u"cboType", ComboStyle::kDropdownList};
  TextBox txtOther{*this, u"txtOther"};
  std::vector<std::string> log;
};

// The buttons of the form that are Default / Cancel, by name.
std::string Marked(const KeysForm& form, bool (CommandButton::*marked)() const) {
  std::string names;
  for (const CommandButton* button : {&form.cmdOK, &form.cmdCancel, &form.cmdInFrame})
    if ((button->*marked)())
      names += (names.empty() ? "" : ",") + std::string(button->Name().begin(), button->Name().end());
  return names;
}

TEST(CommandButtonKeys, NoButtonIsDefaultOrCancelUntilTheDesignSaysSo) {
  const KeysForm form;
  EXPECT_EQ(Marked(form, &CommandButton::Default), "");
  EXPECT_EQ(Marked(form, &CommandButton::Cancel), "");
}

TEST(CommandButtonKeys, OneDefaultAndOneCancelPerFormAlsoAcrossFrames) {
  KeysForm form;
  form.cmdOK.SetDefault(true);
  form.cmdCancel.SetCancel(true);
  EXPECT_EQ(Marked(form, &CommandButton::Default), "cmdOK");
  EXPECT_EQ(Marked(form, &CommandButton::Cancel), "cmdCancel");
  form.cmdInFrame.SetDefault(true);  // takes Default over, leaves Cancel alone
  EXPECT_EQ(Marked(form, &CommandButton::Default), "cmdInFrame");
  EXPECT_EQ(Marked(form, &CommandButton::Cancel), "cmdCancel");
  form.cmdInFrame.SetCancel(true);  // one button may be both
  EXPECT_EQ(Marked(form, &CommandButton::Cancel), "cmdInFrame");
  form.cmdInFrame.SetDefault(false);  // clearing one marks no other
  EXPECT_EQ(Marked(form, &CommandButton::Default), "");
  EXPECT_TRUE(form.log.empty());
}

TEST(CommandButtonKeys, MarkingAButtonNeitherFiresNorPressesIt) {
  KeysForm form;
  int clicks = 0;
  form.cmdOK.onClick = [&] { ++clicks; };
  form.cmdOK.SetDefault(true);
  form.cmdOK.SetCancel(true);
  EXPECT_EQ(clicks, 0);
}

using Step = ComboBox::ListStep;

struct StepCase {
  const char* name;
  int32_t shown;  // ListIndex before
  std::vector<std::pair<Step, int32_t>> steps;
  std::vector<std::string> log;
  int32_t listIndex;  // after
};

class ListSteps : public ::testing::TestWithParam<StepCase> {};

TEST_P(ListSteps, FireWhatTheUsersPickFires) {
  const StepCase& c = GetParam();
  KeysForm form;
  form.cboType.SetListIndex(c.shown);
  form.txtOther.SetFocus();
  form.log.clear();
  for (const auto& [step, index] : c.steps) form.cboType.UserList(step, index);
  EXPECT_EQ(form.log, c.log);
  EXPECT_EQ(form.cboType.ListIndex(), c.listIndex);
}

const StepCase kStepCases[] = {
    {"PickOfAnotherEntryClicksOnce",
     0,
     {{Step::kOpen, 0}, {Step::kMove, 2}, {Step::kEnd, 2}, {Step::kClose, 2}},
     {"GotFocus", "DropDown", "Click:2"},
     2},
    {"EndBeforeMoveClicksOnce",
     0,
     {{Step::kOpen, 0}, {Step::kEnd, 1}, {Step::kClose, 1}, {Step::kMove, 1}},
     {"GotFocus", "DropDown", "Click:1"},
     1},
    {"PickOfTheEntryShownClicks",
     1,
     {{Step::kOpen, 1}, {Step::kEnd, 1}, {Step::kClose, 1}},
     {"GotFocus", "DropDown", "Click:1"},
     1},
    {"CancelledPickDoesNotClick",
     1,
     {{Step::kOpen, 1}, {Step::kCancel, 1}, {Step::kClose, 1}},
     {"GotFocus", "DropDown"},
     1},
    {"ArrowKeysOnTheClosedListClickForEveryMove",
     0,
     {{Step::kMove, 1}, {Step::kMove, 2}},
     {"GotFocus", "Click:1", "Click:2"},
     2},
    {"AMoveInAnEarlierListDoesNotSwallowTheNextPick",
     0,
     {{Step::kOpen, 0},
      {Step::kMove, 1},
      {Step::kCancel, 1},
      {Step::kClose, 1},
      {Step::kOpen, 1},
      {Step::kEnd, 1},
      {Step::kClose, 1}},
     {"GotFocus", "DropDown", "Click:1", "DropDown", "Click:1"},
     1},
    {"MoveOffTheListDoesNothing", 0, {{Step::kMove, 3}, {Step::kMove, -1}}, {}, 0},
};

INSTANTIATE_TEST_SUITE_P(Combo, ListSteps, ::testing::ValuesIn(kStepCases),
                         [](const ::testing::TestParamInfo<StepCase>& param) { return param.param.name; });

TEST(ListSteps, AHiddenComboTakesNoPick) {
  KeysForm form;
  form.cboType.SetVisible(false);
  EXPECT_FALSE(form.cboType.UserList(Step::kOpen, 0));
  EXPECT_FALSE(form.cboType.UserList(Step::kMove, 1));
  EXPECT_FALSE(form.cboType.UserList(Step::kEnd, 1));
  EXPECT_EQ(form.cboType.ListIndex(), -1);
  EXPECT_TRUE(form.log.empty());
}

}  // namespace
}  // namespace vd::forms::test
