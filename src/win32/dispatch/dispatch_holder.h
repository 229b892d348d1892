#pragma once
// Marks an object of the system that stands for an IDispatch of someone else
// (an adapter or a plain dispatch object): handing it back through COM gives
// that IDispatch, so the other side sees its own object again.
#include <windows.h>

#include <oaidl.h>

#include "com/com_ptr.h"
#include "vd/automation/object.h"

namespace vd::win32 {

class DispatchHolder {
 public:
  DispatchHolder() = default;
  DispatchHolder(const DispatchHolder&) = delete;
  DispatchHolder& operator=(const DispatchHolder&) = delete;
  virtual ~DispatchHolder() = default;
  [[nodiscard]] virtual IDispatch* Dispatch() const = 0;
};

// An object of unknown kind reached through IDispatch.
class PlainDispatchObject : public automation::Object, public DispatchHolder {
 public:
  explicit PlainDispatchObject(ComPtr<IDispatch> dispatch) : dispatch_(std::move(dispatch)) {}
  [[nodiscard]] IDispatch* Dispatch() const override { return dispatch_.Get(); }

 private:
  ComPtr<IDispatch> dispatch_;
};

}  // namespace vd::win32
