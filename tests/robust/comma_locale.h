#pragma once
// The number syntax of a locale whose decimal separator is "," and whose
// thousands separator is ".", as Automation reads it there: "." anywhere in
// the digits before the decimal separator is dropped, so "1.5" reads 15.
// Installed for the life of the object, with "," as the decimal separator the
// general number format writes.
#include <charconv>
#include <optional>
#include <string>

#include "vd/automation/numeric.h"

namespace vd::robust_test {

inline std::optional<double> ParseCommaLocale(vd::automation::StringView text) {
  size_t first = 0;
  size_t end = text.size();
  while (first < end && (text[first] == u' ' || text[first] == u'\t')) ++first;
  while (end > first && (text[end - 1] == u' ' || text[end - 1] == u'\t')) --end;
  std::string ascii;
  bool decimals = false;
  bool exponent = false;
  for (size_t i = first; i < end; ++i) {
    const char16_t c = text[i];
    if (c == u'.' && !decimals && !exponent) continue;  // grouping
    if (c == u',' && !decimals && !exponent) {
      decimals = true;
      ascii.push_back('.');
    } else if (c == u'E' || c == u'e') {
      if (exponent) return std::nullopt;
      exponent = true;
      ascii.push_back('e');
    } else if ((c >= u'0' && c <= u'9') || c == u'-' || c == u'+') {
      ascii.push_back(static_cast<char>(c));
    } else {
      return std::nullopt;
    }
  }
  if (!ascii.empty() && ascii[0] == '+') ascii.erase(0, 1);
  double value = 0;
  const auto result = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
  if (ascii.empty() || result.ec != std::errc() || result.ptr != ascii.data() + ascii.size()) return std::nullopt;
  return value;
}

class CommaLocale {
 public:
  // decimal: the separator the general number format writes; "." makes the
  // mismatch this system must not have (shown with ".", read with ",").
  explicit CommaLocale(vd::automation::String decimal = u",") {
    vd::automation::SetNumberParser(ParseCommaLocale);
    vd::automation::SetDecimalSeparator(std::move(decimal));
  }
  ~CommaLocale() {
    vd::automation::SetNumberParser({});
    vd::automation::SetDecimalSeparator({});
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
};

}  // namespace vd::robust_test
