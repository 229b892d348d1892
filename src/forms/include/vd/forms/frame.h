#pragma once
// A captioned frame that holds other controls; hiding or disabling it hides or
// disables what it holds, and its option buttons form a group of their own.
#include "vd/forms/control.h"

namespace vd::forms {

class Frame : public Control, public Container {
 public:
  Frame(Container& parent, String name, String caption = {});
  [[nodiscard]] ControlKind Kind() const override { return ControlKind::kFrame; }
  using Control::OwnerForm;

  [[nodiscard]] const String& Caption() const { return caption_; }
  void SetCaption(String caption);

 private:
  String caption_;
};

}  // namespace vd::forms
