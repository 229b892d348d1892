#include "component/message_box_ui_services.h"

#include <windows.h>

#include <string>

namespace vd::win32 {
namespace {
std::wstring Wide(StringView text) { return std::wstring(text.begin(), text.end()); }
}  // namespace

// The message box styles and answers are the Win32 ones (vbYesNo is MB_YESNO, vbYes IDYES).
int32_t MessageBoxUiServices::MsgBox(StringView text, int32_t style, const std::optional<String>& title) {
  const std::wstring caption = Wide(title ? StringView(*title) : StringView(u"VarDeskGUI"));
  return MessageBoxW(GetActiveWindow(), Wide(text).c_str(), caption.c_str(), static_cast<UINT>(style));
}

String MessageBoxUiServices::InputBox(StringView, StringView, StringView) { return {}; }

String MessageBoxUiServices::OpenFileDialog(const forms::Form*, StringView, StringView, StringView, uint32_t) {
  return {};
}

bool MessageBoxUiServices::StartProgramAndWait(StringView) { return false; }

void MessageBoxUiServices::BringToFront(const forms::Form&) {}

void MessageBoxUiServices::SetScreenMousePointer(int16_t) {}

void MessageBoxUiServices::RefreshNow(const forms::Control&) {}

}  // namespace vd::win32
