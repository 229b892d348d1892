#pragma once
// The Windows modal host of the forms: Form::Show(true) creates the form's
// dialog (FormView), disables the window that owns it, and runs the message
// loop until the form is hidden; then the owner is enabled again and the
// dialog destroyed. A form shown from a handler of another gets a dialog
// owned by that form's.
//
// For the component (one host per user-interface thread):
//   vd::win32::views::Win32ModalHost host;
//   vd::win32::views::Win32UiServices ui(host);
//   vd::forms::Form::SetDefaultModalHost(&host);  // or form.SetModalHost(&host)
//   host.SetOwnerWindow(hostApplicationWindow);    // optional
#include <windows.h>

#include <vector>

#include "vd/forms/form.h"
#include "vd/forms/modal_host.h"
#include "views/form_view.h"
#include "views/view_context.h"

namespace vd::win32::views {

class Win32ModalHost final : public vd::forms::ModalHost {
 public:
  Win32ModalHost() = default;
  ~Win32ModalHost() override = default;

  void RunModal(vd::forms::Form& form) override;

  // The window that owns a dialog whose form has no owner form shown;
  // nullptr (the default): the thread's active window at the show.
  void SetOwnerWindow(HWND owner) { ownerWindow_ = owner; }
  // How errors of handlers are shown (default: a message box).
  void SetErrorReporter(ErrorReporter reporter) { context_.reportError = std::move(reporter); }

  // The screen's mouse pointer over every dialog (0: each window's own).
  void SetScreenPointer(int16_t pointer);
  [[nodiscard]] int16_t ScreenPointer() const { return context_.screenPointer; }

  // The innermost dialog shown now, nullptr when none.
  [[nodiscard]] FormView* ActiveView() const { return views_.empty() ? nullptr : views_.back(); }
  [[nodiscard]] HWND ActiveWindow() const;
  // The dialog of a form shown now, nullptr when it has none.
  [[nodiscard]] FormView* ViewOf(const vd::forms::Form& form) const;

  // Dispatches the messages waiting now as the modal loop would; false when
  // the thread was asked to quit (WM_QUIT is posted again).
  bool PumpPending();

 private:
  [[nodiscard]] HWND OwnerFor(const vd::forms::Form& form) const;
  void RunLoop(const vd::forms::Form& form, const FormView& view);
  void Dispatch(MSG& message);

  ViewContext context_;
  HWND ownerWindow_ = nullptr;
  std::vector<FormView*> views_;  // the dialogs shown, innermost last
};

}  // namespace vd::win32::views
