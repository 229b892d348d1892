#include "vd/forms/control.h"

#include <algorithm>

#include "assign.h"
#include "vd/automation/error.h"
#include "vd/forms/form.h"

namespace vd::forms {
using detail::Assign;

Container::~Container() {
  // Controls that outlive their container (made apart from the form class)
  // must not reach back into it once it is gone.
  for (Control* child : children_) {
    child->parent_ = nullptr;
    child->parentControl_ = nullptr;
  }
}

Control::Control(Container& parent, String name)
    : name_(std::move(name)),
      parent_(&parent),
      parentControl_(dynamic_cast<Control*>(&parent)),
      form_(&parent.OwnerForm()) {
  parent_->children_.push_back(this);
  form_->Register(*this);
}

Control::~Control() {
  if (parent_ != nullptr) {
    auto& siblings = parent_->children_;
    siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
  }
  if (form_ != nullptr) form_->Unregister(*this);
}

void Control::Notify(Property property, int32_t index, const Node* node) {
  if (form_ == nullptr || (observer_ == nullptr && form_->observers_.empty())) return;
  const Change change{form_, this, property, index, node};
  if (observer_ != nullptr) observer_->PropertyChanged(change);
  form_->Report(change);
}

void Control::SetVisible(bool visible) {
  if (Assign(visible_, visible)) Notify(Property::kVisible);
}
void Control::SetEnabled(bool enabled) {
  if (Assign(enabled_, enabled)) Notify(Property::kEnabled);
}
void Control::SetLeft(float left) {
  if (Assign(left_, left)) Notify(Property::kLeft);
}
void Control::SetTop(float top) {
  if (Assign(top_, top)) Notify(Property::kTop);
}
void Control::SetWidth(float width) {
  if (Assign(width_, width)) Notify(Property::kWidth);
}
void Control::SetHeight(float height) {
  if (Assign(height_, height)) Notify(Property::kHeight);
}
void Control::Move(float left, float top, float width, float height) {
  SetLeft(left);
  SetTop(top);
  SetWidth(width);
  SetHeight(height);
}
void Control::SetToolTipText(String text) {
  if (Assign(toolTipText_, std::move(text))) Notify(Property::kToolTipText);
}
void Control::SetTag(String tag) {
  if (Assign(tag_, std::move(tag))) Notify(Property::kTag);
}
void Control::SetMousePointer(int16_t pointer) {
  if (Assign(mousePointer_, pointer)) Notify(Property::kMousePointer);
}

bool Control::IsShown() const {
  for (const Control* c = this; c != nullptr; c = c->parentControl_)
    if (!c->visible_) return false;
  return true;
}

bool Control::IsUsable() const {
  for (const Control* c = this; c != nullptr; c = c->parentControl_)
    if (!c->enabled_) return false;
  return form_ != nullptr && form_->Enabled();
}

bool Control::HasFocus() const { return form_ != nullptr && form_->ActiveControl() == this; }

void Control::SetFocus() {
  if (!CanFocus()) vd::automation::Raise(vd::automation::err::kInvalidProcedureCall);
  form_->MoveFocus(this);
}

bool Control::UserFocus() {
  if (!CanFocus()) return false;
  form_->MoveFocus(this);
  return true;
}

bool Control::UserClick() {
  if (!CanUse()) return false;
  if (TakesFocus()) form_->MoveFocus(this);
  // A handler of the focus change may have hidden or disabled the control.
  if (CanUse()) ClickAction();
  return true;
}

void Control::ClickAction() { Fire(onClick); }

bool Control::UserDoubleClick() {
  if (!UserClick()) return false;
  if (CanUse()) Fire(onDblClick);
  return true;
}

int16_t Control::PressKey(int16_t keyAscii) {
  if (form_->KeyPreview()) Fire(form_->onKeyPress, keyAscii);
  if (keyAscii != 0) Fire(onKeyPress, keyAscii);
  return keyAscii;
}

bool Control::UserKeyPress(int16_t keyAscii) {
  if (!CanUse()) return false;
  PressKey(keyAscii);
  return true;
}

bool Control::UserMouseMove(int16_t button, int16_t shift, float x, float y) {
  if (!CanUse()) return false;
  Fire(onMouseMove, button, shift, x, y);
  return true;
}

}  // namespace vd::forms
