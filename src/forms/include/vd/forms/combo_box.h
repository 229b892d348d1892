#pragma once
// A combo box: a list of entries numbered from 0, each with its ItemData, and a
// text. Clear, AddItem and RemoveItem raise nothing (Clear also empties the
// text). Assigning a different ListIndex sets the text to that entry (-1: empty)
// and raises Click. On an editable combo, assigning a different Text raises
// Change and leaves no entry selected (ListIndex -1), as typing does; on a
// drop-down list, Text can only name an entry, which it selects. A user's pick
// from the open list raises Click also when the entry picked is the one shown.
#include <cstdint>
#include <optional>
#include <vector>

#include "vd/forms/constants.h"
#include "vd/forms/control.h"

namespace vd::forms {

class ComboBox : public Control {
 public:
  ComboBox(Container& parent, String name, ComboStyle style = ComboStyle::kDropdownCombo);
  [[nodiscard]] ControlKind Kind() const override { return ControlKind::kComboBox; }
  [[nodiscard]] bool TakesFocus() const override { return true; }

  [[nodiscard]] ComboStyle Style() const { return style_; }
  [[nodiscard]] bool Editable() const { return style_ != ComboStyle::kDropdownList; }

  [[nodiscard]] const String& Text() const { return text_; }
  // On a drop-down list: selects the entry with this text (ignoring case), error
  // 383 when there is none.
  void SetText(String text);

  [[nodiscard]] int32_t ListIndex() const { return listIndex_; }
  // -1 selects nothing; error 380 outside -1..ListCount-1.
  void SetListIndex(int32_t index);

  [[nodiscard]] int32_t ListCount() const { return static_cast<int32_t>(entries_.size()); }
  // The text of entry index; "" for an index outside the list.
  [[nodiscard]] const String& List(int32_t index) const;
  // Error 381 outside 0..ListCount-1.
  void SetList(int32_t index, String text);
  [[nodiscard]] int32_t ItemData(int32_t index) const;
  void SetItemData(int32_t index, int32_t value);
  // The position of the entry added last; -1 after Clear and RemoveItem.
  [[nodiscard]] int32_t NewIndex() const { return newIndex_; }

  // Appends, or inserts at index (0..ListCount, error 5 otherwise). The
  // selected entry stays selected.
  void AddItem(String item, std::optional<int32_t> index = std::nullopt);
  // Error 5 outside 0..ListCount-1. Removing the selected entry selects none
  // (a drop-down list's text empties; an editable text stays).
  void RemoveItem(int32_t index);
  void Clear();
  // The first entry with exactly this text, -1 when none.
  [[nodiscard]] int32_t FindEntry(StringView text) const;

  std::function<void()> onChange;
  std::function<void()> onDropDown;

  // The user opens the list (DropDown) and picks an entry of the list as it is
  // after DropDown (UserChoose). False when no such entry exists.
  bool UserPick(int32_t index);
  bool UserPick(StringView entryText);
  // The user ends a pick in the list already open on entry index: the focus
  // comes here, then Click, through the changed ListIndex or, for the entry
  // already shown, on its own. False when no such entry exists or the combo
  // cannot be used.
  bool UserChoose(int32_t index);
  // The user opens the list and closes it without picking.
  bool UserDropDown();

  // What the list of a combo's window reports while the user works it, in the
  // order it comes: the one entry point through which a view passes a pick on.
  enum class ListStep : uint8_t {
    kOpen,    // the list drops down: the focus comes here, then DropDown
    kClose,   // the list closed up
    kMove,    // the list's entry became index (arrow keys on the closed list, a move in the open list)
    kEnd,     // the pick ends on entry index (see UserChoose), unless a move in this open list clicked already
    kCancel,  // the pick ends without a choice
  };
  // False when the step did nothing (no such entry, an entry already shown,
  // a combo that cannot be used, a pick whose move clicked already).
  bool UserList(ListStep step, int32_t index = -1);
  // Typing into the text of an editable combo (false on a drop-down list); as TextBox.
  bool UserType(StringView text);
  bool UserTypeKeys(StringView keys);

 protected:
  // A click on the text part only moves the focus.
  void ClickAction() override {}

 private:
  struct Entry {
    String text;
    int32_t itemData = 0;
  };
  void CheckEntry(int32_t index, int32_t error) const;
  void SetTextSilently(String text);

  ComboStyle style_;
  std::vector<Entry> entries_;
  String text_;
  int32_t listIndex_ = -1;
  int32_t newIndex_ = -1;
  bool listOpen_ = false;     // the view's list is dropped down
  bool pickClicked_ = false;  // a move in the open list has clicked already
};

}  // namespace vd::forms
