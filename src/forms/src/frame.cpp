#include "vd/forms/frame.h"

#include "assign.h"

namespace vd::forms {

Frame::Frame(Container& parent, String name, String caption)
    : Control(parent, std::move(name)), Container(parent.OwnerForm()), caption_(std::move(caption)) {}

void Frame::SetCaption(String caption) {
  if (detail::Assign(caption_, std::move(caption))) Notify(Property::kCaption);
}

}  // namespace vd::forms
