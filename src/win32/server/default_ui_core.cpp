// The one place that decides which core a new VarDeskUI COM object drives.
#include "server/ui_core.h"
#include "server/unavailable_ui_core.h"

namespace vd::win32 {

std::unique_ptr<UiCore> MakeDefaultUiCore() { return std::make_unique<UnavailableUiCore>(); }

}  // namespace vd::win32
