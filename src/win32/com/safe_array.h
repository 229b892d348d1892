#pragma once
// An owning SAFEARRAY and a scoped lock on one, for direct element access.
#include <windows.h>

#include <oleauto.h>

#include <utility>

namespace vd::win32 {

class SafeArray {
 public:
  SafeArray() = default;
  explicit SafeArray(SAFEARRAY* adopted) : p_(adopted) {}
  SafeArray(SafeArray&& other) noexcept : p_(std::exchange(other.p_, nullptr)) {}
  SafeArray& operator=(SafeArray&& other) noexcept {
    std::swap(p_, other.p_);
    return *this;
  }
  SafeArray(const SafeArray&) = delete;
  SafeArray& operator=(const SafeArray&) = delete;
  ~SafeArray() {
    if (p_) SafeArrayDestroy(p_);
  }

  [[nodiscard]] SAFEARRAY* Get() const { return p_; }
  SAFEARRAY* Detach() { return std::exchange(p_, nullptr); }

 private:
  SAFEARRAY* p_ = nullptr;
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
