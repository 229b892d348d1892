#include "vd/automation/conversions.h"

#include <cmath>
#include <limits>

#include "vd/automation/error.h"
#include "vd/automation/numeric.h"
#include "vd/automation/text.h"

namespace vd::automation {

int32_t RoundToLong(double value) {
  if (std::isnan(value)) Raise(err::kOverflow);
  const double r = std::nearbyint(value);  // default rounding mode: half to even
  if (r < -2147483648.0 || r > 2147483647.0) Raise(err::kOverflow);
  return static_cast<int32_t>(r);
}

int16_t RoundToInteger(double value) {
  if (std::isnan(value)) Raise(err::kOverflow);
  const double r = std::nearbyint(value);
  if (r < -32768.0 || r > 32767.0) Raise(err::kOverflow);
  return static_cast<int16_t>(r);
}

double CDbl(const Variant& v) {
  switch (v.Type()) {
    case VarType::kEmpty: return 0;
    case VarType::kNull: Raise(err::kInvalidUseOfNull);
    case VarType::kInteger: return v.AsInteger();
    case VarType::kLong: return v.AsLong();
    case VarType::kSingle: return v.AsSingle();
    case VarType::kDouble: return v.AsDouble();
    case VarType::kBoolean: return v.AsBoolean() ? -1 : 0;
    case VarType::kString: {
      if (const auto d = ParseNumber(v.AsString())) return *d;
      Raise(err::kTypeMismatch);
    }
    case VarType::kObject:
    case VarType::kArray: break;
  }
  Raise(err::kTypeMismatch);
}

float CSng(const Variant& v) {
  const double d = CDbl(v);
  if (std::isfinite(d) && std::fabs(d) > static_cast<double>(std::numeric_limits<float>::max())) Raise(err::kOverflow);
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
    case VarType::kBoolean: return v.AsBoolean();
    case VarType::kString: {
      const String& s = v.AsString();
      const String t = Trim(s);
      if (EqualsIgnoreCase(t, u"True")) return true;
      if (EqualsIgnoreCase(t, u"False")) return false;
      if (const auto d = ParseNumber(s)) return *d != 0;
      Raise(err::kTypeMismatch);
    }
    default: return CDbl(v) != 0;
  }
}

String CStr(const Variant& v) {
  switch (v.Type()) {
    case VarType::kEmpty: return {};
    case VarType::kNull: Raise(err::kInvalidUseOfNull);
    case VarType::kInteger: return ToDecimal(v.AsInteger());
    case VarType::kLong: return ToDecimal(v.AsLong());
    case VarType::kSingle: return FormatGeneral(v.AsSingle());
    case VarType::kDouble: return FormatGeneral(v.AsDouble());
    case VarType::kBoolean: return v.AsBoolean() ? u"True" : u"False";
    case VarType::kString: return v.AsString();
    case VarType::kObject:
    case VarType::kArray: break;
  }
  Raise(err::kTypeMismatch);
}

}  // namespace vd::automation
