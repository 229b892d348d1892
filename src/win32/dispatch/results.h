#pragma once
// The result of a late-bound call read as the type the caller expects, with
// Automation's conversions (a Long may come back as an Integer, a Boolean as
// a number, and so on).
#include "com/bstr.h"
#include "com/unique_variant.h"
#include "convert/variant_convert.h"
#include "vd/automation/conversions.h"

namespace vd::win32 {

inline automation::Variant ValueOf(const UniqueVariant& result) { return FromVariant(result.Ref()); }
// A text or a number that came back as one is read once, without an
// intermediate Variant; anything else takes the general conversion.
inline int32_t LongOf(const UniqueVariant& result) {
  const VARIANT& v = result.Ref();
  if (v.vt == VT_I4) return v.lVal;
  if (v.vt == VT_I2) return v.iVal;
  return automation::CLng(ValueOf(result));
}
inline automation::String TextOf(const UniqueVariant& result) {
  if (result.Ref().vt == VT_BSTR) return ToString(result.Ref().bstrVal);
  return automation::CStr(ValueOf(result));
}
inline bool BooleanOf(const UniqueVariant& result) { return automation::CBool(ValueOf(result)); }
inline double DoubleOf(const UniqueVariant& result) { return automation::CDbl(ValueOf(result)); }

}  // namespace vd::win32
