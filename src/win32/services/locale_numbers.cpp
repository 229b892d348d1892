// The number syntax of the user's locale through Automation's own parser.
#include "win32/services/locale_numbers.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// windows.h first: oleauto.h builds on its types.
#include <oleauto.h>

#include <array>
#include <new>
#include <string>

#include "vd/automation/error.h"
#include "vd/automation/numeric.h"

namespace vd::win32::services {
namespace {

using automation::String;
using automation::StringView;

// More digits than any shortest rendering of a Double has (17), so that the
// digits of a shown number come back whole.
constexpr int kMaxDigits = 64;

// White space that may follow a number: blank, tab, LF, VT, FF, CR.
bool IsNumberSpace(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r'); }

// Automation's own value of a parsed number (hex and octal numbers, or more
// digits than kept).
std::optional<double> AutomationValue(NUMPARSE& parsed, BYTE* digits) {
  VARIANT value;
  VariantInit(&value);
  const HRESULT hr = VarNumFromParseNum(&parsed, digits, VTBIT_R8, &value);
  if (SUCCEEDED(hr)) return value.dblVal;
  if (hr == DISP_E_OVERFLOW) automation::Raise(automation::err::kOverflow);
  if (hr == E_OUTOFMEMORY) throw std::bad_alloc();
  return std::nullopt;
}

// The Double nearest to the decimal digits (VarR8FromStr may miss it by a unit
// in the last place, so that a value shown would not read back as itself).
// Val reads the digits and exponent as written, to the nearest Double.
double NearestValue(const NUMPARSE& parsed, const BYTE* digits) {
  String text;
  if ((parsed.dwOutFlags & NUMPRS_NEG) != 0) text.push_back(u'-');
  for (int i = 0; i < parsed.cDig; ++i) text.push_back(static_cast<char16_t>(u'0' + digits[i]));
  text.push_back(u'E');
  text.append(automation::ToDecimal(parsed.nPwr10));
  const double value = automation::Val(text);
  if (value - value != 0) automation::Raise(automation::err::kOverflow);  // beyond Double's range
  return value;
}

}  // namespace

std::optional<double> ParseLocaleNumber(StringView text) {
  std::wstring wide(text.begin(), text.end());  // the declaration wants a mutable text
  const size_t length = wide.find(L'\0') == std::wstring::npos ? wide.size() : wide.find(L'\0');
  NUMPARSE parsed{};
  parsed.cDig = kMaxDigits;
  parsed.dwInFlags = NUMPRS_STD;
  std::array<BYTE, kMaxDigits> digits{};
  const HRESULT hr = VarParseNumFromStr(wide.data(), LOCALE_USER_DEFAULT, 0, &parsed, digits.data());
  if (hr == E_OUTOFMEMORY) throw std::bad_alloc();
  if (FAILED(hr)) return std::nullopt;  // DISP_E_TYPEMISMATCH: no number
  for (size_t i = static_cast<size_t>(parsed.cchUsed); i < length; ++i)
    if (!IsNumberSpace(wide[i])) return std::nullopt;
  if (parsed.nBaseShift != 0 || (parsed.dwOutFlags & NUMPRS_INEXACT) != 0 || parsed.cDig == 0)
    return AutomationValue(parsed, digits.data());
  return NearestValue(parsed, digits.data());
}

String LocaleDecimalSeparator() {
  std::array<wchar_t, 8> separator{};
  const int written =
      GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator.data(), static_cast<int>(separator.size()));
  if (written <= 1) return u".";
  return {separator.data(), separator.data() + written - 1};
}

}  // namespace vd::win32::services
