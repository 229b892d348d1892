#pragma once
// A thin IDispatch that passes every call to the object it wraps, so that the
// adapters take an object this module exposed for a foreign host's, as they do
// across two modules; objects that come back are wrapped in turn. Counts the
// calls that cross it.
#include <windows.h>

#include <oaidl.h>

#include <utility>

#include "com/com_ptr.h"

namespace vd::bench {

struct CallCounts {
  long invokes = 0;
  long nameLookups = 0;
  long typeInfoQueries = 0;
};
inline CallCounts counts;

// Passes every call to the object it wraps; objects that come back are
// wrapped in turn.
class Forwarder final : public IDispatch {
 public:
  explicit Forwarder(vd::win32::ComPtr<IDispatch> inner) : inner_(std::move(inner)) {}
  Forwarder(const Forwarder&) = delete;
  Forwarder& operator=(const Forwarder&) = delete;
  ~Forwarder() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!out) return E_POINTER;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch)) {
      *out = static_cast<IDispatch*>(this);
      AddRef();
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++refs_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --refs_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    ++counts.typeInfoQueries;
    return inner_->GetTypeInfoCount(count);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID lcid, ITypeInfo** info) override {
    ++counts.typeInfoQueries;
    return inner_->GetTypeInfo(index, lcid, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID lcid, DISPID* ids) override {
    ++counts.nameLookups;
    return inner_->GetIDsOfNames(iid, names, count, lcid, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* params, VARIANT* result,
                                   EXCEPINFO* info, UINT* argError) override {
    ++counts.invokes;
    const HRESULT hr = inner_->Invoke(id, iid, lcid, flags, params, result, info, argError);
    if (SUCCEEDED(hr) && result != nullptr && result->vt == VT_DISPATCH && result->pdispVal != nullptr) {
      IDispatch* wrapped = new Forwarder(vd::win32::ComPtr<IDispatch>::Attach(result->pdispVal));
      result->pdispVal = wrapped;
    }
    return hr;
  }

 private:
  vd::win32::ComPtr<IDispatch> inner_;
  ULONG refs_ = 1;
};

}  // namespace vd::bench
