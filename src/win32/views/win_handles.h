#pragma once
// The views' handle owners (the one owner template of com/unique_handle.h)
// and two scoped device-context helpers.
#include <windows.h>

#include <utility>

#include "com/unique_handle.h"

namespace vd::win32::views {

using vd::win32::ActivationContextHandle;
using vd::win32::GdiObject;
using vd::win32::KernelHandle;
using vd::win32::UniqueHandle;
using vd::win32::WindowHandle;

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
