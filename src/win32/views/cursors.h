#pragma once
// The mouse pointers of forms, controls and the screen as Windows cursors.
#include <windows.h>

#include <cstdint>

namespace vd::win32::views {

// The cursor of a MousePointer value; nullptr for 0 (the window's own cursor)
// and for values without a cursor of their own (99, custom).
HCURSOR CursorFor(int16_t pointer);

}  // namespace vd::win32::views
