#include "vd/forms/command_button.h"

#include "assign.h"

namespace vd::forms {

CommandButton::CommandButton(Container& parent, String name, String caption)
    : Control(parent, std::move(name)), caption_(std::move(caption)) {}

void CommandButton::SetCaption(String caption) {
  if (detail::Assign(caption_, std::move(caption))) Notify(Property::kCaption);
}

void CommandButton::SetValue(bool pressed) {
  if (pressed) Fire(onClick);
}

}  // namespace vd::forms
