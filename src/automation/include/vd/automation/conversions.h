#pragma once
// Automation's conversion functions. Whole-number conversions round half to
// even (2.5 -> 2, 3.5 -> 4, -2.5 -> -2) and then check the range: out of range
// (or NaN, or infinite) is error 6. Text is read with the current number
// syntax (ParseNumber); text that is no number is error 13, a number beyond
// Double's range error 6. Null is error 94, arrays and objects error 13, an
// object reference that is Nothing error 91.
#include <cstdint>

#include "vd/automation/variant.h"

namespace vd::automation {

// Empty "", Integer and Long in decimal, Single and Double in the general
// number format, Boolean "True" / "False".
String CStr(const Variant& v);
int32_t CLng(const Variant& v);
int16_t CInt(const Variant& v);
// Empty 0, True -1, False 0.
double CDbl(const Variant& v);
// A finite value beyond Single's range (or an infinite one) is error 6.
float CSng(const Variant& v);
// Numbers: not zero. Text: "True" / "False" in any case, white space around
// allowed, or a number.
bool CBool(const Variant& v);

// Round half to even into a Long / Integer, error 6 when out of range (or NaN).
// The rounding does not depend on the floating-point environment.
int32_t RoundToLong(double value);
int16_t RoundToInteger(double value);

}  // namespace vd::automation
