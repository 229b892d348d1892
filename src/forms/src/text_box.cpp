#include "vd/forms/text_box.h"

#include "assign.h"
#include "typing.h"

namespace vd::forms {

TextBox::TextBox(Container& parent, String name) : Control(parent, std::move(name)) {}

void TextBox::SetText(String text) {
  if (!detail::Assign(text_, std::move(text))) return;
  Notify(Property::kText);
  Fire(onChange);
}

bool TextBox::UserType(StringView text) {
  if (!UserFocus()) return false;
  SetText(String(text));
  return true;
}

bool TextBox::UserTypeKeys(StringView keys) {
  if (!UserFocus()) return false;
  for (const char16_t key : keys) {
    const int16_t typed = PressKey(detail::KeyAscii(key));
    if (typed != 0) SetText(detail::WithKey(text_, typed));
  }
  return true;
}

}  // namespace vd::forms
