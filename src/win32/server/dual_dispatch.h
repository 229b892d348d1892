#pragma once
// IDispatch for a dual interface I from the module's type library. A method
// that fails with rich error info reaches late-bound callers as
// DISP_E_EXCEPTION with that info in the EXCEPINFO, so a script sees the
// error's number and description.
#include <windows.h>

#include <oaidl.h>

#include "com/com_ptr.h"
#include "convert/error_convert.h"
#include "server/module.h"

namespace vd::win32 {

// Fills the EXCEPINFO from the thread's error info when the failure left one.
HRESULT ExceptionFromErrorInfo(HRESULT hr, EXCEPINFO* exception);

template <class I>
class DualDispatch : public I {
 public:
  using Interface = I;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    ITypeInfo* typeInfo = TypeInfo();
    if (!typeInfo) return TYPE_E_CANTLOADLIBRARY;
    typeInfo->AddRef();
    *info = typeInfo;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) noexcept override {
    if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    ITypeInfo* typeInfo = TypeInfo();
    if (!typeInfo) return TYPE_E_CANTLOADLIBRARY;
    return DispGetIDsOfNames(typeInfo, names, count, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                   EXCEPINFO* exception, UINT* argError) noexcept override {
    if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    ITypeInfo* typeInfo = TypeInfo();
    if (!typeInfo) return TYPE_E_CANTLOADLIBRARY;
    SetErrorInfo(0, nullptr);
    HRESULT hr = DispInvoke(static_cast<I*>(this), typeInfo, id, flags, params, result, exception, argError);
    return ExceptionFromErrorInfo(hr, exception);
  }

 protected:
  ITypeInfo* TypeInfo() {
    if (!typeInfo_) {
      typeInfo_ = ContainOr(ComPtr<ITypeInfo>(), [] { return ModuleTypeInfo(__uuidof(I)); });
    }
    return typeInfo_.Get();
  }

 private:
  ComPtr<ITypeInfo> typeInfo_;
};

}  // namespace vd::win32
