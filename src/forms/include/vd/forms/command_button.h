#pragma once
// A push button. A click moves the focus here, then raises Click.
#include "vd/forms/control.h"

namespace vd::forms {

class CommandButton : public Control {
 public:
  CommandButton(Container& parent, String name, String caption = {});
  [[nodiscard]] ControlKind Kind() const override { return ControlKind::kCommandButton; }
  [[nodiscard]] bool TakesFocus() const override { return true; }

  [[nodiscard]] const String& Caption() const { return caption_; }
  void SetCaption(String caption);
  // Assigning True presses the button from code: Click fires, the value stays False.
  void SetValue(bool pressed);

 private:
  String caption_;
};

}  // namespace vd::forms
