#pragma once
// The reference count of one COM object; it also counts the object as alive
// in the module (DllCanUnloadNow) for as long as it exists.
#include <windows.h>

#include <atomic>

#include "server/module.h"

namespace vd::win32 {

class RefCount {
 public:
  ULONG Up() { return ++count_; }
  ULONG Down() { return --count_; }

 private:
  std::atomic<ULONG> count_{1};
  ModuleReference module_;
};

}  // namespace vd::win32
