#pragma once
// Owners of the Win32 handles the views create, one per kind of release call.
#include <windows.h>

#include <utility>

namespace vd::win32::views {

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

struct KernelHandleTraits {
  static HANDLE Invalid() { return nullptr; }
  static void Close(HANDLE handle) { CloseHandle(handle); }
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
using GdiObject = UniqueHandle<HGDIOBJ, GdiObjectTraits>;
using WindowHandle = UniqueHandle<HWND, WindowTraits>;
using ActivationContextHandle = UniqueHandle<HANDLE, ActivationContextTraits>;

// A screen device context for the scope.
class ScreenDc {
 public:
  ScreenDc() : dc_(GetDC(nullptr)) {}
  ScreenDc(const ScreenDc&) = delete;
  ScreenDc& operator=(const ScreenDc&) = delete;
  ~ScreenDc() {
    if (dc_ != nullptr) ReleaseDC(nullptr, dc_);
  }
  [[nodiscard]] HDC Get() const { return dc_; }

 private:
  HDC dc_;
};

// An object selected into a device context for the scope.
class SelectedObject {
 public:
  SelectedObject(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
  SelectedObject(const SelectedObject&) = delete;
  SelectedObject& operator=(const SelectedObject&) = delete;
  ~SelectedObject() { SelectObject(dc_, previous_); }

 private:
  HDC dc_;
  HGDIOBJ previous_;
};

}  // namespace vd::win32::views
