#pragma once
// The connection point of one source dispinterface inside its container
// object. Sinks connect with Advise and are called through IDispatch::Invoke
// in the order they connected.
#include <windows.h>

#include <ocidl.h>

#include <utility>
#include <vector>

#include "com/com_ptr.h"

namespace vd::win32 {

class ConnectionPoint final : public IConnectionPoint {
 public:
  // The point lives inside owner and shares its reference count.
  ConnectionPoint(IConnectionPointContainer* owner, const IID& eventIid) : owner_(owner), eventIid_(eventIid) {}
  ConnectionPoint(const ConnectionPoint&) = delete;
  ConnectionPoint& operator=(const ConnectionPoint&) = delete;
  ~ConnectionPoint() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return owner_->AddRef(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override { return owner_->Release(); }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) noexcept override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) noexcept override;

  [[nodiscard]] const IID& EventIid() const { return eventIid_; }
  [[nodiscard]] size_t SinkCount() const { return sinks_.size(); }

  // Calls the event on every sink connected when the call starts. Arguments
  // are in DISPPARAMS order (last first). A sink that does not handle the
  // event is skipped; the first sink that fails stops the call and its error
  // is raised as an AutomationError.
  void Fire(DISPID id, VARIANT* argsLastFirst, UINT count);

  void DisconnectAll() { sinks_.clear(); }

 private:
  IConnectionPointContainer* owner_;
  IID eventIid_;
  std::vector<std::pair<DWORD, ComPtr<IDispatch>>> sinks_;
  DWORD nextCookie_ = 1;
};

// Enumerates the container's connection points (one here).
HRESULT EnumerateConnectionPoints(IConnectionPointContainer* owner, IConnectionPoint* point,
                                  IEnumConnectionPoints** out);

}  // namespace vd::win32
