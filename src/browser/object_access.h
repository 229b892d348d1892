#pragma once
// How the dialog reaches the display model's objects: a reference that is
// Nothing raises error 91 (object variable not set), as a late-bound call on
// Nothing does, and counts are held as 16-bit Integers: more than 32767 data
// sources or variables is an overflow (error 6), never a wrap.
#include <cstdint>
#include <memory>

#include "vd/automation/conversions.h"
#include "vd/automation/error.h"

namespace vd::browser {

template <class T>
T& Obj(const std::shared_ptr<T>& ref) {
  if (!ref) automation::Raise(automation::err::kObjectNotSet);
  return *ref;
}

inline int16_t ToInteger(int32_t count) { return automation::RoundToInteger(static_cast<double>(count)); }

}  // namespace vd::browser
