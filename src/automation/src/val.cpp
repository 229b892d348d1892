#include "number_scan.h"
#include "vd/automation/numeric.h"

namespace vd::automation {
namespace {
// Val drops these wherever they stand, so "1 2 3" reads 123; a carriage
// return is not among them and ends the number.
bool IsValBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\n'; }
}  // namespace

double Val(StringView text) {
  String packed;
  packed.reserve(text.size());
  for (const char16_t c : text)
    if (!IsValBlank(c)) packed.push_back(c);
  const StringView t = packed;
  if (detail::StartsWithRadixPrefix(t)) return detail::ScanRadixDigits(t.substr(2), detail::IsHexPrefix(t)).value;
  const detail::DecimalScan scan = detail::ScanDecimal(t);
  if (!scan.hasDigits) return 0;
  return detail::WithoutNegativeZero(detail::DecimalValue(scan));
}

}  // namespace vd::automation
