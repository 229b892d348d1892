#include "server/connection_point.h"

#include <windows.h>

#include <olectl.h>

#include "convert/error_convert.h"
#include "server/com_object.h"

namespace vd::win32 {
namespace {

class ConnectionPointEnum final : public ComObject<ConnectionPointEnum, IEnumConnectionPoints> {
  friend ComObject;

 public:
  ConnectionPointEnum(IConnectionPointContainer* owner, IConnectionPoint* point, ULONG position)
      : owner_(owner), point_(point), position_(position) {}

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
    return Make(IID_IEnumConnectionPoints, reinterpret_cast<void**>(out), owner_.Get(), point_.Get(), position_);
  }

 private:
  ~ConnectionPointEnum() = default;
  ComPtr<IConnectionPointContainer> owner_{};
  ComPtr<IConnectionPoint> point_{};
  ULONG position_;
};

}  // namespace

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** out) noexcept {
  return QueryFromTable<IConnectionPoint>(this, iid, out);
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
  return ConnectionPointEnum::Make(IID_IEnumConnectionPoints, reinterpret_cast<void**>(out), owner, point, 0UL);
}

}  // namespace vd::win32
