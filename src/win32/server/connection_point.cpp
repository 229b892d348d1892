#include "server/connection_point.h"

#include <windows.h>

#include <olectl.h>

#include "convert/error_convert.h"
#include "server/ref_count.h"

namespace vd::win32 {
namespace {

class ConnectionPointEnum final : public IEnumConnectionPoints {
 public:
  ConnectionPointEnum(IConnectionPointContainer* owner, IConnectionPoint* point, ULONG position)
      : owner_(owner), point_(point), position_(position) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) noexcept override {
    if (!out) return E_POINTER;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IEnumConnectionPoints)) {
      *out = static_cast<IEnumConnectionPoints*>(this);
      AddRef();
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return refs_.Up(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override {
    ULONG left = refs_.Down();
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, IConnectionPoint** points, ULONG* fetched) noexcept override {
    if (!points || (wanted > 1 && !fetched)) return E_POINTER;
    ULONG given = 0;
    if (wanted > 0 && position_ == 0) {
      points[0] = point_.Get();
      points[0]->AddRef();
      ++position_;
      given = 1;
    }
    if (fetched) *fetched = given;
    return given == wanted ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override {
    ULONG left = position_ == 0 ? 1 : 0;
    position_ += count < left ? count : left;
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() noexcept override {
    position_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** out) noexcept override {
    if (!out) return E_POINTER;
    *out = new (std::nothrow) ConnectionPointEnum(owner_.Get(), point_.Get(), position_);
    return *out ? S_OK : E_OUTOFMEMORY;
  }

 private:
  ~ConnectionPointEnum() = default;
  ComPtr<IConnectionPointContainer> owner_{};
  ComPtr<IConnectionPoint> point_{};
  ULONG position_;
  RefCount refs_;
};

}  // namespace

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** out) noexcept {
  if (!out) return E_POINTER;
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IConnectionPoint)) {
    *out = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
  }
  *out = nullptr;
  return E_NOINTERFACE;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) noexcept {
  if (!iid) return E_POINTER;
  *iid = eventIid_;
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept {
  if (!container) return E_POINTER;
  owner_->AddRef();
  *container = owner_;
  return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
  if (!cookie) return E_POINTER;
  *cookie = 0;
  if (!sink) return E_POINTER;
  ComPtr<IDispatch> dispatch;
  if (FAILED(sink->QueryInterface(eventIid_, dispatch.PutVoid())) || !dispatch) {
    if (FAILED(sink->QueryInterface(IID_IDispatch, dispatch.PutVoid())) || !dispatch) return CONNECT_E_CANNOTCONNECT;
  }
  HRESULT hr = HResultBoundary([&] { sinks_.emplace_back(nextCookie_, std::move(dispatch)); });
  if (FAILED(hr)) return hr;
  *cookie = nextCookie_++;
  return S_OK;
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) noexcept {
  for (auto it = sinks_.begin(); it != sinks_.end(); ++it) {
    if (it->first == cookie) {
      ComPtr<IDispatch> released = std::move(it->second);  // released after the list is consistent
      sinks_.erase(it);
      return S_OK;
    }
  }
  return CONNECT_E_NOCONNECTION;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept {
  if (connections) *connections = nullptr;
  return E_NOTIMPL;
}

void ConnectionPoint::Fire(DISPID id, VARIANT* argsLastFirst, UINT count) {
  std::vector<ComPtr<IDispatch>> snapshot;
  snapshot.reserve(sinks_.size());
  for (const auto& [cookie, sink] : sinks_) snapshot.push_back(sink);
  for (const auto& sink : snapshot) {
    DISPPARAMS params{argsLastFirst, nullptr, count, 0};
    EXCEPINFO info{};
    UINT argError = 0;
    SetErrorInfo(0, nullptr);
    HRESULT hr = sink->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, nullptr, &info, &argError);
    if (hr == DISP_E_MEMBERNOTFOUND || hr == DISP_E_UNKNOWNNAME) continue;
    if (FAILED(hr)) throw ErrorFromInvoke(hr, info);
  }
}

HRESULT EnumerateConnectionPoints(IConnectionPointContainer* owner, IConnectionPoint* point,
                                  IEnumConnectionPoints** out) {
  if (!out) return E_POINTER;
  *out = new (std::nothrow) ConnectionPointEnum(owner, point, 0);
  return *out ? S_OK : E_OUTOFMEMORY;
}

}  // namespace vd::win32
