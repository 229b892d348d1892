#pragma once
// Texts that common controls of another program give only into memory of
// their own process (a tree node's, a status bar's): the robot lends them a
// block there. The robot and the program must be built for the same architecture.
#include <windows.h>

#include <commctrl.h>

#include <optional>

#include "vd/automation/string.h"

namespace vd::win32::robot {

std::optional<vd::automation::String> RemoteNodeText(HWND tree, HTREEITEM item);
// The text of a status bar (of its only part when it shows one text).
std::optional<vd::automation::String> RemoteStatusText(HWND statusBar);

}  // namespace vd::win32::robot
