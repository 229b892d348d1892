#include "vd/forms/progress_bar.h"

#include "assign.h"
#include "vd/automation/error.h"
#include "vd/forms/constants.h"

namespace vd::forms {
namespace {
void Refuse() { vd::automation::Raise(err::kInvalidPropertyValue, u"Invalid property value"); }
}  // namespace

ProgressBar::ProgressBar(Container& parent, String name) : Control(parent, std::move(name)) {}

void ProgressBar::SetMin(float min) {
  if (min >= max_) Refuse();
  if (!detail::Assign(min_, min)) return;
  Notify(Property::kMin);
  if (value_ < min_) SetValue(min_);
}

void ProgressBar::SetMax(float max) {
  if (max <= min_) Refuse();
  if (!detail::Assign(max_, max)) return;
  Notify(Property::kMax);
  if (value_ > max_) SetValue(max_);
}

void ProgressBar::SetValue(float value) {
  if (!(value >= min_ && value <= max_)) Refuse();
  if (detail::Assign(value_, value)) Notify(Property::kValue);
}

}  // namespace vd::forms
