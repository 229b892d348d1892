#include "server/selection_handler_object.h"

#include "com/unique_variant.h"

namespace vd::win32 {

HRESULT SelectionHandlerObject::Create(REFIID iid, void** out) noexcept { return Make(iid, out); }

// The argument is copied into a local and released again; the result is
// never assigned.
HRESULT SelectionHandlerObject::SetSelectedVariable(IDispatch* var, VARIANT* result) noexcept {
  if (result) VariantInit(result);
  UniqueVariant local;
  if (var) {
    var->AddRef();
    local.Get()->vt = VT_DISPATCH;
    local.Get()->pdispVal = var;
  }
  return S_OK;
}

// Converted from a local Variant that is never assigned: always Nothing.
HRESULT SelectionHandlerObject::GetSelectedVariable(IDispatch** selected) noexcept {
  if (!selected) return E_POINTER;
  *selected = nullptr;
  return S_OK;
}

HRESULT SelectionHandlerObject::GetClassInfo(ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  return ContainOr(TYPE_E_CANTLOADLIBRARY, [&] {
    *info = ModuleTypeInfo(CLSID_SelectionHandler).Detach();
    return S_OK;
  });
}

HRESULT SelectionHandlerObject::InterfaceSupportsErrorInfo(REFIID iid) noexcept {
  return IsEqualIID(iid, IID__SelectionHandler) ? S_OK : S_FALSE;
}

}  // namespace vd::win32
