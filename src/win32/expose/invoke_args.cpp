#include "expose/invoke_args.h"

#include "com/unique_variant.h"
#include "convert/error_convert.h"
#include "convert/variant_convert.h"

namespace vd::win32 {

VARIANT& InvokeArgs::Raw(size_t i) const {
  if (i >= params_.cArgs) automation::Raise(errnum::kWrongArgumentCount);
  return params_.rgvarg[params_.cArgs - 1 - i];
}

automation::Variant InvokeArgs::Value(size_t i) const { return FromVariant(Raw(i)); }

void InvokeArgs::SetOut(size_t i, const automation::Variant& value) const {
  VARIANT& target = Raw(i);
  if (!(target.vt & VT_BYREF) || !target.byref) return;
  if (target.vt == (VT_BYREF | VT_VARIANT)) {
    VariantClear(target.pvarVal);
    ToVariant(value, *target.pvarVal);
    return;
  }
  // A typed reference: convert to its type, then move into place.
  const auto type = static_cast<VARTYPE>(target.vt & ~VT_BYREF);
  UniqueVariant source = ToVariant(value);
  UniqueVariant converted;
  HRESULT hr = VariantChangeType(converted.Put(), source.Get(), 0, type);
  if (FAILED(hr)) throw ErrorFromHResult(hr);
  VARIANT moved = converted.Detach();
  switch (type) {
    case VT_BSTR:
      SysFreeString(*target.pbstrVal);
      *target.pbstrVal = moved.bstrVal;
      break;
    case VT_DISPATCH:
      if (*target.ppdispVal) (*target.ppdispVal)->Release();
      *target.ppdispVal = moved.pdispVal;
      break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      *target.piVal = moved.iVal;
      break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
      *target.plVal = moved.lVal;
      break;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      *target.pllVal = moved.llVal;
      break;
    case VT_I1:
    case VT_UI1:
      *target.pbVal = moved.bVal;
      break;
    default:
      VariantClear(&moved);
      automation::Raise(automation::err::kTypeMismatch);
  }
}

}  // namespace vd::win32
