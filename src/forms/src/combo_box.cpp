#include "vd/forms/combo_box.h"

#include <utility>

#include "assign.h"
#include "typing.h"
#include "vd/automation/error.h"
#include "vd/automation/text.h"

namespace vd::forms {
namespace {
const String kNoEntry;
}

ComboBox::ComboBox(Container& parent, String name, ComboStyle style)
    : Control(parent, std::move(name)), style_(style) {}

void ComboBox::CheckEntry(int32_t index, int32_t error) const {
  if (index < 0 || index >= ListCount()) vd::automation::Raise(error);
}

void ComboBox::SetTextSilently(String text) {
  if (detail::Assign(text_, std::move(text))) Notify(Property::kText);
}

void ComboBox::SetText(String text) {
  if (!Editable()) {
    for (int32_t i = 0; i < ListCount(); ++i) {
      if (vd::automation::EqualsIgnoreCase(entries_[static_cast<size_t>(i)].text, text)) {
        SetListIndex(i);
        return;
      }
    }
    vd::automation::Raise(err::kTextPropertyReadOnly, u"'Text' property is read-only");
  }
  if (text == text_) return;
  text_ = std::move(text);
  Notify(Property::kText);
  if (detail::Assign(listIndex_, -1)) Notify(Property::kListIndex);
  Fire(onChange);
}

void ComboBox::SetListIndex(int32_t index) {
  if (index < -1 || index >= ListCount()) vd::automation::Raise(err::kInvalidPropertyValue, u"Invalid property value");
  if (!detail::Assign(listIndex_, index)) return;
  Notify(Property::kListIndex);
  SetTextSilently(index < 0 ? String() : entries_[static_cast<size_t>(index)].text);
  Fire(onClick);
}

const String& ComboBox::List(int32_t index) const {
  if (index < 0 || index >= ListCount()) return kNoEntry;
  return entries_[static_cast<size_t>(index)].text;
}

void ComboBox::SetList(int32_t index, String text) {
  CheckEntry(index, err::kInvalidPropertyArrayIndex);
  if (detail::Assign(entries_[static_cast<size_t>(index)].text, std::move(text)))
    Notify(Property::kListItemChanged, index);
}

int32_t ComboBox::ItemData(int32_t index) const {
  CheckEntry(index, err::kInvalidPropertyArrayIndex);
  return entries_[static_cast<size_t>(index)].itemData;
}

void ComboBox::SetItemData(int32_t index, int32_t value) {
  CheckEntry(index, err::kInvalidPropertyArrayIndex);
  if (detail::Assign(entries_[static_cast<size_t>(index)].itemData, value)) Notify(Property::kItemData, index);
}

void ComboBox::AddItem(String item, std::optional<int32_t> index) {
  const int32_t at = index.value_or(ListCount());
  if (at < 0 || at > ListCount()) vd::automation::Raise(vd::automation::err::kInvalidProcedureCall);
  entries_.insert(entries_.begin() + at, Entry{std::move(item), 0});
  newIndex_ = at;
  Notify(Property::kListItemAdded, at);
  if (listIndex_ >= at) {
    ++listIndex_;
    Notify(Property::kListIndex);
  }
}

void ComboBox::RemoveItem(int32_t index) {
  CheckEntry(index, vd::automation::err::kInvalidProcedureCall);
  entries_.erase(entries_.begin() + index);
  newIndex_ = -1;
  Notify(Property::kListItemRemoved, index);
  if (listIndex_ == index) {
    listIndex_ = -1;
    Notify(Property::kListIndex);
    if (!Editable()) SetTextSilently(String());
  } else if (listIndex_ > index) {
    --listIndex_;
    Notify(Property::kListIndex);
  }
}

void ComboBox::Clear() {
  const bool hadEntries = !entries_.empty();
  entries_.clear();
  newIndex_ = -1;
  if (hadEntries) Notify(Property::kListCleared);
  if (detail::Assign(listIndex_, -1)) Notify(Property::kListIndex);
  SetTextSilently(String());
}

int32_t ComboBox::FindEntry(StringView text) const {
  for (size_t i = 0; i < entries_.size(); ++i)
    if (entries_[i].text == text) return static_cast<int32_t>(i);
  return -1;
}

bool ComboBox::UserDropDown() {
  if (!UserFocus()) return false;
  Fire(onDropDown);
  return true;
}

bool ComboBox::UserChoose(int32_t index) {
  if (!UserFocus()) return false;
  if (index < 0 || index >= ListCount() || !CanUse()) return false;
  if (index == listIndex_) {
    Fire(onClick);  // the pick of the entry shown changes nothing but still clicks
  } else {
    SetListIndex(index);
  }
  return true;
}

bool ComboBox::UserList(ListStep step, int32_t index) {
  switch (step) {
    case ListStep::kOpen:
      listOpen_ = true;
      pickClicked_ = false;
      return UserDropDown();
    case ListStep::kClose:
      listOpen_ = false;
      return true;
    case ListStep::kMove:
      if (index == listIndex_) return false;
      // The Click of this move may change the selection itself (a command
      // entry does): the end of the pick must not click again.
      if (listOpen_) pickClicked_ = true;
      if (index < 0 || index >= ListCount() || !UserFocus() || !CanUse()) return false;
      SetListIndex(index);
      return true;
    case ListStep::kEnd:
      if (std::exchange(pickClicked_, false)) return false;
      return UserChoose(index);
    case ListStep::kCancel:
      pickClicked_ = false;
      return false;
  }
  return false;
}

bool ComboBox::UserPick(int32_t index) { return UserDropDown() && UserChoose(index); }

bool ComboBox::UserPick(StringView entryText) { return UserDropDown() && UserChoose(FindEntry(entryText)); }

bool ComboBox::UserType(StringView text) {
  if (!Editable() || !UserFocus()) return false;
  SetText(String(text));
  return true;
}

bool ComboBox::UserTypeKeys(StringView keys) {
  if (!Editable() || !UserFocus()) return false;
  for (const char16_t key : keys) {
    const int16_t typed = PressKey(detail::KeyAscii(key));
    if (typed != 0) SetText(detail::WithKey(text_, typed));
  }
  return true;
}

}  // namespace vd::forms
