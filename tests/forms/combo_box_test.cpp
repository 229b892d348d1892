#include <gtest/gtest.h>

#include "event_log_form.h"
#include "vd/automation/error.h"

namespace vd::forms::test {
namespace {

using Logs = std::vector<std::string>;

void Fill(ComboBox& combo, std::initializer_list<const char16_t*> entries) {
  int32_t data = 10;
  for (const char16_t* entry : entries) {
    combo.AddItem(entry);
    combo.SetItemData(combo.NewIndex(), data++);
  }
}

TEST(ComboBoxList, ClearAndAddItemFireNothingAndClearEmptiesTheText) {
  for (const ComboStyle style : {ComboStyle::kDropdownList, ComboStyle::kDropdownCombo}) {
    EventLogForm form;
    ComboBox& combo = style == ComboStyle::kDropdownList ? form.cboList : form.cboEdit;
    Fill(combo, {u"File", u"Memory"});
    combo.SetListIndex(1);
    form.log.clear();
    combo.Clear();
    EXPECT_EQ(combo.Text(), u"");
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.ListCount(), 0);
    EXPECT_EQ(combo.NewIndex(), -1);
    Fill(combo, {u"Constant"});
    EXPECT_TRUE(form.log.empty()) << form.log.front();
  }
}

TEST(ComboBoxList, ListIndexSetsTheTextBeforeClick) {
  EventLogForm form;
  Fill(form.cboEdit, {u"1 - Main", u"2 - Spare"});
  String textInClick;
  form.cboEdit.onClick = [&] { textInClick = form.cboEdit.Text(); };
  form.cboEdit.SetListIndex(1);
  EXPECT_EQ(textInClick, u"2 - Spare");
  EXPECT_EQ(form.cboEdit.Text(), u"2 - Spare");
  form.cboEdit.SetListIndex(-1);
  EXPECT_EQ(form.cboEdit.Text(), u"");
}

TEST(ComboBoxList, TheSelectionFollowsItsEntryThroughInsertAndRemove) {
  const struct {
    const char* name;
    ComboStyle style;
    std::function<void(ComboBox&)> change;
    int32_t listIndex;
    const char16_t* text;
  } cases[] = {
      {"InsertBefore", ComboStyle::kDropdownList, [](ComboBox& c) { c.AddItem(u"x", 0); }, 2, u"Memory"},
      {"RemoveBefore", ComboStyle::kDropdownList, [](ComboBox& c) { c.RemoveItem(0); }, 0, u"Memory"},
      {"RemoveSelectedList", ComboStyle::kDropdownList, [](ComboBox& c) { c.RemoveItem(1); }, -1, u""},
      {"RemoveSelectedEditable", ComboStyle::kDropdownCombo, [](ComboBox& c) { c.RemoveItem(1); }, -1, u"Memory"}};
  for (const auto& c : cases) {
    EventLogForm form;
    ComboBox& combo = c.style == ComboStyle::kDropdownList ? form.cboList : form.cboEdit;
    Fill(combo, {u"File", u"Memory", u"Constant"});
    combo.SetListIndex(1);
    form.log.clear();
    c.change(combo);
    EXPECT_EQ(combo.ListIndex(), c.listIndex) << c.name;
    EXPECT_EQ(combo.Text(), c.text) << c.name;
    EXPECT_TRUE(form.log.empty()) << c.name;
    // Item data travels with its entry.
    EXPECT_EQ(combo.ItemData(combo.ListCount() - 1), 12) << c.name;
  }
}

TEST(ComboBoxList, OutOfRangeAccessRaisesTheClassicErrors) {
  const struct {
    const char* name;
    std::function<void(ComboBox&)> call;
    int32_t error;
  } cases[] = {
      {"ListIndexTooHigh", [](ComboBox& c) { c.SetListIndex(2); }, err::kInvalidPropertyValue},
      {"ItemDataOfMissingEntry", [](ComboBox& c) { (void)c.ItemData(2); }, err::kInvalidPropertyArrayIndex},
      {"RemoveMissingEntry", [](ComboBox& c) { c.RemoveItem(2); }, vd::automation::err::kInvalidProcedureCall},
      {"InsertBeyondTheEnd", [](ComboBox& c) { c.AddItem(u"x", 3); }, vd::automation::err::kInvalidProcedureCall},
      {"ListTextNamesNoEntry", [](ComboBox& c) { c.SetText(u"Other"); }, err::kTextPropertyReadOnly},
      {"RenameMissingEntry", [](ComboBox& c) { c.SetList(2, u"x"); }, err::kInvalidPropertyArrayIndex}};
  for (const auto& c : cases) {
    EventLogForm form;
    Fill(form.cboList, {u"File", u"Memory"});
    EXPECT_EQ(ErrorOf([&] { c.call(form.cboList); }), c.error) << c.name;
    EXPECT_EQ(form.cboList.ListCount(), 2) << c.name;
  }
  EventLogForm form;
  Fill(form.cboEdit, {u"Lev", u"Level"});
  form.cboEdit.SetList(1, u"Levels");
  EXPECT_EQ(form.cboEdit.List(1), u"Levels");
  EXPECT_EQ(form.cboEdit.List(form.cboEdit.ListCount()), u"");  // one beyond the last entry reads empty
}

TEST(ComboBoxText, TypingIntoAnEditableComboLeavesNoEntrySelected) {
  EventLogForm form;
  Fill(form.cboEdit, {u"1 - Main", u"2 - Spare"});
  form.cboEdit.SetListIndex(0);
  form.log.clear();
  form.cboEdit.SetText(u"5");
  EXPECT_EQ(form.cboEdit.ListIndex(), -1);
  EXPECT_EQ(form.log, (Logs{"cboEdit.Change"}));
}

TEST(ComboBoxText, ADropDownListTakesNoTyping) {
  EventLogForm form;
  Fill(form.cboList, {u"File"});
  EXPECT_FALSE(form.cboList.UserType(u"File"));
  EXPECT_FALSE(form.cboList.UserTypeKeys(u"F"));
  EXPECT_EQ(form.cboList.Text(), u"");
  EXPECT_TRUE(form.log.empty());
}

}  // namespace
}  // namespace vd::forms::test
