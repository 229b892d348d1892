#include "event_bridge.h"

#include <array>
#include <new>
#include <vector>

#include "com/bstr.h"
#include "com/unique_variant.h"
#include "convert/error_convert.h"
#include "convert/object_convert.h"
#include "convert/variant_convert.h"
#include "dispatch/dispatch_caller.h"
#include "expose/exposed_object.h"
#include "server/ref_count.h"
#include "vd/automation/error.h"
#include "vd/sample/sample_file.h"

namespace vd::testbridge {

using win32::ComPtr;

// The sink the bridge connects: answers the source interface as IDispatch.
class RelaySink final : public IDispatch {
 public:
  RelaySink(const IID& eventIid, ComPtr<ITypeInfo> events, ComPtr<IDispatch> handler, std::shared_ptr<int32_t> relayed)
      : eventIid_(eventIid), events_(std::move(events)), handler_(std::move(handler)), relayed_(std::move(relayed)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!out) return E_POINTER;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) || IsEqualIID(iid, eventIid_)) {
      *out = static_cast<IDispatch*>(this);
      AddRef();
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return refs_.Up(); }
  ULONG STDMETHODCALLTYPE Release() override {
    ULONG left = refs_.Down();
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count) *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT*, EXCEPINFO* exception,
                                   UINT*) override {
    if (!params) return E_POINTER;
    try {
      win32::Bstr name;
      UINT found = 0;
      if (FAILED(events_->GetNames(id, name.Put(), 1, &found)) || found == 0) return DISP_E_MEMBERNOTFOUND;
      Relay(name.ToString(), *params);
      ++*relayed_;
      return S_OK;
    } catch (...) {
      automation::AutomationError error = win32::ErrorFromCurrentException();
      if (!exception) return win32::HResultFromNumber(error.Number());
      win32::FillExcepInfo(error, L"VdTestBridge.EventBridge", *exception);
      return DISP_E_EXCEPTION;
    }
  }

 private:
  ~RelaySink() = default;

  // Calls handler.<name>(args...) in call order; by-reference objects travel
  // in VARIANT slots that the handler may overwrite.
  void Relay(const automation::String& name, const DISPPARAMS& params) {
    const UINT count = params.cArgs;
    std::vector<win32::UniqueVariant> slots(count);
    std::vector<win32::CallArg> args;
    args.reserve(count);
    for (UINT i = 0; i < count; ++i) {
      VARIANT& raw = params.rgvarg[count - 1 - i];
      if (raw.vt == (VT_BYREF | VT_DISPATCH)) {
        VARIANT* slot = slots[i].Put();
        slot->vt = VT_DISPATCH;
        slot->pdispVal = *raw.ppdispVal;
        if (slot->pdispVal) slot->pdispVal->AddRef();
        args.push_back(win32::CallArg::ByRef(slots[i]));
      } else {
        args.emplace_back(win32::FromVariant(raw));
      }
    }
    win32::DispatchCaller caller(handler_);
    caller.Call(name, args);
    for (UINT i = 0; i < count; ++i) {
      VARIANT& raw = params.rgvarg[count - 1 - i];
      if (raw.vt != (VT_BYREF | VT_DISPATCH)) continue;
      const VARIANT& slot = slots[i].Ref();
      IDispatch* replacement = nullptr;
      if (slot.vt == VT_DISPATCH)
        replacement = slot.pdispVal;
      else if (slot.vt != VT_EMPTY && slot.vt != VT_NULL)
        automation::Raise(automation::err::kTypeMismatch);
      if (replacement == *raw.ppdispVal) continue;
      if (replacement) replacement->AddRef();
      if (*raw.ppdispVal) (*raw.ppdispVal)->Release();
      *raw.ppdispVal = replacement;
    }
  }

  IID eventIid_;
  ComPtr<ITypeInfo> events_;
  ComPtr<IDispatch> handler_;
  std::shared_ptr<int32_t> relayed_;
  win32::RefCount refs_;
};

