#pragma once
// Late-bound calls on one IDispatch by member name, as a script would make
// them. A failed call raises the callee's error (number and description).
#include <windows.h>

#include <oaidl.h>

#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

#include "com/com_ptr.h"
#include "com/unique_variant.h"
#include "dispatch/member_ids.h"
#include "vd/automation/variant.h"

namespace vd::win32 {

// One argument of a call: a value, or a by-reference slot the callee may write.
class CallArg {
 public:
  // By value.
  CallArg(const automation::Variant& value);  // NOLINT(google-explicit-constructor)
  // By reference (VT_BYREF|VT_VARIANT): the callee reads and may replace *slot.
  static CallArg ByRef(UniqueVariant& slot);

  [[nodiscard]] const VARIANT& Raw() const { return byRef_ ? byRefView_ : value_.Ref(); }

 private:
  CallArg() = default;
  UniqueVariant value_;
  VARIANT byRefView_{};
  bool byRef_ = false;
};

class DispatchCaller {
 public:
  explicit DispatchCaller(ComPtr<IDispatch> dispatch);

  [[nodiscard]] IDispatch* Dispatch() const { return dispatch_.Get(); }

  // Calls the member as a method or property get, arguments in call order.
  UniqueVariant Call(automation::StringView name, std::span<const CallArg> args = {});
  UniqueVariant Call(automation::StringView name, std::initializer_list<CallArg> args) {
    return Call(name, std::span<const CallArg>(args.begin(), args.size()));
  }
  // Whether the object answers the member name.
  bool Has(automation::StringView name);

  [[nodiscard]] const MemberIds& Ids() const { return shared_ ? *shared_ : own_; }

 private:
  MemberIds& Ids() { return shared_ ? *shared_ : own_; }

  ComPtr<IDispatch> dispatch_;
  std::shared_ptr<MemberIds> shared_;  // the table of the object's type, when it has one
  MemberIds own_;                      // else the object's own, made along with the caller
};

}  // namespace vd::win32
