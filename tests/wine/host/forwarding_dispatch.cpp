#include "forwarding_dispatch.h"

#include "server/module.h"

namespace vd::testhost {
namespace {

using win32::ComPtr;

class ForwardingDispatch final : public IDispatchEx {
 public:
  ForwardingDispatch(IDispatch* target, NameLookup lookup, const GUID& typeGuid, std::shared_ptr<LookupCounts> counts)
      : target_(target), lookup_(lookup), typeGuid_(typeGuid), counts_(std::move(counts)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    const bool ex = lookup_ == NameLookup::kDispatchExOnly && IsEqualIID(iid, __uuidof(IDispatchEx));
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IDispatch) && !ex) return E_NOINTERFACE;
    *out = static_cast<IDispatchEx*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++refs_; }
  ULONG STDMETHODCALLTYPE Release() override {
    ULONG left = --refs_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = IsEqualGUID(typeGuid_, GUID_NULL) ? 0 : 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    *info = nullptr;
    if (IsEqualGUID(typeGuid_, GUID_NULL)) return TYPE_E_ELEMENTNOTFOUND;
    try {
      *info = win32::ModuleTypeInfo(typeGuid_).Detach();
      return S_OK;
    } catch (...) {
      return TYPE_E_ELEMENTNOTFOUND;
    }
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
    if (lookup_ == NameLookup::kDispatchExOnly) return E_NOTIMPL;
    ++counts_->getIDsOfNames;
    return target_->GetIDsOfNames(iid, names, count, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params, VARIANT* result,
                                   EXCEPINFO* exception, UINT* argError) override {
    ++counts_->invoke;
    HRESULT hr = target_->Invoke(id, iid, locale, flags, params, result, exception, argError);
    if (SUCCEEDED(hr) && result && result->vt == VT_DISPATCH && result->pdispVal) {
      ComPtr<IDispatch> original = ComPtr<IDispatch>::Attach(result->pdispVal);
      result->pdispVal = Forward(original.Get(), lookup_, GUID_NULL, counts_).Detach();
    }
    return hr;
  }
  HRESULT STDMETHODCALLTYPE GetDispID(BSTR name, DWORD, DISPID* id) override {
    ++counts_->getDispID;
    LPOLESTR names[] = {name};
    return target_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, id);
  }
  HRESULT STDMETHODCALLTYPE InvokeEx(DISPID id, LCID locale, WORD flags, DISPPARAMS* params, VARIANT* result,
                                     EXCEPINFO* exception, IServiceProvider*) override {
    return Invoke(id, IID_NULL, locale, flags, params, result, exception, nullptr);
  }
  HRESULT STDMETHODCALLTYPE DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

 private:
  ~ForwardingDispatch() = default;
  ComPtr<IDispatch> target_;
  NameLookup lookup_;
  GUID typeGuid_;
  std::shared_ptr<LookupCounts> counts_;
  ULONG refs_ = 1;
};

}  // namespace

ComPtr<IDispatch> Forward(IDispatch* target, NameLookup lookup, const GUID& typeGuid,
                          std::shared_ptr<LookupCounts> counts) {
  return ComPtr<IDispatch>::Attach(new ForwardingDispatch(target, lookup, typeGuid, std::move(counts)));
}

}  // namespace vd::testhost
