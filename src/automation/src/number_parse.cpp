#include <cmath>

#include "number_scan.h"
#include "vd/automation/error.h"
#include "vd/automation/numeric.h"

namespace vd::automation {
namespace {
NumberParser& CurrentParser() {
  static NumberParser parser;
  return parser;
}

std::optional<double> DefaultParse(StringView text) {
  const StringView t = detail::TrimNumberSpace(text);
  if (detail::StartsWithRadixPrefix(t)) {
    const StringView digits = t.substr(2);
    const detail::RadixScan scan = detail::ScanRadixDigits(digits, detail::IsHexPrefix(t));
    if (scan.overflow) Raise(err::kOverflow);
    if (digits.empty() || scan.digits != digits.size()) return std::nullopt;
    return scan.value;
  }
  const detail::DecimalScan scan = detail::ScanDecimal(t);
  if (!scan.hasDigits || scan.bareExponent || scan.end != t.size()) return std::nullopt;
  const double value = detail::DecimalValue(scan);
  if (std::isinf(value)) Raise(err::kOverflow);
  return value;
}
}  // namespace

std::optional<double> ParseNumber(StringView text) {
  const NumberParser& parser = CurrentParser();
  std::optional<double> value = parser ? parser(text) : DefaultParse(text);
  if (value) *value = detail::WithoutNegativeZero(*value);
  return value;
}

bool IsNumeric(StringView text) {
  try {
    return ParseNumber(text).has_value();
  } catch (const AutomationError&) {
    return false;
  }
}

bool IsNumeric(const String& text) { return IsNumeric(StringView(text)); }
bool IsNumeric(const char16_t* text) { return text != nullptr && IsNumeric(StringView(text)); }

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
    case VarType::kNull:
    case VarType::kObject:
    case VarType::kArray:
      break;
  }
  return false;
}

void SetNumberParser(NumberParser parser) { CurrentParser() = std::move(parser); }

}  // namespace vd::automation
