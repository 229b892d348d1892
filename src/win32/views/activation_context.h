#pragma once
// Version 6 of the common controls for the views' windows, without a
// manifest in the host process: the module that holds this code (the
// component's DLL, or a test program) carries its own manifest as resource 2
// (ISOLATIONAWARE_MANIFEST_RESOURCE_ID, type RT_MANIFEST; see
// resources/comctl6.rc), and every window the views create is created while
// that manifest's activation context is active. A module without the resource
// gets the process's default controls.
#include <windows.h>

namespace vd::win32::views {

// The module whose manifest is used: the one that holds this code.
HMODULE ViewsModule();

// The activation context of the module's manifest, created at first use and
// kept for the process's life; INVALID_HANDLE_VALUE when the module has none.
HANDLE ModuleActivationContext();

// Activates the module's context for the scope (nested scopes are fine).
class ScopedActivation {
 public:
  ScopedActivation();
  // Activates this context instead; nullptr: none, so that windows created in
  // the scope get the process's default controls.
  explicit ScopedActivation(HANDLE context);
  ScopedActivation(const ScopedActivation&) = delete;
  ScopedActivation& operator=(const ScopedActivation&) = delete;
  ~ScopedActivation();
  [[nodiscard]] bool Active() const { return active_; }

 private:
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

}  // namespace vd::win32::views
