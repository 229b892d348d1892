#include "server/selection_handler_object.h"

#include <new>

#include "com/unique_variant.h"

namespace vd::win32 {

HRESULT SelectionHandlerObject::Create(REFIID iid, void** out) noexcept {
  if (!out) return E_POINTER;
  *out = nullptr;
  auto* created = new (std::nothrow) SelectionHandlerObject();
  if (!created) return E_OUTOFMEMORY;
  HRESULT hr = created->QueryInterface(iid, out);
  created->Release();
  return hr;
}

HRESULT SelectionHandlerObject::QueryInterface(REFIID iid, void** out) noexcept {
  if (!out) return E_POINTER;
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) || IsEqualIID(iid, IID__SelectionHandler)) {
    *out = static_cast<_SelectionHandler*>(this);
  } else if (IsEqualIID(iid, IID_IProvideClassInfo)) {
    *out = static_cast<IProvideClassInfo*>(this);
  } else if (IsEqualIID(iid, IID_ISupportErrorInfo)) {
    *out = static_cast<ISupportErrorInfo*>(this);
  } else {
    *out = nullptr;
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG SelectionHandlerObject::Release() noexcept {
  ULONG left = refs_.Down();
  if (left == 0) delete this;
  return left;
}

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
