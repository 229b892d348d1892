#pragma once
// The Win32 dialog of one form while it is shown: a window of the dialog
// class built from an in-memory template (dialog font, frame, caption), one
// common control per control of the form placed from its designed twips, tab
// order in creation order.
//
// Both ways at once: every change the form reports (PropertyObserver) is
// applied to the windows before the assignment returns, and what the user
// does to the windows reaches the form through the controls' User* entry
// points, so the same events fire as in headless tests. A change the view
// makes because the form changed is never reported back as the user's.
// Errors that handlers raise while the view reports the user's input are
// shown (ViewContext::reportError) and go no further.
#include <windows.h>

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "vd/forms/form.h"
#include "vd/forms/image_list.h"
#include "views/common_controls.h"
#include "views/control_window.h"
#include "views/mirror_host.h"
#include "views/twips.h"
#include "views/view_context.h"
#include "views/win_handles.h"

namespace vd::win32::views {

class FormView final : public vd::forms::PropertyObserver, private MirrorHost {
 public:
  // Creates the window hidden, owned by owner (nullptr: none), and starts mirroring.
  FormView(vd::forms::Form& form, ViewContext& context, HWND owner);
  FormView(const FormView&) = delete;
  FormView& operator=(const FormView&) = delete;
  ~FormView() override;

  [[nodiscard]] vd::forms::Form& ShownForm() const { return form_; }
  [[nodiscard]] HWND Window() const { return window_.Get(); }
  [[nodiscard]] bool Alive() const { return window_.Valid() && IsWindow(window_.Get()); }
  // The window of a control; nullptr for a control without one.
  [[nodiscard]] HWND WindowOf(const vd::forms::Control& control) const;
  [[nodiscard]] TreeMirror* TreeOf(const vd::forms::Control& control) const;

  // Places the window (centred on its owner unless the form has a position),
  // shows it and gives the focus to the form's active control, else to the first that takes it.
  void Show();
  // Keyboard input before it is dispatched: key preview (Form::UserKeyDown),
  // KeyPress, tooltips, then the dialog's navigation. True when handled.
  bool PreTranslate(MSG& message);
  // Trees rebuilt since the last flush draw again.
  void Flush();
  // Paints a control now (UiServices::RefreshNow).
  void RefreshNow(const vd::forms::Control& control);

  void PropertyChanged(const vd::forms::Change& change) override;

 private:
  friend struct WindowProcedures;

  // Posted after a combo's pick: its text is shown again as the form has it.
  static constexpr UINT kReapplyComboMessage = WM_APP + 1;

  // MirrorHost
  void UserAction(const std::function<void()>& action) override;
  void Quietly(const std::function<void()>& change) override;
  void RequestFlush() override;

  // Building (form_view.cpp)
  void CreateDialogWindow(HWND owner);
  void CreateControlWindows();
  void Subclass(ControlWindow& record, HWND window, WNDPROC& original);
  [[nodiscard]] RECT DesignedRect(const vd::forms::Control& control) const;
  // The width of a caption in the dialog's font, in pixels.
  [[nodiscard]] int CaptionWidth(const vd::automation::String& caption) const;
  [[nodiscard]] SIZE DesignedFormSize() const;
  [[nodiscard]] ControlWindow* Find(const vd::forms::Control* control) const;
  [[nodiscard]] ControlWindow* FindById(int id) const;
  [[nodiscard]] bool Owns(HWND window) const;

  // Core to Win32 (form_view_apply.cpp)
  void ApplyAll();
  void ApplyForm(vd::forms::Property property);
  void ApplyControl(ControlWindow& record, const vd::forms::Change& change);
  void ApplyKindChange(ControlWindow& record, const vd::forms::Change& change);
  void ApplyValue(ControlWindow& record);
  void ApplyComboList(ControlWindow& record);
  void ApplyComboSelection(ControlWindow& record);
  void ApplyStatusBar(ControlWindow& record);
  void ApplyProgress(ControlWindow& record);
  void ApplyTip(ControlWindow& record);
  void ApplyImages(const vd::forms::Control& imageList);
  void ApplyTreeImages(ControlWindow& record);
  void ApplyPlacement(ControlWindow& record);
  void ApplyShown(ControlWindow& record);
  void ApplyEnabled(ControlWindow& record);
  void ApplyFocus();
  void ApplyFormSize();
  void RefreshCursor();
  void ForFrameContents(const ControlWindow& frame, const std::function<void(ControlWindow&)>& apply);

  // Win32 to core (form_view_input.cpp)
  INT_PTR DialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT ControlMessage(ControlWindow& record, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void OnCommand(int id, int code, HWND control);
  void OnDialogKey(int id);
  // The command button that Enter (IDOK) or Escape (IDCANCEL) presses, nullptr when none.
  [[nodiscard]] vd::forms::Control* DialogKeyButton(int id) const;
  bool OnNotify(const NMHDR& header, LRESULT& result);
  void OnFocus(ControlWindow& record);
  bool SetCursorFor(const ControlWindow* record);
  void Report();

  vd::forms::Form& form_;
  ViewContext& context_;
  Twips twips_;
  // The dialog and its tooltip (destroyed first).
  WindowHandle window_;
  WindowHandle tooltip_;
  HFONT font_ = nullptr;
  std::vector<std::unique_ptr<ControlWindow>> controls_;  // by position in Form::AllControls()
  std::unordered_map<const vd::forms::Control*, ControlWindow*> byControl_;
  std::unordered_map<const vd::forms::Control*, ImageListHandle> imageLists_;
  int applying_ = 0;      // > 0 while the view changes its windows itself
  bool closing_ = false;  // the windows are going: nothing is reported any more
  bool flushPosted_ = false;
};

}  // namespace vd::win32::views
