#pragma once
// An owning SAFEARRAY and a scoped lock on one, for direct element access.
#include "com/unique_handle.h"

namespace vd::win32 {

// An owning SAFEARRAY: the one handle owner with SafeArrayDestroy.
class SafeArray : public UniqueHandle<SAFEARRAY*, SafeArrayTraits> {
 public:
  using UniqueHandle::UniqueHandle;
  SAFEARRAY* Detach() { return Release(); }
};

// Holds the array's lock so that pvData stays valid; no copy of the elements.
class SafeArrayLockGuard {
 public:
  explicit SafeArrayLockGuard(SAFEARRAY* array) : array_(array), locked_(SUCCEEDED(SafeArrayLock(array))) {}
  SafeArrayLockGuard(const SafeArrayLockGuard&) = delete;
  SafeArrayLockGuard& operator=(const SafeArrayLockGuard&) = delete;
  ~SafeArrayLockGuard() {
    if (locked_) SafeArrayUnlock(array_);
  }
  [[nodiscard]] bool Locked() const { return locked_; }

 private:
  SAFEARRAY* array_;
  bool locked_;
};

}  // namespace vd::win32
