#pragma once
// A one-line text box. Assigning a different Text raises Change before the
// assignment returns; the same text raises nothing.
#include "vd/forms/control.h"

namespace vd::forms {

class TextBox : public Control {
 public:
  TextBox(Container& parent, String name);
  [[nodiscard]] ControlKind Kind() const override { return ControlKind::kTextBox; }
  [[nodiscard]] bool TakesFocus() const override { return true; }

  [[nodiscard]] const String& Text() const { return text_; }
  void SetText(String text);

  std::function<void()> onChange;

  // The user replaces the whole text (one Change), as a paste over a selection.
  bool UserType(StringView text);
  // The user types key by key at the end of the text: KeyPress and one Change
  // per character; backspace (8) removes the last character.
  bool UserTypeKeys(StringView keys);

 private:
  String text_;
};

}  // namespace vd::forms