namespace {

// The default source dispinterface of the object's class.
ComPtr<ITypeInfo> DefaultSourceOf(IDispatch* source) {
  ComPtr<IDispatch> holder(source);
  auto classInfo = holder.As<IProvideClassInfo>();
  if (!classInfo) automation::Raise(automation::err::kMethodNotSupported, u"The object tells no class info");
  ComPtr<ITypeInfo> coclass;
  if (FAILED(classInfo->GetClassInfo(coclass.Put())) || !coclass)
    automation::Raise(automation::err::kMethodNotSupported, u"The object tells no class info");
  TYPEATTR* attr = nullptr;
  if (FAILED(coclass->GetTypeAttr(&attr)) || !attr) automation::Raise(automation::err::kTypeMismatch);
  const WORD implemented = attr->cImplTypes;
  coclass->ReleaseTypeAttr(attr);
  for (UINT i = 0; i < implemented; ++i) {
    INT flags = 0;
    if (FAILED(coclass->GetImplTypeFlags(i, &flags))) continue;
    if ((flags & IMPLTYPEFLAG_FSOURCE) && (flags & IMPLTYPEFLAG_FDEFAULT)) {
      HREFTYPE ref = 0;
      ComPtr<ITypeInfo> events;
      if (SUCCEEDED(coclass->GetRefTypeOfImplType(i, &ref)) && SUCCEEDED(coclass->GetRefTypeInfo(ref, events.Put())))
        return events;
    }
  }
  automation::Raise(automation::err::kMethodNotSupported, u"The object's class has no events");
}

}  // namespace

EventBridge::~EventBridge() { Disconnect(); }

void EventBridge::Connect(IDispatch* source, IDispatch* handler) {
  if (!source || !handler) automation::Raise(automation::err::kObjectNotSet);
  Disconnect();
  ComPtr<IDispatch> holder(source);
  auto classInfo2 = holder.As<IProvideClassInfo2>();
  GUID eventIid = GUID_NULL;
  if (!classInfo2 || FAILED(classInfo2->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &eventIid)))
    automation::Raise(automation::err::kMethodNotSupported, u"The object names no event interface");
  auto container = holder.As<IConnectionPointContainer>();
  if (!container) automation::Raise(automation::err::kMethodNotSupported, u"The object has no connection points");
  ComPtr<IConnectionPoint> point;
  HRESULT hr = container->FindConnectionPoint(eventIid, point.Put());
  if (FAILED(hr)) throw win32::ErrorFromHResult(hr);
  auto* sink = new RelaySink(eventIid, DefaultSourceOf(source), ComPtr<IDispatch>(handler), relayed_);
  ComPtr<IDispatch> sinkHolder = ComPtr<IDispatch>::Attach(sink);
  hr = point->Advise(sinkHolder.Get(), &cookie_);
  if (FAILED(hr)) throw win32::ErrorFromHResult(hr);
  point_ = point;
}

void EventBridge::Disconnect() {
  if (point_) point_->Unadvise(cookie_);
  point_.Reset();
  cookie_ = 0;
}

namespace {

const std::array<win32::Member<EventBridge>, 4> kMembers{{
    {u"Connect",
     [](EventBridge& b, const win32::InvokeArgs& a) {
       b.Connect(win32::DispatchFromObject(a.Value(0).AsObject()).Get(),
                 win32::DispatchFromObject(a.Value(1).AsObject()).Get());
       return automation::Variant();
     }},
    {u"Disconnect",
     [](EventBridge& b, const win32::InvokeArgs&) {
       b.Disconnect();
       return automation::Variant();
     }},
    {u"EventsRelayed", [](EventBridge& b, const win32::InvokeArgs&) { return automation::Variant(b.EventsRelayed()); }},
    // The sample's in-memory display of a sample file's JSON text: the display
    // a script hands to the component, another module's objects.
    {u"SampleDisplay",
     [](EventBridge&, const win32::InvokeArgs& a) {
       const std::string json = automation::ToUtf8(a.Value(0).AsString());
       return automation::Variant(automation::ObjectRef(sample::LoadDisplayText(json, "display", ".").display));
     }},
}};

}  // namespace

HRESULT CreateEventBridge(REFIID iid, void** out) {
  try {
    auto exposed = win32::ExposeWith<EventBridge>(std::make_shared<EventBridge>(), kMembers);
    return exposed->QueryInterface(iid, out);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace vd::testbridge
