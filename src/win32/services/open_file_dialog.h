#pragma once
// The Windows open-file dialog (GetOpenFileNameA) as the system's UI services
// offer it: owner window, title, filter of "description|pattern|" pairs,
// default extension and option bits in; the chosen path out, "" when the user
// cancels. A multiple selection comes back as the folder and the file names
// separated by single NULs.
//
// On 32-bit Windows the record is the classic 76-byte OPENFILENAMEA (without
// the fields added in Windows 2000); on 64-bit Windows the same version of the
// record is passed with that platform's size of it (136 bytes).
#include <windows.h>

#include <cstdint>

#include "vd/automation/string.h"

namespace vd::win32::services {

vd::automation::String ShowOpenFileNameDialog(HWND owner, vd::automation::StringView title,
                                              vd::automation::StringView filter, vd::automation::StringView defaultExt,
                                              uint32_t flags);

}  // namespace vd::win32::services
