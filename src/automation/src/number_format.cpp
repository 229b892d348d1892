#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>

#include "vd/automation/numeric.h"

namespace vd::automation {
namespace {
// The digits of the shortest text that reads back to value (> 0), without
// trailing zeros, and the decimal exponent of the first of them.
template <class F>
void ShortestDigits(F value, std::string& digits, int& exponent) {
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific);
  const std::string_view text(buffer, static_cast<size_t>(result.ptr - buffer));
  const size_t e = text.find('e');
  digits.clear();
  for (const char c : text.substr(0, e))
    if (c != '.') digits.push_back(c);
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  exponent = 0;
  const std::string_view exponentText = text.substr(e + 1);
  const bool negative = exponentText.front() == '-';
  for (const char c : exponentText.substr(1)) exponent = exponent * 10 + (c - '0');
  if (negative) exponent = -exponent;
}

void AppendExponentForm(std::string& out, const std::string& digits, int exponent) {
  out.push_back(digits[0]);
  if (digits.size() > 1) {
    out.push_back('.');
    out.append(digits, 1);
  }
  out.push_back('E');
  out.push_back(exponent < 0 ? '-' : '+');
  const int magnitude = std::abs(exponent);
  if (magnitude < 10) out.push_back('0');
  out.append(std::to_string(magnitude));
}

void AppendFixedForm(std::string& out, const std::string& digits, int exponent) {
  if (exponent < 0) {
    out.append("0.");
    out.append(static_cast<size_t>(-exponent - 1), '0');
    out.append(digits);
    return;
  }
  const auto integerLength = static_cast<size_t>(exponent) + 1;
  if (digits.size() <= integerLength) {
    out.append(digits);
    out.append(integerLength - digits.size(), '0');
  } else {
    out.append(digits, 0, integerLength);
    out.push_back('.');
    out.append(digits, integerLength);
  }
}

// The digits are the shortest that read back to the same value, so a value
// written from its text shows that text again. Automation's own rendering
// stops at 15 (Single: 7) significant digits instead; the two agree whenever
// such a text reads back, and differ only for values that need 16 or 17
// digits (0.1 + 0.2 shows "0.30000000000000004", not "0.3"), which this
// system keeps apart rather than showing two different values alike.
// precision: the type's significant decimal digits (15 for Double, 7 for
// Single); from 10^precision up the exponent form is used.
template <class F>
String FormatShortest(F value, int precision) {
  if (std::isnan(value)) return u"NaN";
  if (std::isinf(value)) return value > 0 ? u"Inf" : u"-Inf";
  if (value == 0) return u"0";
  std::string out;
  if (value < 0) {
    out.push_back('-');
    value = -value;
  }
  std::string digits;
  int exponent = 0;
  ShortestDigits(value, digits, exponent);
  if (exponent < -4 || exponent >= precision) {
    AppendExponentForm(out, digits, exponent);
  } else {
    AppendFixedForm(out, digits, exponent);
  }
  String text;
  text.reserve(out.size());
  for (const char c : out) {
    if (c == '.') {
      text.append(DecimalSeparator());
    } else {
      text.push_back(static_cast<char16_t>(c));
    }
  }
  return text;
}

String& CurrentSeparator() {
  static String separator = u".";
  return separator;
}
String (*&CurrentSource())() {
  static String (*source)() = nullptr;
  return source;
}
}  // namespace

String FormatGeneral(double value) { return FormatShortest(value, 15); }
String FormatGeneral(float value) { return FormatShortest(value, 7); }

void SetDecimalSeparator(String separator) { CurrentSeparator() = separator.empty() ? u"." : std::move(separator); }

void SetDecimalSeparatorSource(String (*source)()) { CurrentSource() = source; }

const String& DecimalSeparator() {
  // Read at every use when the platform gives a source, so that a number is
  // shown with the separator its parser reads at the same moment.
  if (const auto source = CurrentSource(); source != nullptr) SetDecimalSeparator(source());
  return CurrentSeparator();
}

}  // namespace vd::automation
