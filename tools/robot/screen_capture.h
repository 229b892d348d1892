#pragma once
// What the screen shows in a rectangle, written as a bitmap file.
#include <windows.h>

#include "vd/automation/string.h"

namespace vd::win32::robot {

// "" when written, else why not.
std::string CaptureToBitmapFile(const RECT& area, const vd::automation::String& path);

}  // namespace vd::win32::robot
