#pragma once
// Interim UI services until the Win32 views arrive: real message boxes, and
// every other service answering as a user who cancels.
#include "vd/forms/ui_services.h"

namespace vd::win32 {

using forms::String;
using forms::StringView;

class MessageBoxUiServices final : public forms::UiServices {
 public:
  int32_t MsgBox(StringView text, int32_t style, const std::optional<String>& title) override;
  String InputBox(StringView prompt, StringView title, StringView defaultText) override;
  String OpenFileDialog(const forms::Form* owner, StringView title, StringView filter, StringView defaultExt,
                        uint32_t flags) override;
  bool StartProgramAndWait(StringView commandLine) override;
  void BringToFront(const forms::Form& form) override;
  void SetScreenMousePointer(int16_t pointer) override;
  void RefreshNow(const forms::Control& control) override;
};

}  // namespace vd::win32
