// A user's pick from a drop-down list clicks, also on the entry shown; code
// that sets the list to its own entry does not.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialog_fixture.h"
#include "vd/forms/forms.h"

namespace vd::robust_test {
namespace {

using automation::String;
using forms::ComboBox;
using forms::ComboStyle;

template <class Case>
std::string CaseName(const ::testing::TestParamInfo<Case>& tested) {
  return tested.param.name;
}

class ListForm : public forms::Form {
 public:
  ListForm() : Form(u"frmList") {
    for (const char16_t* entry : {u"Double", u"Float", u"Text"}) cboType.AddItem(entry);
    cboType.onClick = [this] { clicks.push_back(cboType.ListIndex()); };
  }
  ComboBox cboType{*this, u"cboType", ComboStyle::kDropdownList};
  forms::TextBox txtOther{*this, u"txtOther"};
  std::vector<int32_t> clicks;  // ListIndex at each Click
};

struct PickCase {
  const char* name;
  int32_t shown;   // ListIndex before
  int32_t picked;  // entry the user picks; -1: none (the list closes unpicked)
  std::vector<int32_t> clicks;
};

class UserPick : public ::testing::TestWithParam<PickCase> {};

TEST_P(UserPick, ClicksOnceForEveryPickAndNeverWithoutOne) {
  const PickCase& c = GetParam();
  ListForm form;
  form.cboType.SetListIndex(c.shown);
  form.clicks.clear();
  if (c.picked < 0) {
    ASSERT_TRUE(form.cboType.UserDropDown());
  } else {
    ASSERT_TRUE(form.cboType.UserPick(c.picked));
  }
  EXPECT_EQ(form.clicks, c.clicks);
  EXPECT_EQ(form.cboType.ListIndex(), c.picked < 0 ? c.shown : c.picked);
}

INSTANTIATE_TEST_SUITE_P(Picks, UserPick,
                         ::testing::Values(PickCase{"AnotherEntry", 0, 2, {2}}, PickCase{"TheEntryShown", 1, 1, {1}},
                                           PickCase{"TheOnlyEntryShownFirst", 0, 0, {0}},
                                           PickCase{"FromNoEntry", -1, 0, {0}}, PickCase{"ClosedUnpicked", 1, -1, {}}),
                         CaseName<PickCase>);

TEST(CodePick, SettingTheEntryShownClicksNothing) {
  ListForm form;
  form.cboType.SetListIndex(1);
  form.clicks.clear();
  form.cboType.SetListIndex(1);
  form.cboType.SetText(u"float");  // names the entry shown
  EXPECT_TRUE(form.clicks.empty());
}

TEST(UserChoose, RefusesAMissingEntryAndAnUnusableListWithoutClicking) {
  ListForm form;
  form.cboType.SetListIndex(1);
  form.clicks.clear();
  EXPECT_FALSE(form.cboType.UserChoose(3));
  EXPECT_FALSE(form.cboType.UserChoose(-1));
  EXPECT_FALSE(form.cboType.UserPick(u"Long"));
  form.cboType.SetEnabled(false);
  EXPECT_FALSE(form.cboType.UserChoose(1));
  EXPECT_TRUE(form.clicks.empty());
  EXPECT_EQ(form.cboType.ListIndex(), 1);
}

TEST(UserChoose, MovesTheFocusToTheListFirst) {
  ListForm form;
  std::vector<std::string> log;
  form.txtOther.onLostFocus = [&] { log.emplace_back("txtOther.LostFocus"); };
  form.cboType.onGotFocus = [&] { log.emplace_back("cboType.GotFocus"); };
  form.cboType.onClick = [&] { log.emplace_back("cboType.Click"); };
  ASSERT_TRUE(form.txtOther.UserFocus());
  ASSERT_TRUE(form.cboType.UserChoose(0));
  EXPECT_EQ(log, (std::vector<std::string>{"txtOther.LostFocus", "cboType.GotFocus", "cboType.Click"}));
}

// The data variable panel: the type list of a constant data source's variable
// offers "Float" alone; picking it stores type 7 whatever type was stored.
struct TypePickCase {
  const char* name;
  int32_t kind;    // of the data source
  int32_t stored;  // the variable's type before
  const char16_t* picked;
  int32_t written;
};

class TypeListPick : public ::testing::TestWithParam<TypePickCase> {};

TEST_P(TypeListPick, StoresTheTypePickedAlsoWhenItsEntryWasShown) {
  const TypePickCase& c = GetParam();
  DialogFixture f;
  auto display = sample::MemoryDisplay::Create();
  const toolkit::DsRef ds = display->DataSources()->AddDs(c.kind, u"");
  const toolkit::DsvRef dsv = ds->GetDsVars()->AddDsv();
  dsv->SetDsvType(c.stored);
  dsv->SetDsvCols(c.stored == toolkit::dsvtype::kText ? 40 : 1);
  String shownBefore;
  f.user.SelectNode(f.dlg.treDataSources, u"1:1")
      .Check([&] { shownBefore = f.dlg.cboDsvType.Text(); })
      .Pick(f.dlg.cboDsvType, c.picked)
      .Click(f.dlg.dbClose);
  f.desk.EditDataSources(display);
  EXPECT_EQ(shownBefore, c.picked);  // every case picks the entry shown
  EXPECT_EQ(dsv->GetDsvType(), c.written);
  EXPECT_TRUE(f.desk.IsModified());
}

INSTANTIATE_TEST_SUITE_P(Panels, TypeListPick,
                         ::testing::Values(TypePickCase{"ConstantDouble", toolkit::kind::kConstant,
                                                        toolkit::dsvtype::kDouble, u"Float", toolkit::dsvtype::kFloat},
                                           TypePickCase{"ConstantText", toolkit::kind::kConstant,
                                                        toolkit::dsvtype::kText, u"Float", toolkit::dsvtype::kFloat},
                                           TypePickCase{"AsciiFileLong", toolkit::kind::kFile, toolkit::dsvtype::kLong,
                                                        u"Text", toolkit::dsvtype::kText},
                                           TypePickCase{"MemoryLong", toolkit::kind::kMemory, toolkit::dsvtype::kLong,
                                                        u"Long", toolkit::dsvtype::kLong}),
                         CaseName<TypePickCase>);

}  // namespace
}  // namespace vd::robust_test
