#pragma once
// Where a screenshot goes: a relative path under the robot's artifacts folder,
// an absolute Windows path ("C:\...", "\\server\...", "\..." or "/...") as it is.
#include "vd/automation/string.h"

namespace vd::robot {

vd::automation::String PathUnder(const vd::automation::String& folder, const vd::automation::String& path);

}  // namespace vd::robot
