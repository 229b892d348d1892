#pragma once
// The one owner of a Windows handle: move-only, released by its traits' Close
// when it goes out of scope or is replaced. Traits name the empty value
// (Invalid) and the release call (Close, given the stored handle by
// reference); a handle that is a value rather than a pointer (a VARIANT) names
// its emptiness test too (IsValid). The owners of BSTR, VARIANT and SAFEARRAY
// (com/bstr.h, com/unique_variant.h, com/safe_array.h) and of image lists
// (views/common_controls.h) are this template with their traits.
#include <windows.h>
// windows.h first: oleauto.h builds on its types.
#include <oleauto.h>

#include <concepts>
#include <utility>

namespace vd::win32 {

template <class Traits, class Handle>
concept HandleEmptinessTest = requires(const Handle& handle) {
  { Traits::IsValid(handle) } -> std::convertible_to<bool>;
};

template <class Handle, class Traits>
class UniqueHandle {
 public:
  UniqueHandle() noexcept : handle_(Traits::Invalid()) {}
  explicit UniqueHandle(Handle handle) noexcept : handle_(handle) {}
  UniqueHandle(const UniqueHandle&) = delete;
  UniqueHandle& operator=(const UniqueHandle&) = delete;
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, Traits::Invalid())) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) Reset(std::exchange(other.handle_, Traits::Invalid()));
    return *this;
  }
  ~UniqueHandle() { Reset(); }

  [[nodiscard]] Handle Get() const { return handle_; }
  [[nodiscard]] bool Valid() const {
    if constexpr (HandleEmptinessTest<Traits, Handle>) {
      return Traits::IsValid(handle_);
    } else {
      return handle_ != Traits::Invalid();
    }
  }
  explicit operator bool() const { return Valid(); }
  // Gives the handle up; the owner is empty afterwards.
  Handle Release() { return std::exchange(handle_, Traits::Invalid()); }
  void Reset(Handle handle = Traits::Invalid()) {
    if (Valid()) Traits::Close(handle_);
    handle_ = handle;
  }
  // Empties the owner and exposes its storage for an out parameter.
  Handle* Put() {
    Reset();
    return &handle_;
  }

 protected:
  [[nodiscard]] Handle& Stored() { return handle_; }
  [[nodiscard]] const Handle& Stored() const { return handle_; }

 private:
  Handle handle_;
};

struct KernelHandleTraits {  // processes, events, files
  static HANDLE Invalid() { return nullptr; }
  static void Close(HANDLE handle) { CloseHandle(handle); }
};
struct RegistryKeyTraits {
  static HKEY Invalid() { return nullptr; }
  static void Close(HKEY key) { RegCloseKey(key); }
};
struct ModuleTraits {
  static HMODULE Invalid() { return nullptr; }
  static void Close(HMODULE module) { FreeLibrary(module); }
};
struct GdiObjectTraits {
  static HGDIOBJ Invalid() { return nullptr; }
  static void Close(HGDIOBJ object) { DeleteObject(object); }
};
struct WindowTraits {
  static HWND Invalid() { return nullptr; }
  static void Close(HWND window) { DestroyWindow(window); }
};
struct ActivationContextTraits {
  static HANDLE Invalid() { return INVALID_HANDLE_VALUE; }
  static void Close(HANDLE context) { ReleaseActCtx(context); }
};
struct BstrTraits {
  static BSTR Invalid() { return nullptr; }
  static void Close(BSTR text) { SysFreeString(text); }
};
struct SafeArrayTraits {
  static SAFEARRAY* Invalid() { return nullptr; }
  static void Close(SAFEARRAY* array) { SafeArrayDestroy(array); }
};
// An empty VARIANT (VT_EMPTY) holds nothing to release.
struct VariantTraits {
  static VARIANT Invalid() {
    VARIANT empty;
    VariantInit(&empty);
    return empty;
  }
  static bool IsValid(const VARIANT& value) { return value.vt != VT_EMPTY; }
  static void Close(VARIANT& value) { VariantClear(&value); }
};

using KernelHandle = UniqueHandle<HANDLE, KernelHandleTraits>;
using RegistryKeyHandle = UniqueHandle<HKEY, RegistryKeyTraits>;
using ModuleHandle = UniqueHandle<HMODULE, ModuleTraits>;
using GdiObject = UniqueHandle<HGDIOBJ, GdiObjectTraits>;
using WindowHandle = UniqueHandle<HWND, WindowTraits>;
using ActivationContextHandle = UniqueHandle<HANDLE, ActivationContextTraits>;

}  // namespace vd::win32
