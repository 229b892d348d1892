#include "views/win32_ui_services.h"

#include <commdlg.h>

#include <vector>

#include "vd/forms/form.h"
#include "views/activation_context.h"
#include "views/input_box.h"
#include "views/wide_text.h"
#include "views/win_handles.h"

namespace vd::win32::views {
namespace {

constexpr DWORD kProgramPollMilliseconds = 10;
constexpr DWORD kFileBufferLength = 32760;

String ModuleTitle() {
  wchar_t path[MAX_PATH];
  const DWORD length = GetModuleFileNameW(ViewsModule(), path, MAX_PATH);
  String name = FromWide(path, length);
  const size_t slash = name.find_last_of(u"\\/");
  if (slash != String::npos) name.erase(0, slash + 1);
  const size_t dot = name.rfind(u'.');
  if (dot != String::npos && dot > 0) name.erase(dot);
  return name;
}

}  // namespace

Win32UiServices::Win32UiServices(Win32ModalHost& host, String applicationTitle)
    : host_(host), applicationTitle_(applicationTitle.empty() ? ModuleTitle() : std::move(applicationTitle)) {}

int32_t Win32UiServices::MsgBox(StringView text, int32_t style, const std::optional<String>& title) {
  const ScopedActivation activation;
  const String body(text);
  const String& caption = title ? *title : applicationTitle_;
  // The style's bits are the message box's own (buttons, icon, default button),
  // and so are the answers (vbOK = IDOK, vbYes = IDYES, ...).
  return MessageBoxW(host_.ActiveWindow(), Wide(body), Wide(caption), static_cast<UINT>(style));
}

String Win32UiServices::InputBox(StringView prompt, StringView title, StringView defaultText) {
  const std::optional<String> answer =
      ShowInputBox(host_.ActiveWindow(), prompt, title.empty() ? StringView(applicationTitle_) : title, defaultText);
  return answer.value_or(String());
}

String Win32UiServices::OpenFileDialog(const vd::forms::Form* owner, StringView title, StringView filter,
                                       StringView defaultExt, uint32_t flags) {
  HWND window = owner != nullptr ? static_cast<HWND>(owner->NativeHandle()) : nullptr;
  if (window == nullptr) window = host_.ActiveWindow();
  const ScopedActivation activation;
  if (openFile_) return openFile_(window, title, filter, defaultExt, flags);
  return ShowOpenFileNameW(window, title, filter, defaultExt, flags);
}

bool Win32UiServices::StartProgramAndWait(StringView commandLine) {
  std::vector<wchar_t> line(commandLine.begin(), commandLine.end());
  line.push_back(L'\0');
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started))
    return false;
  const KernelHandle process(started.hProcess);
  const KernelHandle thread(started.hThread);
  // The dialogs keep working while the program runs.
  while (WaitForSingleObject(process.Get(), kProgramPollMilliseconds) == WAIT_TIMEOUT) {
    if (!host_.PumpPending()) break;
  }
  return true;
}

void Win32UiServices::BringToFront(const vd::forms::Form& form) {
  const auto window = static_cast<HWND>(form.NativeHandle());
  if (window == nullptr) return;
  SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, kFrontFlags);
  SetWindowPos(window, HWND_NOTOPMOST, 0, 0, 0, 0, kFrontFlags);
}

void Win32UiServices::SetScreenMousePointer(int16_t pointer) { host_.SetScreenPointer(pointer); }

void Win32UiServices::RefreshNow(const vd::forms::Control& control) {
  if (FormView* view = host_.ViewOf(control.OwnerForm())) view->RefreshNow(control);
}

String ShowOpenFileNameW(HWND owner, StringView title, StringView filter, StringView defaultExt, uint32_t flags) {
  String filterText(filter);
  for (char16_t& c : filterText)
    if (c == u'|') c = u'\0';
  filterText.push_back(u'\0');
  const String titleText(title);
  const String extension(defaultExt);
  std::vector<wchar_t> file(kFileBufferLength, L'\0');
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filter.empty() ? nullptr : Wide(filterText);
  dialog.lpstrFile = file.data();
  dialog.nMaxFile = kFileBufferLength - 1;
  dialog.lpstrTitle = title.empty() ? nullptr : Wide(titleText);
  dialog.lpstrDefExt = defaultExt.empty() ? nullptr : Wide(extension);
  dialog.Flags = flags & ~static_cast<DWORD>(OFN_ENABLEHOOK);  // no hook procedure here
  if (!GetOpenFileNameW(&dialog)) return String();
  // A multiple selection keeps its single NULs up to the pair that ends it.
  size_t length = 0;
  while (length + 1 < file.size() && !(file[length] == L'\0' && file[length + 1] == L'\0')) ++length;
  while (length > 0 && file[length - 1] == L'\0') --length;
  return FromWide(file.data(), length);
}

}  // namespace vd::win32::views
