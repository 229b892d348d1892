// The number syntax of the user's locale through Automation's own conversion.
#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// windows.h first: oleauto.h builds on its types.
#include <oleauto.h>

#include <new>
#include <optional>
#include <string>

#include "vd/automation/error.h"
#include "vd/automation/number_parser_win32.h"
#include "vd/automation/numeric.h"

namespace vd::automation {
namespace {
// Like every Automation conversion of a BSTR, the text ends at its first NUL
// character.
std::optional<double> ParseWithUserLocale(StringView text) {
  std::wstring wide(text.begin(), text.end());  // the declaration wants a mutable text
  double value = 0;
  const HRESULT hr = VarR8FromStr(wide.data(), LOCALE_USER_DEFAULT, 0, &value);
  if (SUCCEEDED(hr)) return value;
  if (hr == DISP_E_OVERFLOW) Raise(err::kOverflow);
  if (hr == E_OUTOFMEMORY) throw std::bad_alloc();
  return std::nullopt;  // DISP_E_TYPEMISMATCH: no number
}
}  // namespace

void InstallWindowsNumberParser() { SetNumberParser(ParseWithUserLocale); }

}  // namespace vd::automation
