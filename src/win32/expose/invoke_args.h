#pragma once
// The arguments of one IDispatch::Invoke on an exposed object, in call order.
#include <windows.h>

#include <oaidl.h>

#include <cstddef>

#include "vd/automation/variant.h"

namespace vd::win32 {

class InvokeArgs {
 public:
  explicit InvokeArgs(const DISPPARAMS& params) : params_(params) {}

  [[nodiscard]] size_t Count() const { return params_.cArgs; }
  // The value of argument i (0 = first); raises 450 when it was not passed.
  [[nodiscard]] automation::Variant Value(size_t i) const;
  // Writes an out argument back through its reference; a by-value argument
  // cannot be written and keeps its value, as in a late-bound call.
  void SetOut(size_t i, const automation::Variant& value) const;

 private:
  [[nodiscard]] VARIANT& Raw(size_t i) const;
  const DISPPARAMS& params_;
};

}  // namespace vd::win32
