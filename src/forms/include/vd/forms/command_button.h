#pragma once
// A push button. A click moves the focus here, then raises Click.
//
// Default and Cancel name the buttons that Enter and Escape press in the
// form's dialog (a view reads them; the form itself never presses them). At
// most one button of a form is the default one and one the cancel one:
// setting either on a button clears it on the form's other buttons.
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

  [[nodiscard]] bool Default() const { return default_; }
  void SetDefault(bool isDefault);
  [[nodiscard]] bool Cancel() const { return cancel_; }
  void SetCancel(bool isCancel);

 private:
  String caption_;
  bool default_ = false;
  bool cancel_ = false;
};

}  // namespace vd::forms
