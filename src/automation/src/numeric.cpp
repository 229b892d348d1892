#include "vd/automation/numeric.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>

#include "vd/automation/error.h"

namespace vd::automation {
namespace {

NumberParser& CurrentParser() {
  static NumberParser parser;
  return parser;
}

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsHexDigit(char16_t c) { return IsDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F'); }
int HexValue(char16_t c) {
  if (IsDigit(c)) return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  return c - u'A' + 10;
}
bool IsValBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\n'; }

// "&H..." / "&O..." digits as Automation reads them: up to 16 bits as an
// Integer, up to 32 bits as a Long (so "&HFFFF" is -1 and "&HFFFFFFFF" too).
double RadixValue(const std::u16string& digits, int radix, bool& overflow) {
  overflow = false;
  unsigned long long v = 0;
  for (const char16_t c : digits) {
    v = v * static_cast<unsigned>(radix) + static_cast<unsigned>(HexValue(c));
    if (v > 0xFFFFFFFFULL) {
      overflow = true;
      return 0;
    }
  }
  if (v <= 0xFFFF && (radix == 16 ? digits.size() <= 4 : v <= 0xFFFF)) {
    return static_cast<int16_t>(static_cast<uint16_t>(v));
  }
  return static_cast<int32_t>(static_cast<uint32_t>(v));
}

double StrToDouble(const std::string& ascii) {
  // strtod honours the C locale only; the program never changes LC_NUMERIC.
  return std::strtod(ascii.c_str(), nullptr);
}

// Default number syntax: blanks around, sign, digits with one ".", exponent
// E/D with optional sign and at least one digit; or &H / &O.
std::optional<double> DefaultParse(StringView text) {
  size_t b = 0;
  size_t e = text.size();
  while (b < e && (text[b] == u' ' || text[b] == u'\t')) ++b;
  while (e > b && (text[e - 1] == u' ' || text[e - 1] == u'\t')) --e;
  const StringView t = text.substr(b, e - b);
  if (t.empty()) return std::nullopt;
  if (t.size() >= 2 && t[0] == u'&' && (t[1] == u'H' || t[1] == u'h' || t[1] == u'O' || t[1] == u'o')) {
    const bool hex = t[1] == u'H' || t[1] == u'h';
    std::u16string digits(t.substr(2));
    if (digits.empty()) return std::nullopt;
    for (const char16_t c : digits)
      if (hex ? !IsHexDigit(c) : !(c >= u'0' && c <= u'7')) return std::nullopt;
    bool overflow = false;
    const double v = RadixValue(digits, hex ? 16 : 8, overflow);
    if (overflow) Raise(err::kOverflow);
    return v;
  }
  std::string ascii;
  size_t i = 0;
  if (t[i] == u'+' || t[i] == u'-') ascii.push_back(static_cast<char>(t[i++]));
  size_t mantissaDigits = 0;
  bool point = false;
  for (; i < t.size(); ++i) {
    if (IsDigit(t[i])) {
      ++mantissaDigits;
      ascii.push_back(static_cast<char>(t[i]));
    } else if (t[i] == u'.' && !point) {
      point = true;
      ascii.push_back('.');
    } else {
      break;
    }
  }
  if (mantissaDigits == 0) return std::nullopt;
  if (i < t.size() && (t[i] == u'e' || t[i] == u'E' || t[i] == u'd' || t[i] == u'D')) {
    ascii.push_back('e');
    ++i;
    if (i < t.size() && (t[i] == u'+' || t[i] == u'-')) ascii.push_back(static_cast<char>(t[i++]));
    size_t expDigits = 0;
    for (; i < t.size() && IsDigit(t[i]); ++i, ++expDigits) ascii.push_back(static_cast<char>(t[i]));
    if (expDigits == 0) return std::nullopt;
  }
  if (i != t.size()) return std::nullopt;
  const double v = StrToDouble(ascii);
  if (std::isinf(v)) Raise(err::kOverflow);
  return v;
}

// Digits and decimal exponent of the shortest round-trip form of value > 0.
template <class F>
void ShortestDigits(F value, std::string& digits, int& exponent) {
  char buf[64];
  const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific);
  const std::string s(buf, res.ptr);
  const size_t ePos = s.find('e');
  const std::string mantissa = s.substr(0, ePos);
  exponent = std::stoi(s.substr(ePos + 1));
  digits.clear();
  for (const char c : mantissa)
    if (c != '.') digits.push_back(c);
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
}

template <class F>
String FormatShortest(F value, int maxFixedExponent) {
  if (std::isnan(value)) return u"NaN";
  if (std::isinf(value)) return value > 0 ? u"Inf" : u"-Inf";
  if (value == 0) return u"0";
  std::string out;
  if (value < 0) {
    out.push_back('-');
    value = -value;
  }
  std::string digits;
  int exp = 0;
  ShortestDigits(value, digits, exp);
  if (exp < -4 || exp >= maxFixedExponent) {
    out.push_back(digits[0]);
    if (digits.size() > 1) {
      out.push_back('.');
      out.append(digits, 1);
    }
    out.push_back('E');
    out.push_back(exp < 0 ? '-' : '+');
    const int a = exp < 0 ? -exp : exp;
    if (a < 10) out.push_back('0');
    out.append(std::to_string(a));
  } else if (exp < 0) {
    out.append("0.");
    out.append(static_cast<size_t>(-exp - 1), '0');
    out.append(digits);
  } else {
    const auto intLen = static_cast<size_t>(exp) + 1;
    if (digits.size() <= intLen) {
      out.append(digits);
      out.append(intLen - digits.size(), '0');
    } else {
      out.append(digits, 0, intLen);
      out.push_back('.');
      out.append(digits, intLen);
    }
  }
  return {out.begin(), out.end()};
}

}  // namespace

double Val(StringView text) {
  std::u16string t;
  t.reserve(text.size());
  for (const char16_t c : text)
    if (!IsValBlank(c)) t.push_back(c);
  if (t.size() >= 2 && t[0] == u'&' && (t[1] == u'H' || t[1] == u'h' || t[1] == u'O' || t[1] == u'o')) {
    const bool hex = t[1] == u'H' || t[1] == u'h';
    std::u16string digits;
    for (size_t i = 2; i < t.size(); ++i) {
      if (hex ? !IsHexDigit(t[i]) : !(t[i] >= u'0' && t[i] <= u'7')) break;
      digits.push_back(t[i]);
    }
    bool overflow = false;
    const double v = RadixValue(digits, hex ? 16 : 8, overflow);
    return overflow ? 0 : v;
  }
  std::string ascii;
  size_t i = 0;
  if (i < t.size() && (t[i] == u'+' || t[i] == u'-')) ascii.push_back(static_cast<char>(t[i++]));
  bool point = false;
  size_t mantissaDigits = 0;
  for (; i < t.size(); ++i) {
    if (IsDigit(t[i])) {
      ++mantissaDigits;
      ascii.push_back(static_cast<char>(t[i]));
    } else if (t[i] == u'.' && !point) {
      point = true;
      ascii.push_back('.');
    } else {
      break;
    }
  }
  if (mantissaDigits == 0) return 0;
  if (i < t.size() && (t[i] == u'e' || t[i] == u'E' || t[i] == u'd' || t[i] == u'D')) {
    std::string exp = "e";
    size_t k = i + 1;
    if (k < t.size() && (t[k] == u'+' || t[k] == u'-')) exp.push_back(static_cast<char>(t[k++]));
    size_t expDigits = 0;
    for (; k < t.size() && IsDigit(t[k]); ++k, ++expDigits) exp.push_back(static_cast<char>(t[k]));
    if (expDigits > 0) ascii += exp;
  }
  const double v = StrToDouble(ascii);
  return v == 0 ? 0.0 : v;  // no negative zero
}

String FormatGeneral(double value) { return FormatShortest(value, 15); }
String FormatGeneral(float value) { return FormatShortest(value, 7); }

std::optional<double> ParseNumber(StringView text) {
  if (const NumberParser& p = CurrentParser()) return p(text);
  return DefaultParse(text);
}

bool IsNumeric(StringView text) {
  try {
    return ParseNumber(text).has_value();
  } catch (const AutomationError&) {
    return false;
  }
}

bool IsNumeric(const Variant& v) {
  switch (v.Type()) {
    case VarType::kEmpty:
    case VarType::kInteger:
    case VarType::kLong:
    case VarType::kSingle:
    case VarType::kDouble:
    case VarType::kBoolean:
      return true;
    case VarType::kString:
      return IsNumeric(StringView(v.AsString()));
    default:
      return false;
  }
}

void SetNumberParser(NumberParser parser) { CurrentParser() = std::move(parser); }

}  // namespace vd::automation
