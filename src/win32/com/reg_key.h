#pragma once
// An open registry key, closed on destruction. Failures raise AutomationError
// carrying the HRESULT of the Win32 error.
#include <windows.h>

#include <string>

#include "com/unique_handle.h"

namespace vd::win32 {

class RegKey {
 public:
  RegKey() = default;

  // Opens or creates the key with write access.
  static RegKey Create(HKEY parent, const std::wstring& path);
  // Opens the key for reading; an empty RegKey when it does not exist.
  static RegKey OpenForRead(HKEY parent, const std::wstring& path);

  void SetString(const std::wstring& name, const std::wstring& value) const;  // "" is the default value
  // Reads a string value; false when it does not exist.
  bool GetString(const std::wstring& name, std::wstring& value) const;
  RegKey CreateSubKey(const std::wstring& path) const { return Create(key_.Get(), path); }

  [[nodiscard]] HKEY Get() const { return key_.Get(); }
  explicit operator bool() const { return key_.Valid(); }

 private:
  explicit RegKey(HKEY key) : key_(key) {}
  RegistryKeyHandle key_;
};

// Removes a key with everything under it; a key that is not there is no error.
void DeleteKeyTree(HKEY parent, const std::wstring& path);
// Removes a key only when it has no subkeys and no values left.
void DeleteKeyIfEmpty(HKEY parent, const std::wstring& path);

}  // namespace vd::win32
