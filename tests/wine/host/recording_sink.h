#pragma once
// Test-only: a sink of the __VarDeskUI events that records each event and the
// object it brought, and may replace that object (it is passed by reference)
// or fail the event. Owned by the test: Release never deletes it.
#include <windows.h>

#include <oaidl.h>

#include <vector>

#include "VarDeskGUI.h"
#include "com/com_ptr.h"

namespace vd::testhost {

class RecordingSink final : public IDispatch {
 public:
  std::vector<DISPID> events;
  std::vector<IDispatch*> seen;  // the object each event brought (not owned)
  win32::ComPtr<IDispatch> replacement;
  HRESULT failWith = S_OK;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) || IsEqualIID(iid, DIID___VarDeskUI)) {
      *out = static_cast<IDispatch*>(this);
      AddRef();
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++refs; }
  ULONG STDMETHODCALLTYPE Release() override { return --refs; }  // owned by the test
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* n) override {
    *n = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT*, EXCEPINFO* info,
                                   UINT*) override {
    events.push_back(id);
    if (params->cArgs != 1 || params->rgvarg[0].vt != (VT_BYREF | VT_DISPATCH)) return DISP_E_TYPEMISMATCH;
    IDispatch** slot = params->rgvarg[0].ppdispVal;
    seen.push_back(*slot);
    if (failWith != S_OK) {
      info->scode = failWith;
      info->bstrDescription = SysAllocString(L"The host refused");
      return DISP_E_EXCEPTION;
    }
    if (replacement) {
      if (*slot) (*slot)->Release();
      *slot = win32::ComPtr<IDispatch>(replacement).Detach();
    }
    return S_OK;
  }
  ULONG refs = 1;
};

}  // namespace vd::testhost
