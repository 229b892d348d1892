#pragma once
// The system's Variant <-> VARIANT. Objects cross as IDispatch (see
// object_convert.h); arrays as one-dimensional SAFEARRAYs of VARIANT with their
// lower bound kept.
#include <windows.h>

#include <oaidl.h>

#include "com/unique_variant.h"
#include "vd/automation/variant.h"

namespace vd::win32 {

// Reads any Automation VARIANT, by reference or not. Whole numbers become
// Integer or Long (Double when they do not fit), Currency, Date and Decimal
// become Double, a missing argument becomes Empty. Raises 13 for what has no
// counterpart (multi-dimensional arrays, records, objects without IDispatch).
automation::Variant FromVariant(const VARIANT& value);

// Writes the value into out, which must hold nothing that needs freeing.
void ToVariant(const automation::Variant& value, VARIANT& out);
UniqueVariant ToVariant(const automation::Variant& value);

}  // namespace vd::win32
