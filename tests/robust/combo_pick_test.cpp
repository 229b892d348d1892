// A user's pick from a drop-down list clicks, also on the entry shown; code
// that sets the list to its own entry does not.
#include <gtest/gtest.h>

#include <vector>

#include "vd/forms/forms.h"

namespace vd::robust_test {
namespace {

struct ListForm : forms::Form {
  ListForm() : Form(u"frmList") {
    for (const char16_t* entry : {u"Double", u"Float", u"Text"}) cboType.AddItem(entry);
    cboType.onClick = [this] { clicks.push_back(cboType.ListIndex()); };
  }
  forms::ComboBox cboType{*this, u"cboType", forms::ComboStyle::kDropdownList};
  std::vector<int32_t> clicks;  // ListIndex at each Click
};

TEST(UserPick, ClicksOnceForEveryPickAndNeverWithoutOne) {
  const struct {
    int32_t shown, picked;  // picked -1: the list closes unpicked
    std::vector<int32_t> clicks;
  } cases[] = {{0, 2, {2}}, {1, 1, {1}}, {-1, 0, {0}}, {1, -1, {}}};
  for (const auto& c : cases) {
    ListForm form;
    form.cboType.SetListIndex(c.shown);
    form.clicks.clear();
    ASSERT_TRUE(c.picked < 0 ? form.cboType.UserDropDown() : form.cboType.UserPick(c.picked));
    EXPECT_EQ(form.clicks, c.clicks) << c.shown << " -> " << c.picked;
    EXPECT_EQ(form.cboType.ListIndex(), c.picked < 0 ? c.shown : c.picked);
  }
}

TEST(CodePick, SettingTheEntryShownOrADisabledListClicksNothing) {
  ListForm form;
  form.cboType.SetListIndex(1);
  form.clicks.clear();
  form.cboType.SetListIndex(1);
  form.cboType.SetText(u"float");  // names the entry shown
  form.cboType.SetEnabled(false);
  EXPECT_FALSE(form.cboType.UserChoose(1));
  EXPECT_TRUE(form.clicks.empty());
}

}  // namespace
}  // namespace vd::robust_test
