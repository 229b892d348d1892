#pragma once
// An owning BSTR and the conversions between BSTR and the system's String.
#include <windows.h>

#include <oleauto.h>

#include <utility>

#include "vd/automation/string.h"

namespace vd::win32 {

class Bstr {
 public:
  Bstr() = default;
  // A copy of the text; throws std::bad_alloc when the system cannot allocate.
  explicit Bstr(automation::StringView text);
  Bstr(Bstr&& other) noexcept : b_(std::exchange(other.b_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(b_, other.b_);
    return *this;
  }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(b_); }

  static Bstr Attach(BSTR b) {
    Bstr result;
    result.b_ = b;
    return result;
  }
  BSTR Detach() { return std::exchange(b_, nullptr); }
  BSTR* Put() {
    SysFreeString(std::exchange(b_, nullptr));
    return &b_;
  }
  [[nodiscard]] BSTR Get() const { return b_; }
  [[nodiscard]] UINT Length() const { return SysStringLen(b_); }
  [[nodiscard]] automation::String ToString() const;

 private:
  BSTR b_ = nullptr;
};

// The text of a BSTR, embedded NULs included; a null BSTR is the empty text.
automation::String ToString(BSTR b);
// A wide C string as the system's String (nullptr is empty).
automation::String FromWide(const wchar_t* text);
// The system's String as a wide string for Win32 calls.
std::wstring ToWide(automation::StringView text);

}  // namespace vd::win32
