#pragma once
// The open-file dialog as the system asks for it. The dialog itself is a UI
// service (UiServices::OpenFileDialog); this module fixes what the system asks
// for, and the pieces of the Windows dialog's text handling that do not need
// Windows.
#include <cstdint>
#include <string_view>

#include "vd/automation/string.h"

namespace vd::platform::modCommonDialog {

using automation::String;
using automation::StringView;

// Option bits of the classic open-file dialog.
inline constexpr uint32_t kOfnAllowMultiSelect = 0x200;
inline constexpr uint32_t kOfnFileMustExist = 0x1000;
inline constexpr uint32_t kOfnHideReadOnly = 0x4;
inline constexpr uint32_t kOfnEnableHook = 0x20;
inline constexpr uint32_t kOfnNoNetworkButton = 0x20000;
inline constexpr uint32_t kOfnExplorer = 0x80000;
inline constexpr uint32_t kOfnLongNames = 0x200000;
// Every open-file dialog of the system has these.
inline constexpr uint32_t kOfnAlways =
    kOfnHideReadOnly | kOfnEnableHook | kOfnNoNetworkButton | kOfnExplorer | kOfnLongNames;
static_assert(kOfnAlways == 0x2A0024);

// The Windows dialog's buffers: 32760 characters, of which 32759 may be used.
inline constexpr uint32_t kFileBufferLength = 32760;
inline constexpr uint32_t kMaxFileLength = kFileBufferLength - 1;

uint32_t OpenFileFlags(bool fileMustExist, bool multiSelect);

// The filter as the dialog wants it: every "|" becomes a NUL, so the trailing
// "|" of "Data Files (*.dat)|*.dat|" ends the list.
String FilterWithNuls(StringView filter);

// The answer in a file buffer: everything before its first pair of NULs. A
// multiple selection ("folder", NUL, "file1", NUL, "file2", NUL, NUL) keeps its
// single NULs: "folder\0file1\0file2". A buffer without a pair is taken whole.
std::string_view TextBeforeDoubleNul(std::string_view buffer);

// Asks ui for a file to open: ui is the system's UI services (any type with
// OpenFileDialog(owner, title, filter, defaultExt, flags) -> String), owner the
// form the dialog belongs to. filter is "description|pattern|" pairs, passed on
// as it is. Answers the chosen path, "" when cancelled.
template <class Ui, class Owner>
String ShowOpenFileDialog(Ui& ui, const Owner* owner, StringView title, StringView filter, StringView defaultExt,
                          bool fileMustExist, bool multiSelect) {
  return String(ui.OpenFileDialog(owner, title, filter, defaultExt, OpenFileFlags(fileMustExist, multiSelect)));
}

}  // namespace vd::platform::modCommonDialog
