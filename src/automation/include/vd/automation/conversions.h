#pragma once
// Automation's conversion functions. Whole-number conversions round half to
// even; out of range is error 6, text that is no number error 13, Null 94,
// arrays and objects 13.
#include <cstdint>

#include "vd/automation/variant.h"

namespace vd::automation {

String CStr(const Variant& v);
int32_t CLng(const Variant& v);
int16_t CInt(const Variant& v);
double CDbl(const Variant& v);
float CSng(const Variant& v);
bool CBool(const Variant& v);

// Round half to even into a Long / Integer, error 6 when out of range (or NaN).
int32_t RoundToLong(double value);
int16_t RoundToInteger(double value);

}  // namespace vd::automation
