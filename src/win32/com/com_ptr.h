#pragma once
// An owning COM interface pointer: AddRef on copy, Release on destruction.
#include <windows.h>

#include <unknwn.h>

#include <cstddef>
#include <utility>

namespace vd::win32 {

template <class T>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)
  // Takes a new reference to p.
  explicit ComPtr(T* p) : p_(p) {
    if (p_) p_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.p_) {}
  ComPtr(ComPtr&& other) noexcept : p_(std::exchange(other.p_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(p_, other.p_);
    return *this;
  }
  ~ComPtr() { Reset(); }

  // Adopts a reference that the caller already owns.
  static ComPtr Attach(T* p) {
    ComPtr result;
    result.p_ = p;
    return result;
  }
  // Gives up ownership without releasing.
  T* Detach() { return std::exchange(p_, nullptr); }

  void Reset() {
    if (T* p = std::exchange(p_, nullptr)) p->Release();
  }
  // Releases the current pointer and exposes the slot for an out parameter.
  T** Put() {
    Reset();
    return &p_;
  }
  void** PutVoid() { return reinterpret_cast<void**>(Put()); }

  T* Get() const { return p_; }
  T* operator->() const { return p_; }
  explicit operator bool() const { return p_ != nullptr; }

  // QueryInterface; empty when the object does not answer the interface.
  template <class U>
  ComPtr<U> As() const {
    return As<U>(__uuidof(U));
  }
  template <class U>
  ComPtr<U> As(REFIID iid) const {
    ComPtr<U> result;
    if (p_) p_->QueryInterface(iid, result.PutVoid());
    return result;
  }

 private:
  T* p_ = nullptr;
};

// The object's identity: its IUnknown, as QueryInterface answers it.
template <class T>
ComPtr<IUnknown> Identity(T* p) {
  ComPtr<IUnknown> unknown;
  if (p) p->QueryInterface(IID_IUnknown, unknown.PutVoid());
  return unknown;
}

template <class T, class U>
bool SameObject(T* a, U* b) {
  return Identity(a).Get() == Identity(b).Get();
}

}  // namespace vd::win32
