#include "win32/services/windows_registry.h"

#include <windows.h>

#include <limits>
#include <string>

namespace vd::win32::services {
namespace {

using vd::platform::RegHandle;

// A handle integer as HKEY. The predefined hives are stored sign-extended,
// exactly as windows.h defines them ((HKEY)(ULONG_PTR)(LONG)0x80000002).
HKEY ToHkey(RegHandle handle) { return reinterpret_cast<HKEY>(handle); }
RegHandle FromHkey(HKEY key) { return reinterpret_cast<RegHandle>(key); }

}  // namespace

vd::platform::RegOpenResult WindowsRegistry::OpenKey(RegHandle parent, std::string_view subKey, uint32_t options,
                                                     uint32_t access) {
  const std::string path(subKey);  // the call wants it NUL-terminated
  HKEY opened = nullptr;
  const LONG status = RegOpenKeyExA(ToHkey(parent), path.c_str(), options, access, &opened);
  return {static_cast<int32_t>(status), status == ERROR_SUCCESS ? FromHkey(opened) : 0};
}

vd::platform::RegQueryResult WindowsRegistry::QueryValue(RegHandle key, std::string_view valueName,
                                                         std::span<char> buffer) {
  const std::string name(valueName);
  DWORD type = 0;
  DWORD size = buffer.size() > std::numeric_limits<DWORD>::max() ? std::numeric_limits<DWORD>::max()
                                                                 : static_cast<DWORD>(buffer.size());
  const LONG status =
      RegQueryValueExA(ToHkey(key), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()), &size);
  return {static_cast<int32_t>(status), static_cast<uint32_t>(type), static_cast<uint32_t>(size)};
}

int32_t WindowsRegistry::CloseKey(RegHandle key) { return static_cast<int32_t>(RegCloseKey(ToHkey(key))); }

}  // namespace vd::win32::services
