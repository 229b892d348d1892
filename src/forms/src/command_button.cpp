#include "vd/forms/command_button.h"

#include "assign.h"
#include "vd/forms/form.h"

namespace vd::forms {

CommandButton::CommandButton(Container& parent, String name, String caption)
    : Control(parent, std::move(name)), caption_(std::move(caption)) {}

void CommandButton::SetCaption(String caption) {
  if (detail::Assign(caption_, std::move(caption))) Notify(Property::kCaption);
}

void CommandButton::SetValue(bool pressed) {
  if (pressed) Fire(onClick);
}

namespace {

// The form's command buttons other than button.
template <typename Action>
void ForOtherButtons(const CommandButton& button, Action action) {
  for (Control* control : button.OwnerForm().AllControls())
    if (control != &button && control->Kind() == ControlKind::kCommandButton)
      action(static_cast<CommandButton&>(*control));
}

}  // namespace

void CommandButton::SetDefault(bool isDefault) {
  if (isDefault) ForOtherButtons(*this, [](CommandButton& other) { other.default_ = false; });
  default_ = isDefault;
}

void CommandButton::SetCancel(bool isCancel) {
  if (isCancel) ForOtherButtons(*this, [](CommandButton& other) { other.cancel_ = false; });
  cancel_ = isCancel;
}

}  // namespace vd::forms
