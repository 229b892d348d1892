#include "win32/services/open_file_dialog.h"

#include <commdlg.h>

#include <cstddef>
#include <optional>
#include <string>

#include "platform/ansi_text.h"
#include "platform/common_dialog.h"

namespace vd::win32::services {
namespace {

namespace cd = vd::platform::modCommonDialog;

// The record without the fields Windows 2000 added.
constexpr DWORD kRecordSize = offsetof(OPENFILENAMEA, lpTemplateName) + sizeof(LPCSTR);
#ifdef _WIN64
static_assert(kRecordSize == 136);
#else
static_assert(kRecordSize == 76);
#endif

// The folder the dialog opens in. Nothing sets it: it is absent until the
// first successful pick and empty after it, both of which let the dialog
// choose.
std::optional<std::string> gInitialDir;

// Default handling for every message.
UINT_PTR CALLBACK DefaultHook(HWND, UINT, WPARAM, LPARAM) noexcept { return 0; }

// The module this code is linked into: the component's own instance.
HINSTANCE ComponentInstance() {
  HMODULE module = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCSTR>(&gInitialDir), &module);
  return module;
}

}  // namespace

vd::automation::String ShowOpenFileNameDialog(HWND owner, vd::automation::StringView title,
                                              vd::automation::StringView filter, vd::automation::StringView defaultExt,
                                              uint32_t flags) {
  const std::string filterText = vd::platform::ToAnsiText(cd::FilterWithNuls(filter));
  const std::string titleText = vd::platform::ToAnsiText(title);
  const std::string defaultExtText = vd::platform::ToAnsiText(defaultExt);
  // Both buffers hold one more NUL than the dialog may fill, so the answer
  // always ends in a pair of NULs.
  std::string file(cd::kFileBufferLength + 1, '\0');
  std::string fileTitle = file;

  OPENFILENAMEA record{};
  record.lStructSize = kRecordSize;
  record.hwndOwner = owner;
  record.hInstance = ComponentInstance();
  record.lpstrFilter = filterText.c_str();
  record.nFilterIndex = 1;
  record.lpstrFile = file.data();
  record.nMaxFile = cd::kMaxFileLength;
  record.lpstrFileTitle = fileTitle.data();
  record.nMaxFileTitle = cd::kMaxFileLength;
  record.lpstrInitialDir = gInitialDir ? gInitialDir->c_str() : nullptr;
  record.lpstrTitle = titleText.c_str();
  record.lpstrDefExt = defaultExtText.c_str();
  record.Flags = flags;
  record.lpfnHook = DefaultHook;

  if (!GetOpenFileNameA(&record)) return {};
  gInitialDir = std::string();
  return vd::platform::FromAnsiText(cd::TextBeforeDoubleNul(file));
}

}  // namespace vd::win32::services
