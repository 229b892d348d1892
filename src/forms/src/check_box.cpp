#include "vd/forms/check_box.h"

#include "assign.h"
#include "vd/automation/error.h"
#include "vd/forms/constants.h"

namespace vd::forms {

CheckBox::CheckBox(Container& parent, String name, String caption)
    : Control(parent, std::move(name)), caption_(std::move(caption)) {}

void CheckBox::SetCaption(String caption) {
  if (detail::Assign(caption_, std::move(caption))) Notify(Property::kCaption);
}

void CheckBox::SetValue(int16_t value) {
  if (value < vbUnchecked || value > vbGrayed)
    vd::automation::Raise(err::kInvalidPropertyValue, u"Invalid property value");
  if (!detail::Assign(value_, value)) return;
  Notify(Property::kValue);
  Fire(onClick);
}

void CheckBox::ClickAction() { SetValue(value_ == vbChecked ? vbUnchecked : vbChecked); }

}  // namespace vd::forms
