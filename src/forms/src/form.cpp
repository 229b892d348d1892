#include "vd/forms/form.h"

#include <algorithm>

#include "assign.h"
#include "vd/automation/error.h"
#include "vd/automation/text.h"
#include "vd/forms/constants.h"

namespace vd::forms {
using detail::Assign;
namespace {
// One per thread: each user-interface thread shows its forms through its own host.
thread_local ModalHost* defaultModalHost = nullptr;

}  // namespace

Form::Form(String name) : Container(*this), name_(std::move(name)), caption_(name_) {}

Form::~Form() {
  // Controls are members of the derived class and are gone by now; any left
  // (made elsewhere) must not report to a destroyed form.
  for (Control* control : all_) {
    control->form_ = nullptr;
    control->parent_ = nullptr;
    control->parentControl_ = nullptr;
  }
}

void Form::SetDefaultModalHost(ModalHost* host) { defaultModalHost = host; }
ModalHost* Form::DefaultModalHost() { return defaultModalHost; }

void Form::Register(Control& control) { all_.push_back(&control); }

void Form::Unregister(Control& control) {
  all_.erase(std::remove(all_.begin(), all_.end(), &control), all_.end());
  if (active_ == &control) active_ = nullptr;
  if (announced_ == &control) announced_ = nullptr;
}

Control* Form::FindControl(StringView name) const {
  for (Control* control : all_)
    if (vd::automation::EqualsIgnoreCase(control->Name(), name)) return control;
  return nullptr;
}

void Form::AddObserver(PropertyObserver& observer) { observers_.push_back(&observer); }

void Form::RemoveObserver(PropertyObserver& observer) {
  observers_.erase(std::remove(observers_.begin(), observers_.end(), &observer), observers_.end());
}

void Form::Report(const Change& change) {
  // By index: an observer may add another while it is told.
  for (size_t i = 0; i < observers_.size(); ++i) observers_[i]->PropertyChanged(change);
}

void Form::Notify(Property property) {
  if (!observers_.empty()) Report(Change{this, nullptr, property, -1, nullptr});
}

void Form::SetCaption(String caption) {
  if (Assign(caption_, std::move(caption))) Notify(Property::kCaption);
}
void Form::SetLeft(float left) {
  if (Assign(left_, left)) Notify(Property::kLeft);
}
void Form::SetTop(float top) {
  if (Assign(top_, top)) Notify(Property::kTop);
}
void Form::SetWidth(float width) {
  if (Assign(width_, width)) Notify(Property::kWidth);
}
void Form::SetHeight(float height) {
  if (Assign(height_, height)) Notify(Property::kHeight);
}
void Form::SetEnabled(bool enabled) {
  if (Assign(enabled_, enabled)) Notify(Property::kEnabled);
}
void Form::SetMousePointer(int16_t pointer) {
  if (Assign(mousePointer_, pointer)) Notify(Property::kMousePointer);
}
void Form::SetKeyPreview(bool preview) {
  if (Assign(keyPreview_, preview)) Notify(Property::kKeyPreview);
}

void Form::Initialize() {
  if (initialized_) return;
  initialized_ = true;
  Control::Fire(onInitialize);
}

void Form::Load() {
  Initialize();
  if (loaded_) return;
  loaded_ = true;
  Notify(Property::kLoaded);
  Control::Fire(onLoad);
}

void Form::Unload() {
  if (!loaded_) return;
  bool cancel = false;
  Control::Fire(onUnload, cancel);
  if (cancel) return;
  Hide();
  announced_ = nullptr;
  if (active_ != nullptr) {
    active_ = nullptr;
    Notify(Property::kActiveControl);
  }
  loaded_ = false;
  Notify(Property::kLoaded);
}

void Form::Show(bool modal, Form* owner) {
  using vd::automation::Raise;
  if (modal && visible_) Raise(err::kFormAlreadyShownModally, u"Form already displayed; can't show modally");
  ModalHost* host = modalHost_ != nullptr ? modalHost_ : defaultModalHost;
  if (modal && host == nullptr)
    Raise(vd::automation::err::kInvalidProcedureCall, u"No user interface to show the form modally");
  Load();
  if (!loaded_) return;  // a Load handler unloaded it
  owner_ = owner;
  if (Assign(visible_, true)) Notify(Property::kVisible);
  if (!modal) return;

  struct ModalScope {
    Form& form;
    ~ModalScope() {
      --form.modalDepth_;
      form.owner_ = nullptr;
    }
  } scope{*this};
  ++modalDepth_;
  host->RunModal(*this);
  // A host that gives up leaves nothing shown behind a returned Show.
  Hide();
}

void Form::SetVisible(bool visible) {
  if (visible) {
    Show(false);
  } else {
    Hide();
  }
}

void Form::Hide() {
  if (Assign(visible_, false)) Notify(Property::kVisible);
}

void Form::MoveFocus(Control* target) {
  if (active_ == target) return;
  active_ = target;
  Notify(Property::kActiveControl);
  // LostFocus goes to the control whose GotFocus ran, which is not always the
  // active one: a LostFocus handler may move the focus again before the
  // control it was going to ever heard GotFocus.
  Control* old = announced_;
  announced_ = nullptr;
  if (old == target) {
    announced_ = target;
    return;
  }
  if (old != nullptr) Control::Fire(old->onLostFocus);
  if (target != nullptr && active_ == target && announced_ == nullptr) {
    announced_ = target;
    Control::Fire(target->onGotFocus);
  }
}

bool Form::UserKeyDown(int16_t keyCode, int16_t shift) {
  if (!enabled_) return false;
  if (keyPreview_) Control::Fire(onKeyDown, keyCode, shift);
  if (keyCode != 0 && active_ != nullptr && active_->CanFocus()) Control::Fire(active_->onKeyDown, keyCode, shift);
  return true;
}

bool Form::UserClose() {
  if (!enabled_) return false;
  Unload();
  return true;
}

}  // namespace vd::forms
