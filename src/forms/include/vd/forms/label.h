#pragma once
// A caption that the user cannot focus; a click on it still raises Click.
#include "vd/forms/control.h"

namespace vd::forms {

class Label : public Control {
 public:
  Label(Container& parent, String name, String caption = {});
  [[nodiscard]] ControlKind Kind() const override { return ControlKind::kLabel; }

  [[nodiscard]] const String& Caption() const { return caption_; }
  void SetCaption(String caption);

 private:
  String caption_;
};

}  // namespace vd::forms
