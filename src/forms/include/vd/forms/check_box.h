#pragma once
// A check box with the values 0 (unchecked), 1 (checked) and 2 (grayed).
// Assigning a different value raises Click, also while the box is disabled.
#include "vd/forms/control.h"

namespace vd::forms {

class CheckBox : public Control {
 public:
  CheckBox(Container& parent, String name, String caption = {});
  [[nodiscard]] ControlKind Kind() const override { return ControlKind::kCheckBox; }
  [[nodiscard]] bool TakesFocus() const override { return true; }

  [[nodiscard]] const String& Caption() const { return caption_; }
  void SetCaption(String caption);
  [[nodiscard]] int16_t Value() const { return value_; }
  // Error 380 for a value other than 0, 1 and 2.
  void SetValue(int16_t value);

 protected:
  // A user's click: checked becomes unchecked, anything else checked.
  void ClickAction() override;

 private:
  String caption_;
  int16_t value_ = 0;
};

}  // namespace vd::forms
