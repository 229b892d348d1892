#pragma once
// The forms' UI services with the real Windows calls, for the forms shown by
// one Win32ModalHost: message boxes and the input box owned by the dialog
// shown now, the open-file dialog, starting a program and waiting for it while
// the dialogs keep working, bringing a dialog to the front, the screen's mouse
// pointer and repainting a control at once.
#include <windows.h>

#include <cstdint>
#include <functional>
#include <optional>

#include "vd/forms/ui_services.h"
#include "views/win32_modal_host.h"

namespace vd::win32::views {

class Win32UiServices final : public vd::forms::UiServices {
 public:
  // The open-file dialog: owner window, title, "description|pattern|" filter,
  // default extension, option bits; answers the path, "" when cancelled.
  using OpenFileHandler =
      std::function<String(HWND owner, StringView title, StringView filter, StringView defaultExt, uint32_t flags)>;

  // applicationTitle titles message boxes without a title of their own; ""
  // takes the name of the module that holds this code (the component's DLL).
  explicit Win32UiServices(Win32ModalHost& host, String applicationTitle = {});

  // Replaces the default open-file dialog (GetOpenFileNameW).
  void SetOpenFileHandler(OpenFileHandler handler) { openFile_ = std::move(handler); }
  [[nodiscard]] const String& ApplicationTitle() const { return applicationTitle_; }

  int32_t MsgBox(StringView text, int32_t style, const std::optional<String>& title) override;
  String InputBox(StringView prompt, StringView title, StringView defaultText) override;
  String OpenFileDialog(const vd::forms::Form* owner, StringView title, StringView filter, StringView defaultExt,
                        uint32_t flags) override;
  bool StartProgramAndWait(StringView commandLine) override;
  void BringToFront(const vd::forms::Form& form) override;
  void SetScreenMousePointer(int16_t pointer) override;
  void RefreshNow(const vd::forms::Control& control) override;

  // SetWindowPos flags of BringToFront: no size, no move, no activation, show.
  static constexpr UINT kFrontFlags = SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_SHOWWINDOW;
  static_assert(kFrontFlags == 0x53);

 private:
  Win32ModalHost& host_;
  String applicationTitle_;
  OpenFileHandler openFile_;
};

// GetOpenFileNameW over the same arguments (the default handler).
String ShowOpenFileNameW(HWND owner, StringView title, StringView filter, StringView defaultExt, uint32_t flags);

}  // namespace vd::win32::views
