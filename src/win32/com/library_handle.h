#pragma once
// A loaded DLL, freed on destruction.
#include <windows.h>

#include <string>
#include <utility>

namespace vd::win32 {

class LibraryHandle {
 public:
  LibraryHandle() = default;
  explicit LibraryHandle(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {}
  LibraryHandle(LibraryHandle&& other) noexcept : module_(std::exchange(other.module_, nullptr)) {}
  LibraryHandle& operator=(LibraryHandle&& other) noexcept {
    std::swap(module_, other.module_);
    return *this;
  }
  LibraryHandle(const LibraryHandle&) = delete;
  LibraryHandle& operator=(const LibraryHandle&) = delete;
  ~LibraryHandle() {
    if (module_) FreeLibrary(module_);
  }

  [[nodiscard]] HMODULE Get() const { return module_; }
  explicit operator bool() const { return module_ != nullptr; }

  // The exported function of the given type, or nullptr.
  template <class Function>
  Function Export(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

 private:
  HMODULE module_ = nullptr;
};

}  // namespace vd::win32
