#pragma once
// Texts of another program's tree nodes. A tree answers TVM_GETITEM only into
// memory of its own process, so the robot lends it a block there.
// The robot and the program must be built for the same architecture.
#include <windows.h>

#include <commctrl.h>

#include <optional>

#include "vd/automation/string.h"

namespace vd::win32::robot {

std::optional<vd::automation::String> RemoteNodeText(HWND tree, HTREEITEM item);

}  // namespace vd::win32::robot
