#include "com/reg_key.h"

#include "vd/automation/error.h"

namespace vd::win32 {
namespace {

[[noreturn]] void RaiseWin32(LONG status, const char16_t* what) {
  automation::Raise(static_cast<int32_t>(HRESULT_FROM_WIN32(static_cast<DWORD>(status))), what);
}

}  // namespace

RegKey RegKey::Create(HKEY parent, const std::wstring& path) {
  HKEY key = nullptr;
  LONG status = RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE,
                                nullptr, &key, nullptr);
  if (status != ERROR_SUCCESS) RaiseWin32(status, u"The registry key cannot be created");
  return RegKey(key);
}

RegKey RegKey::OpenForRead(HKEY parent, const std::wstring& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return RegKey();
  return RegKey(key);
}

void RegKey::SetString(const std::wstring& name, const std::wstring& value) const {
  auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
  LONG status = RegSetValueExW(key_.Get(), name.empty() ? nullptr : name.c_str(), 0, REG_SZ,
                               reinterpret_cast<const BYTE*>(value.c_str()), bytes);
  if (status != ERROR_SUCCESS) RaiseWin32(status, u"The registry value cannot be written");
}

bool RegKey::GetString(const std::wstring& name, std::wstring& value) const {
  const wchar_t* valueName = name.empty() ? nullptr : name.c_str();
  DWORD type = 0;
  DWORD bytes = 0;
  if (RegQueryValueExW(key_.Get(), valueName, nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS || type != REG_SZ)
    return false;
  std::wstring buffer(bytes / sizeof(wchar_t) + 1, L'\0');
  if (RegQueryValueExW(key_.Get(), valueName, nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()), &bytes) !=
      ERROR_SUCCESS)
    return false;
  buffer.resize(wcsnlen(buffer.c_str(), buffer.size()));
  value = std::move(buffer);
  return true;
}

void DeleteKeyTree(HKEY parent, const std::wstring& path) {
  LONG status = RegDeleteTreeW(parent, path.c_str());
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
    RaiseWin32(status, u"The registry key cannot be removed");
  if (status == ERROR_SUCCESS) RegDeleteKeyW(parent, path.c_str());
}

void DeleteKeyIfEmpty(HKEY parent, const std::wstring& path) {
  RegKey key = RegKey::OpenForRead(parent, path);
  if (!key) return;
  DWORD subKeys = 0;
  DWORD values = 0;
  if (RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &subKeys, nullptr, nullptr, &values, nullptr, nullptr,
                       nullptr, nullptr) != ERROR_SUCCESS)
    return;
  if (subKeys == 0 && values == 0) RegDeleteKeyW(parent, path.c_str());
}

}  // namespace vd::win32
