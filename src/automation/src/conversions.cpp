#include "vd/automation/conversions.h"

#include <cmath>
#include <limits>

#include "number_scan.h"
#include "vd/automation/error.h"
#include "vd/automation/numeric.h"
#include "vd/automation/text.h"

namespace vd::automation {
namespace {
// Ties go to the even neighbour; exact for every double, since the fraction
// value - floor(value) is always representable.
double RoundHalfEven(double value) {
  const double below = std::floor(value);
  const double fraction = value - below;
  if (fraction > 0.5) return below + 1;
  if (fraction < 0.5) return below;
  return std::fmod(below, 2.0) == 0 ? below : below + 1;
}

double RoundInRange(double value, double low, double high) {
  if (std::isnan(value)) Raise(err::kOverflow);
  const double rounded = RoundHalfEven(value);
  if (rounded < low || rounded > high) Raise(err::kOverflow);
  return rounded;
}

// Objects have no default value to convert.
[[noreturn]] void RaiseNotConvertible(const Variant& v) {
  if (v.IsObject() && !v.AsObject()) Raise(err::kObjectNotSet);
  Raise(err::kTypeMismatch);
}
}  // namespace

int32_t RoundToLong(double value) {
  return static_cast<int32_t>(
      RoundInRange(value, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

int16_t RoundToInteger(double value) {
  return static_cast<int16_t>(
      RoundInRange(value, std::numeric_limits<int16_t>::min(), std::numeric_limits<int16_t>::max()));
}

double CDbl(const Variant& v) {
  switch (v.Type()) {
    case VarType::kEmpty:
      return 0;
    case VarType::kNull:
      Raise(err::kInvalidUseOfNull);
    case VarType::kInteger:
      return v.AsInteger();
    case VarType::kLong:
      return v.AsLong();
    case VarType::kSingle:
      return v.AsSingle();
    case VarType::kDouble:
      return v.AsDouble();
    case VarType::kBoolean:
      return v.AsBoolean() ? -1 : 0;
    case VarType::kString:
      if (const auto d = ParseNumber(v.AsString())) return *d;
      Raise(err::kTypeMismatch);
    case VarType::kObject:
    case VarType::kArray:
      break;
  }
  RaiseNotConvertible(v);
}

float CSng(const Variant& v) {
  if (v.Type() == VarType::kSingle) return v.AsSingle();
  const double d = CDbl(v);
  if (std::isinf(d) || std::fabs(d) > static_cast<double>(std::numeric_limits<float>::max())) Raise(err::kOverflow);
  return static_cast<float>(d);
}

int32_t CLng(const Variant& v) {
  if (v.Type() == VarType::kLong) return v.AsLong();
  return RoundToLong(CDbl(v));
}

int16_t CInt(const Variant& v) {
  if (v.Type() == VarType::kInteger) return v.AsInteger();
  return RoundToInteger(CDbl(v));
}

bool CBool(const Variant& v) {
  switch (v.Type()) {
    case VarType::kBoolean:
      return v.AsBoolean();
    case VarType::kString: {
      const StringView text = detail::TrimNumberSpace(v.AsString());
      if (EqualsIgnoreCase(text, u"True")) return true;
      if (EqualsIgnoreCase(text, u"False")) return false;
      if (const auto d = ParseNumber(v.AsString())) return *d != 0;
      Raise(err::kTypeMismatch);
    }
    default:
      return CDbl(v) != 0;
  }
}

String CStr(const Variant& v) {
  switch (v.Type()) {
    case VarType::kEmpty:
      return {};
    case VarType::kNull:
      Raise(err::kInvalidUseOfNull);
    case VarType::kInteger:
      return ToDecimal(v.AsInteger());
    case VarType::kLong:
      return ToDecimal(v.AsLong());
    case VarType::kSingle:
      return FormatGeneral(v.AsSingle());
    case VarType::kDouble:
      return FormatGeneral(v.AsDouble());
    case VarType::kBoolean:
      return v.AsBoolean() ? u"True" : u"False";
    case VarType::kString:
      return v.AsString();
    case VarType::kObject:
    case VarType::kArray:
      break;
  }
  RaiseNotConvertible(v);
}

}  // namespace vd::automation
