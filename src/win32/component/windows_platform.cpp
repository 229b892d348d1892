#include "component/windows_platform.h"

#include "vd/automation/number_parser_win32.h"

namespace vd::win32 {

WindowsPlatform::WindowsPlatform() { automation::InstallWindowsNumberParser(); }

WindowsPlatform::~WindowsPlatform() = default;

WindowsPlatform& TheWindowsPlatform() {
  static WindowsPlatform instance;
  return instance;
}

}  // namespace vd::win32
