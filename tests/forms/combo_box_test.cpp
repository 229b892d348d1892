#include <gtest/gtest.h>

#include "event_log_form.h"
#include "vd/automation/error.h"

namespace vd::forms::test {
namespace {

using Logs = std::vector<std::string>;
using vd::automation::AutomationError;

void Fill(ComboBox& combo, std::initializer_list<const char16_t*> entries) {
  int32_t data = 10;
  for (const char16_t* entry : entries) {
    combo.AddItem(entry);
    combo.SetItemData(combo.NewIndex(), data++);
  }
}

// Entries as "text=itemData".
std::vector<String> Entries(const ComboBox& combo) {
  std::vector<String> out;
  for (int32_t i = 0; i < combo.ListCount(); ++i)
    out.push_back(combo.List(i) + u"=" + vd::automation::ToDecimal(combo.ItemData(i)));
  return out;
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

TEST(ComboBoxList, ItemDataTravelsWithItsEntry) {
  const struct {
    const char* name;
    std::function<void(ComboBox&)> change;
    std::vector<String> entries;
  } cases[] = {
      {"RemoveFirst", [](ComboBox& c) { c.RemoveItem(0); }, {u"Memory=11", u"Constant=12"}},
      {"RemoveMiddle", [](ComboBox& c) { c.RemoveItem(1); }, {u"File=10", u"Constant=12"}},
      {"InsertAtFront",
       [](ComboBox& c) {
         c.AddItem(u"Custom", 0);
         c.SetItemData(c.NewIndex(), 105);
       },
       {u"Custom=105", u"File=10", u"Memory=11", u"Constant=12"}},
      {"InsertInside", [](ComboBox& c) { c.AddItem(u"New", 2); }, {u"File=10", u"Memory=11", u"New=0", u"Constant=12"}},
      {"RenameEntry", [](ComboBox& c) { c.SetList(2, u"Const"); }, {u"File=10", u"Memory=11", u"Const=12"}},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    Fill(form.cboList, {u"File", u"Memory", u"Constant"});
    c.change(form.cboList);
    EXPECT_EQ(Entries(form.cboList), c.entries) << c.name;
    EXPECT_TRUE(form.log.empty()) << c.name;
  }
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
      {"InsertAfter", ComboStyle::kDropdownList, [](ComboBox& c) { c.AddItem(u"x"); }, 1, u"Memory"},
      {"RemoveBefore", ComboStyle::kDropdownList, [](ComboBox& c) { c.RemoveItem(0); }, 0, u"Memory"},
      {"RemoveSelectedList", ComboStyle::kDropdownList, [](ComboBox& c) { c.RemoveItem(1); }, -1, u""},
      {"RemoveSelectedEditable", ComboStyle::kDropdownCombo, [](ComboBox& c) { c.RemoveItem(1); }, -1, u"Memory"},
  };
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
  }
}

TEST(ComboBoxList, ReadingOneBeyondTheLastEntryGivesEmptyText) {
  EventLogForm form;
  Fill(form.cboEdit, {u"Lev", u"Level"});
  EXPECT_EQ(form.cboEdit.List(form.cboEdit.ListCount()), u"");
  EXPECT_EQ(form.cboEdit.List(-1), u"");
  EXPECT_EQ(form.cboEdit.List(1), u"Level");
}

TEST(ComboBoxList, OutOfRangeAccessRaisesTheClassicErrors) {
  const struct {
    const char* name;
    std::function<void(ComboBox&)> call;
    int32_t error;
  } cases[] = {
      {"ListIndexTooHigh", [](ComboBox& c) { c.SetListIndex(2); }, err::kInvalidPropertyValue},
      {"ListIndexBelowNone", [](ComboBox& c) { c.SetListIndex(-2); }, err::kInvalidPropertyValue},
      {"ItemDataOfMissingEntry", [](ComboBox& c) { (void)c.ItemData(2); }, err::kInvalidPropertyArrayIndex},
      {"RemoveMissingEntry", [](ComboBox& c) { c.RemoveItem(2); }, vd::automation::err::kInvalidProcedureCall},
      {"InsertBeyondTheEnd", [](ComboBox& c) { c.AddItem(u"x", 3); }, vd::automation::err::kInvalidProcedureCall},
      {"ListTextNamesNoEntry", [](ComboBox& c) { c.SetText(u"Other"); }, err::kTextPropertyReadOnly},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    Fill(form.cboList, {u"File", u"Memory"});
    try {
      c.call(form.cboList);
      ADD_FAILURE() << c.name << ": no error";
    } catch (const AutomationError& e) {
      EXPECT_EQ(e.Number(), c.error) << c.name;
    }
  }
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

TEST(ComboBoxPick, DropsDownThenPicksFromTheListAsItIsThen) {
  EventLogForm form;
  form.cboEdit.SetText(u"5");
  // The list is rebuilt on every drop-down, keeping the typed text.
  form.cboEdit.onDropDown = [&] {
    const String text = form.cboEdit.Text();
    form.cboEdit.Clear();
    form.cboEdit.AddItem(u"5 - Plant");
    form.cboEdit.AddItem(u"6 - Spare");
    form.log.push_back("reloaded, text " + vd::automation::ToUtf8(text));
  };
  form.log.clear();
  ASSERT_TRUE(form.cboEdit.UserPick(u"6 - Spare"));
  EXPECT_EQ(form.log, (Logs{"cboEdit.GotFocus", "reloaded, text 5", "cboEdit.Click"}));
  EXPECT_EQ(form.cboEdit.ListIndex(), 1);
  EXPECT_EQ(form.cboEdit.Text(), u"6 - Spare");
  EXPECT_FALSE(form.cboEdit.UserPick(u"7 - None"));
  EXPECT_FALSE(form.cboEdit.UserPick(5));
}

}  // namespace
}  // namespace vd::forms::test
