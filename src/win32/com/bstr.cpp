#include "com/bstr.h"

#include <new>

namespace vd::win32 {

Bstr::Bstr(automation::StringView text)
    : UniqueHandle(SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()), static_cast<UINT>(text.size()))) {
  if (!Valid()) throw std::bad_alloc();
}

automation::String Bstr::ToString() const { return win32::ToString(Get()); }

automation::String ToString(BSTR b) {
  if (!b) return {};
  return automation::String(reinterpret_cast<const char16_t*>(b), SysStringLen(b));
}

automation::String FromWide(const wchar_t* text) {
  if (!text) return {};
  return automation::String(reinterpret_cast<const char16_t*>(text));
}

std::wstring ToWide(automation::StringView text) {
  return std::wstring(reinterpret_cast<const wchar_t*>(text.data()), text.size());
}

}  // namespace vd::win32
