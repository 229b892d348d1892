#pragma once
// How the robot names the buttons of a message box: by their text as the user
// reads it, without the "&" that marks the access key.
#include "vd/automation/string.h"

namespace vd::robot {

// "&Retry" reads "Retry"; "&&" is a literal "&".
vd::automation::String WithoutAccessKey(vd::automation::StringView text);

}  // namespace vd::robot
