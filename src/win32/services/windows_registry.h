#pragma once
// The registry service over the ANSI Win32 registry calls. Handles pass
// through as integers; closing them is the caller's business (DvReg closes
// every key it opens).
#include "platform/registry.h"

namespace vd::win32::services {

class WindowsRegistry final : public vd::platform::Registry {
 public:
  vd::platform::RegOpenResult OpenKey(vd::platform::RegHandle parent, std::string_view subKey, uint32_t options,
                                      uint32_t access) override;
  vd::platform::RegQueryResult QueryValue(vd::platform::RegHandle key, std::string_view valueName,
                                          std::span<char> buffer) override;
  int32_t CloseKey(vd::platform::RegHandle key) override;
};

}  // namespace vd::win32::services
