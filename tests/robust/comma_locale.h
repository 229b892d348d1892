#pragma once
// The number syntax of a locale whose decimal separator is "," and whose
// thousands separator is ".", as Automation reads it there: "." before the
// decimal separator is dropped, so "1.5" reads 15. Installed for the life of
// the object, with decimal as the separator the general number format writes.
#include <charconv>
#include <optional>
#include <string>

#include "vd/automation/numeric.h"

namespace vd::robust_test {

inline std::optional<double> ParseCommaLocale(vd::automation::StringView text) {
  std::string ascii;
  bool decimals = false;
  for (const char16_t c : text) {
    if (c == u'.' && !decimals) continue;  // grouping
    decimals = decimals || c == u',';
    ascii.push_back(c == u',' ? '.' : static_cast<char>(c));
  }
  double value = 0;
  const auto [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
  if (ascii.empty() || error != std::errc() || end != ascii.data() + ascii.size()) return std::nullopt;
  return value;
}

class CommaLocale {
 public:
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
