#pragma once
// The one owner of a Windows handle: move-only, released by its traits' Close
// when it goes out of scope. Traits name the empty value and the release call.
#include <windows.h>

#include <utility>

namespace vd::win32 {

template <class Handle, class Traits>
class UniqueHandle {
 public:
  UniqueHandle() = default;
  explicit UniqueHandle(Handle handle) : handle_(handle) {}
  UniqueHandle(const UniqueHandle&) = delete;
  UniqueHandle& operator=(const UniqueHandle&) = delete;
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, Traits::Invalid())) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) Reset(std::exchange(other.handle_, Traits::Invalid()));
    return *this;
  }
  ~UniqueHandle() { Reset(); }

  [[nodiscard]] Handle Get() const { return handle_; }
  [[nodiscard]] bool Valid() const { return handle_ != Traits::Invalid(); }
  explicit operator bool() const { return Valid(); }
  Handle Release() { return std::exchange(handle_, Traits::Invalid()); }
  void Reset(Handle handle = Traits::Invalid()) {
    if (Valid()) Traits::Close(handle_);
    handle_ = handle;
  }

 private:
  Handle handle_ = Traits::Invalid();
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

using KernelHandle = UniqueHandle<HANDLE, KernelHandleTraits>;
using RegistryKeyHandle = UniqueHandle<HKEY, RegistryKeyTraits>;
using ModuleHandle = UniqueHandle<HMODULE, ModuleTraits>;
using GdiObject = UniqueHandle<HGDIOBJ, GdiObjectTraits>;
using WindowHandle = UniqueHandle<HWND, WindowTraits>;
using ActivationContextHandle = UniqueHandle<HANDLE, ActivationContextTraits>;

}  // namespace vd::win32
