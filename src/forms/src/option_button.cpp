#include "vd/forms/option_button.h"

#include "assign.h"

namespace vd::forms {

OptionButton::OptionButton(Container& parent, String name, String caption)
    : Control(parent, std::move(name)), caption_(std::move(caption)) {}

void OptionButton::SetCaption(String caption) {
  if (detail::Assign(caption_, std::move(caption))) Notify(Property::kCaption);
}

void OptionButton::SetValue(bool value) {
  if (!detail::Assign(value_, value)) return;
  if (value && HasContainer()) {
    for (Control* sibling : Parent().Controls()) {
      auto* option = dynamic_cast<OptionButton*>(sibling);
      if (option != nullptr && option != this && option->value_) {
        option->value_ = false;
        option->Notify(Property::kValue);
      }
    }
  }
  Notify(Property::kValue);
  if (value) Fire(onClick);
}

void OptionButton::ClickAction() { SetValue(true); }

}  // namespace vd::forms
