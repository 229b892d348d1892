#include "vd/forms/label.h"

#include "assign.h"

namespace vd::forms {

Label::Label(Container& parent, String name, String caption)
    : Control(parent, std::move(name)), caption_(std::move(caption)) {}

void Label::SetCaption(String caption) {
  if (detail::Assign(caption_, std::move(caption))) Notify(Property::kCaption);
}

}  // namespace vd::forms
