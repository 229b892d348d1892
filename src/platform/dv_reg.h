#pragma once
// Where the display toolkit is installed, read from the registry once per
// process and remembered.
//
// GetDvHome reaches the registry through a module-level reference that the
// code assembling the system's services installs once, before the first
// dialog run (UseRegistry; on Windows the real registry, elsewhere whatever
// stands in for it). With no registry installed the lookup fails like a
// missing key and the home falls back to "C:\".
#include "platform/registry.h"
#include "vd/automation/string.h"

namespace vd::platform::DvReg {

using automation::String;
using automation::StringView;

// Reads one registry value as text. On success value receives a string value
// (REG_SZ) or the decimal text of a REG_DWORD value, and is left as it was for
// any other type; on failure value becomes "". The key is closed on every
// path, the never-opened handle 0 included.
bool RegQueryString(Registry& registry, RegHandle hive, StringView keyPath, StringView valueName, String& value);

// The toolkit's home directory as stored, or "C:\" when it cannot be read.
// The first answer that is not "" is kept for the life of the process.
String GetDvHome();

// Installs the registry GetDvHome reads; nullptr removes it. The registry must
// outlive its use. Does not clear the remembered home.
void UseRegistry(Registry* registry);

// The registry GetDvHome reads now; nullptr when none is installed.
Registry* InstalledRegistry();

// Forgets the remembered home. For tests only: the system itself never clears it.
void ResetDvHomeForTesting();

}  // namespace vd::platform::DvReg
