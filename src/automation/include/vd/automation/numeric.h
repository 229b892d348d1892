#pragma once
// Text <-> number rules: Val, the general number format, IsNumeric and the
// locale-aware text-to-Double conversion behind CDbl.
#include <functional>
#include <optional>

#include "vd/automation/string.h"
#include "vd/automation/variant.h"

namespace vd::automation {

// The number given by the longest numeric prefix: leading blanks skipped, blanks
// inside ignored, optional sign, decimal point, exponent (E or D), or an "&H" /
// "&O" prefix (four hex digits or fewer read as a 16-bit value). 0 when there
// is none. Never fails; a magnitude beyond Double gives +/-infinity.
double Val(StringView text);

// The general number format: shortest decimal text that reads back to the same
// value, no leading blank; exponent form "1E+15", "1.5E-07" for magnitudes from
// 1E+15 up and below 1E-04.
String FormatGeneral(double value);
String FormatGeneral(float value);

// Whether the text reads as a number under the current number syntax:
// surrounding blanks, sign, decimal separator, exponent, "&H"/"&O".
bool IsNumeric(StringView text);
bool IsNumeric(const Variant& v);

// Text to Double with the current number syntax. nullopt when the text is no
// number; error 6 when it is a number beyond Double's range.
std::optional<double> ParseNumber(StringView text);

// The platform may replace the number syntax (on Windows: Automation's own
// conversion with the user locale). The parser answers nullopt for no number
// and raises error 6 for overflow. An empty function restores the default
// ("." as decimal point).
using NumberParser = std::function<std::optional<double>(StringView)>;
void SetNumberParser(NumberParser parser);

}  // namespace vd::automation
