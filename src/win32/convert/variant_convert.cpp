#include "convert/variant_convert.h"

#include <cmath>
#include <cstring>
#include <limits>

#include "com/bstr.h"
#include "com/safe_array.h"
#include "convert/object_convert.h"
#include "vd/automation/error.h"

namespace vd::win32 {
namespace {

using automation::Variant;

Variant FromWhole(long long n) {
  if (n >= std::numeric_limits<int16_t>::min() && n <= std::numeric_limits<int16_t>::max())
    return Variant(static_cast<int16_t>(n));
  if (n >= std::numeric_limits<int32_t>::min() && n <= std::numeric_limits<int32_t>::max())
    return Variant(static_cast<int32_t>(n));
  return Variant(static_cast<double>(n));
}

Variant FromLong(long long n) {
  if (n >= std::numeric_limits<int32_t>::min() && n <= std::numeric_limits<int32_t>::max())
    return Variant(static_cast<int32_t>(n));
  return Variant(static_cast<double>(n));
}

Variant FromUnknown(IUnknown* unknown) {
  if (!unknown) return Variant(automation::ObjectRef());
  ComPtr<IDispatch> dispatch;
  if (FAILED(unknown->QueryInterface(IID_IDispatch, dispatch.PutVoid())) || !dispatch)
    automation::Raise(automation::err::kTypeMismatch);
  return Variant(ObjectFromDispatch(dispatch.Get()));
}

// Element type of the array's VARIANTs, by its SAFEARRAY features.
Variant FromArray(SAFEARRAY* array, VARTYPE elementType) {
  if (!array) return Variant(automation::Array{});
  if (SafeArrayGetDim(array) != 1) automation::Raise(automation::err::kTypeMismatch);
  LONG lower = 0;
  LONG upper = -1;
  SafeArrayGetLBound(array, 1, &lower);
  SafeArrayGetUBound(array, 1, &upper);
  automation::Array result;
  result.lowerBound = lower;
  SafeArrayLockGuard lock(array);
  if (!lock.Locked()) automation::Raise(automation::err::kTypeMismatch);
  const auto* data = static_cast<const unsigned char*>(array->pvData);
  const UINT size = SafeArrayGetElemsize(array);
  for (LONG i = lower; i <= upper; ++i) {
    const unsigned char* element = data + static_cast<size_t>(i - lower) * size;
    if (elementType == VT_VARIANT) {
      result.items.push_back(FromVariant(*reinterpret_cast<const VARIANT*>(element)));
    } else {
      // A borrowed view of the element as a VARIANT of its type: read, never cleared.
      VARIANT view;
      VariantInit(&view);
      view.vt = elementType;
      std::memcpy(&view.llVal, element, size < sizeof(view.llVal) ? size : sizeof(view.llVal));
      result.items.push_back(FromVariant(view));
    }
  }
  return Variant(std::move(result));
}

}  // namespace

Variant FromVariant(const VARIANT& value) {
  const VARTYPE type = value.vt;
  if (type == (VT_BYREF | VT_VARIANT)) {
    if (!value.pvarVal) return Variant();
    return FromVariant(*value.pvarVal);
  }
  if (type & VT_ARRAY) {
    SAFEARRAY* array = (type & VT_BYREF) ? (value.pparray ? *value.pparray : nullptr) : value.parray;
    return FromArray(array, static_cast<VARTYPE>(type & VT_TYPEMASK));
  }
  if (type & VT_BYREF) {
    // Read the referenced value through a borrowed plain VARIANT of its type.
    if (!value.byref) return Variant();
    VARIANT view;
    VariantInit(&view);
    view.vt = static_cast<VARTYPE>(type & ~VT_BYREF);
    switch (view.vt) {
      case VT_BSTR:
        view.bstrVal = *value.pbstrVal;
        break;
      case VT_DISPATCH:
        view.pdispVal = *value.ppdispVal;
        break;
      case VT_UNKNOWN:
        view.punkVal = *value.ppunkVal;
        break;
      case VT_DECIMAL:
        view.decVal = *value.pdecVal;
        view.vt = VT_DECIMAL;
        break;
      case VT_I1:
      case VT_UI1:
        view.bVal = *value.pbVal;
        break;
      case VT_I2:
      case VT_UI2:
      case VT_BOOL:
        view.iVal = *value.piVal;
        break;
      case VT_I4:
      case VT_UI4:
      case VT_INT:
      case VT_UINT:
      case VT_R4:
      case VT_ERROR:
        view.lVal = *value.plVal;
        break;
      case VT_I8:
      case VT_UI8:
      case VT_R8:
      case VT_CY:
      case VT_DATE:
        view.llVal = *value.pllVal;
        break;
      default:
        automation::Raise(automation::err::kTypeMismatch);
    }
    return FromVariant(view);
  }
  switch (type) {
    case VT_EMPTY:
      return Variant();
    case VT_NULL:
      return Variant::Null();
    case VT_I1:
      return Variant(static_cast<int16_t>(value.cVal));
    case VT_UI1:
      return Variant(static_cast<int16_t>(value.bVal));
    case VT_I2:
      return Variant(static_cast<int16_t>(value.iVal));
    case VT_UI2:
      return Variant(static_cast<int32_t>(value.uiVal));
    case VT_I4:
      return Variant(static_cast<int32_t>(value.lVal));
    case VT_INT:
      return Variant(static_cast<int32_t>(value.intVal));
    case VT_UI4:
      return FromLong(value.ulVal);
    case VT_UINT:
      return FromLong(value.uintVal);
    case VT_I8:
      return FromWhole(value.llVal);
    case VT_UI8:
      if (value.ullVal > static_cast<unsigned long long>(std::numeric_limits<long long>::max()))
        return Variant(static_cast<double>(value.ullVal));
      return FromLong(static_cast<long long>(value.ullVal));
    case VT_R4:
      return Variant(value.fltVal);
    case VT_R8:
      return Variant(value.dblVal);
    case VT_DATE:
      return Variant(value.date);
    case VT_CY:
      return Variant(static_cast<double>(value.cyVal.int64) / 10000.0);
    case VT_DECIMAL: {
      double d = 0;
      DECIMAL decimal = value.decVal;
      if (FAILED(VarR8FromDec(&decimal, &d))) automation::Raise(automation::err::kOverflow);
      return Variant(d);
    }
    case VT_BOOL:
      return Variant(value.boolVal != VARIANT_FALSE);
    case VT_BSTR:
      return Variant(ToString(value.bstrVal));
    case VT_DISPATCH:
      return Variant(ObjectFromDispatch(value.pdispVal));
    case VT_UNKNOWN:
      return FromUnknown(value.punkVal);
    case VT_ERROR:
      return Variant();  // a missing optional argument
    default:
      automation::Raise(automation::err::kTypeMismatch);
  }
}

void ToVariant(const Variant& value, VARIANT& out) {
  VariantInit(&out);
  switch (value.Type()) {
    case automation::VarType::kEmpty:
      break;
    case automation::VarType::kNull:
      out.vt = VT_NULL;
      break;
    case automation::VarType::kInteger:
      out.vt = VT_I2;
      out.iVal = value.AsInteger();
      break;
    case automation::VarType::kLong:
      out.vt = VT_I4;
      out.lVal = value.AsLong();
      break;
    case automation::VarType::kSingle:
      out.vt = VT_R4;
      out.fltVal = value.AsSingle();
      break;
    case automation::VarType::kDouble:
      out.vt = VT_R8;
      out.dblVal = value.AsDouble();
      break;
    case automation::VarType::kBoolean:
      out.vt = VT_BOOL;
      out.boolVal = value.AsBoolean() ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case automation::VarType::kString:
      out.bstrVal = Bstr(value.AsString()).Detach();
      out.vt = VT_BSTR;
      break;
    case automation::VarType::kObject:
      out.pdispVal = DispatchFromObject(value.AsObject()).Detach();
      out.vt = VT_DISPATCH;
      break;
    case automation::VarType::kArray: {
      const automation::Array& array = value.AsArray();
      SAFEARRAYBOUND bound{static_cast<ULONG>(array.items.size()), array.lowerBound};
      SafeArray created(SafeArrayCreate(VT_VARIANT, 1, &bound));
      if (!created.Get()) throw std::bad_alloc();
      {
        SafeArrayLockGuard lock(created.Get());
        auto* elements = static_cast<VARIANT*>(created.Get()->pvData);
        for (size_t i = 0; i < array.items.size(); ++i) ToVariant(array.items[i], elements[i]);
      }
      out.parray = created.Detach();
      out.vt = VT_ARRAY | VT_VARIANT;
      break;
    }
  }
}

UniqueVariant ToVariant(const Variant& value) {
  UniqueVariant result;
  ToVariant(value, *result.Put());
  return result;
}

}  // namespace vd::win32
