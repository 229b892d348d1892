#pragma once
// Test helper: the Automation error number a call raises.
#include <cstdint>

#include "vd/automation/error.h"

namespace vd::automation::testing {

// 0 when the call returns normally.
template <class F>
int32_t ErrorNumberOf(F&& call) {
  try {
    call();
  } catch (const AutomationError& e) {
    return e.Number();
  }
  return 0;
}

}  // namespace vd::automation::testing
