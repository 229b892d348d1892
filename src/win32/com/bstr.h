#pragma once
// An owning BSTR and the conversions between BSTR and the system's String.
#include <windows.h>

#include <oleauto.h>

#include "com/unique_handle.h"
#include "vd/automation/string.h"

namespace vd::win32 {

// An owning BSTR: the one handle owner with SysFreeString.
class Bstr : public UniqueHandle<BSTR, BstrTraits> {
 public:
  Bstr() = default;
  // A copy of the text; throws std::bad_alloc when the system cannot allocate.
  explicit Bstr(automation::StringView text);

  static Bstr Attach(BSTR b) {
    Bstr result;
    result.Reset(b);
    return result;
  }
  BSTR Detach() { return Release(); }
  [[nodiscard]] UINT Length() const { return SysStringLen(Get()); }
  [[nodiscard]] automation::String ToString() const;
};

// The text of a BSTR, embedded NULs included; a null BSTR is the empty text.
automation::String ToString(BSTR b);
// A wide C string as the system's String (nullptr is empty).
automation::String FromWide(const wchar_t* text);
// The system's String as a wide string for Win32 calls.
std::wstring ToWide(automation::StringView text);

}  // namespace vd::win32
