#pragma once
// Test-only: connects to an object's default source interface through the
// standard connection point and calls the event's name as a method of a
// handler object (a script class instance) with the event's arguments. An
// object argument passed by reference goes to the handler by reference; what
// the handler stores there goes back to the event's raiser. It also makes the
// sample's displays for scripts (SampleDisplay).
#include <windows.h>

#include <ocidl.h>

#include <cstdint>
#include <memory>

#include "com/com_ptr.h"
#include "vd/automation/object.h"

namespace vd::testbridge {

class EventBridge : public automation::Object {
 public:
  ~EventBridge() override;
  void Connect(IDispatch* source, IDispatch* handler);
  void Disconnect();
  // How many events reached a handler through this bridge.
  [[nodiscard]] int32_t EventsRelayed() const { return *relayed_; }

 private:
  win32::ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
  std::shared_ptr<int32_t> relayed_ = std::make_shared<int32_t>(0);
};

// The IDispatch scripts create as "VdTestBridge.EventBridge".
HRESULT CreateEventBridge(REFIID iid, void** out);

}  // namespace vd::testbridge
