#include "views/win32_modal_host.h"

#include <algorithm>

#include "views/activation_context.h"
#include "views/cursors.h"

namespace vd::win32::views {
namespace {

// The owner is disabled while the dialog is shown, and enabled again before
// the dialog goes, so that the activation returns to it.
class OwnerDisabled {
 public:
  explicit OwnerDisabled(HWND owner) : owner_(owner) {
    if (owner_ != nullptr && IsWindowEnabled(owner_)) {
      EnableWindow(owner_, FALSE);
      disabled_ = true;
    }
  }
  OwnerDisabled(const OwnerDisabled&) = delete;
  OwnerDisabled& operator=(const OwnerDisabled&) = delete;
  ~OwnerDisabled() {
    if (disabled_) EnableWindow(owner_, TRUE);
  }

 private:
  HWND owner_;
  bool disabled_ = false;
};

class Shown {
 public:
  Shown(std::vector<FormView*>& views, FormView& view) : views_(views) { views_.push_back(&view); }
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;
  ~Shown() { views_.pop_back(); }

 private:
  std::vector<FormView*>& views_;
};

}  // namespace

void Win32ModalHost::SetScreenPointer(int16_t pointer) {
  context_.screenPointer = pointer;
  const HCURSOR cursor = CursorFor(pointer);
  SetCursor(cursor != nullptr ? cursor : LoadCursorW(nullptr, IDC_ARROW));
  if (pointer != 0) return;
  // Back to each window's own pointer: ask the window under the mouse.
  POINT at{};
  GetCursorPos(&at);
  const HWND under = WindowFromPoint(at);
  if (under != nullptr && GetWindowThreadProcessId(under, nullptr) == GetCurrentThreadId())
    SendMessageW(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}

HWND Win32ModalHost::ActiveWindow() const {
  const FormView* view = ActiveView();
  return view != nullptr ? view->Window() : nullptr;
}

FormView* Win32ModalHost::ViewOf(const vd::forms::Form& form) const {
  const auto found =
      std::find_if(views_.rbegin(), views_.rend(), [&](const FormView* view) { return &view->ShownForm() == &form; });
  return found != views_.rend() ? *found : nullptr;
}

HWND Win32ModalHost::OwnerFor(const vd::forms::Form& form) const {
  if (form.Owner() != nullptr) {
    if (const FormView* owner = ViewOf(*form.Owner())) return owner->Window();
  }
  if (const HWND active = ActiveWindow()) return active;
  if (ownerWindow_ != nullptr) return ownerWindow_;
  const HWND threadActive = GetActiveWindow();
  return threadActive;
}

void Win32ModalHost::RunModal(vd::forms::Form& form) {
  ++context_.modalRuns;
  const ScopedActivation activation;
  const HWND owner = OwnerFor(form);
  FormView view(form, context_, owner);
  const Shown shown(views_, view);
  {
    const OwnerDisabled disabled(owner);
    view.Show();
    RunLoop(form, view);
  }
  // The owner is enabled first, so that it becomes the active window again.
  if (view.Alive()) ShowWindow(view.Window(), SW_HIDE);
}

void Win32ModalHost::RunLoop(const vd::forms::Form& form, const FormView& view) {
  MSG message{};
  while (form.Visible() && view.Alive()) {
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got == -1) break;
    if (got == 0) {  // the thread is asked to quit: give up the dialog, pass the request on
      PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    Dispatch(message);
  }
}

void Win32ModalHost::Dispatch(MSG& message) {
  for (auto view = views_.rbegin(); view != views_.rend(); ++view)
    if ((*view)->PreTranslate(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

bool Win32ModalHost::PumpPending() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return false;
    }
    Dispatch(message);
  }
  return true;
}

}  // namespace vd::win32::views
