#pragma once
// An option button. The option buttons placed directly in one container (the
// form or a frame) form a group: assigning True to an option that was False
// clears the others of its group without events, then raises Click here.
// Assigning False raises nothing.
#include "vd/forms/control.h"

namespace vd::forms {

class OptionButton : public Control {
 public:
  OptionButton(Container& parent, String name, String caption = {});
  [[nodiscard]] ControlKind Kind() const override { return ControlKind::kOptionButton; }
  [[nodiscard]] bool TakesFocus() const override { return true; }

  [[nodiscard]] const String& Caption() const { return caption_; }
  void SetCaption(String caption);
  [[nodiscard]] bool Value() const { return value_; }
  void SetValue(bool value);

 protected:
  // A user's click selects this option.
  void ClickAction() override;

 private:
  String caption_;
  bool value_ = false;
};

}  // namespace vd::forms
