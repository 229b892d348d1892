#pragma once
// A loaded DLL, freed on destruction.
#include <windows.h>

#include <string>

#include "com/unique_handle.h"

namespace vd::win32 {

class LibraryHandle {
 public:
  LibraryHandle() = default;
  explicit LibraryHandle(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {}

  [[nodiscard]] HMODULE Get() const { return module_.Get(); }
  explicit operator bool() const { return module_.Valid(); }

  // The exported function of the given type, or nullptr.
  template <class Function>
  Function Export(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_.Get(), name)));
  }

 private:
  ModuleHandle module_;
};

}  // namespace vd::win32
