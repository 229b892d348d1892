#include "vd/forms/status_bar.h"

#include "assign.h"
#include "vd/automation/error.h"

namespace vd::forms {

StatusBar::StatusBar(Container& parent, String name, int16_t style)
    : Control(parent, std::move(name)), style_(style), panels_(1) {}

void StatusBar::SetStyle(int16_t style) {
  if (detail::Assign(style_, style)) Notify(Property::kStyle);
}

void StatusBar::SetSimpleText(String text) {
  if (detail::Assign(simpleText_, std::move(text))) Notify(Property::kSimpleText);
}

int32_t StatusBar::AddPanel(String text) {
  panels_.push_back(std::move(text));
  Notify(Property::kPanelText, PanelCount());
  return PanelCount();
}

const String& StatusBar::PanelText(int32_t index) const {
  if (index < 1 || index > PanelCount()) vd::automation::Raise(vd::automation::err::kTreeIndexOutOfBounds);
  return panels_[static_cast<size_t>(index - 1)];
}

void StatusBar::SetPanelText(int32_t index, String text) {
  if (index < 1 || index > PanelCount()) vd::automation::Raise(vd::automation::err::kTreeIndexOutOfBounds);
  if (detail::Assign(panels_[static_cast<size_t>(index - 1)], std::move(text))) Notify(Property::kPanelText, index);
}

}  // namespace vd::forms
