#pragma once
// A path in the system's Windows form as the running platform names it.
//
// On Windows the text is used as it is. Elsewhere "\" and "/" both separate,
// a run of separators counts as one, and a leading drive ("C:") is dropped so
// that the rest names the same place from the file system's root: "C:" and
// "C:\" are "/", and the kinds file under the fallback home,
// "C:\\etc\CustomDs.dat", is "/etc/CustomDs.dat". A path without a drive keeps
// whether it was relative.
#include <filesystem>

#include "vd/automation/string.h"

namespace vd::platform {

std::filesystem::path ToNativePath(automation::StringView path);

}  // namespace vd::platform
