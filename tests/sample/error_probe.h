#pragma once
// The Automation error a call raises, for table-driven expectations.
#include <cstdint>
#include <string>

#include "vd/automation/error.h"

namespace vd::sample::testing {

struct Raised {
  int32_t number = 0;  // 0: the call raised nothing
  std::string description;
};

template <class F>
Raised RaisedBy(F&& call) {
  try {
    call();
  } catch (const automation::AutomationError& e) {
    return {e.Number(), automation::ToUtf8(e.Description())};
  }
  return {};
}

}  // namespace vd::sample::testing
