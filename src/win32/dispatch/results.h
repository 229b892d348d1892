#pragma once
// The result of a late-bound call read as the type the caller expects, with
// Automation's conversions (a Long may come back as an Integer, a Boolean as
// a number, and so on).
#include "com/unique_variant.h"
#include "convert/variant_convert.h"
#include "vd/automation/conversions.h"

namespace vd::win32 {

inline automation::Variant ValueOf(const UniqueVariant& result) { return FromVariant(result.Ref()); }
inline int32_t LongOf(const UniqueVariant& result) { return automation::CLng(ValueOf(result)); }
inline automation::String TextOf(const UniqueVariant& result) { return automation::CStr(ValueOf(result)); }
inline bool BooleanOf(const UniqueVariant& result) { return automation::CBool(ValueOf(result)); }
inline double DoubleOf(const UniqueVariant& result) { return automation::CDbl(ValueOf(result)); }

}  // namespace vd::win32
