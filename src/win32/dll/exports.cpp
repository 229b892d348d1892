// The standard exports of the in-process server. They carry no logic of the
// component's own and let no exception out: each body is one boundary. Those
// the system headers declare keep that declaration's (absent) noexcept.
#include <windows.h>

#include "convert/error_convert.h"
#include "server/module.h"
#include "server/registration.h"
#include "server/server_classes.h"

using vd::win32::RegistrationScope;

namespace {

HRESULT Register(bool install, RegistrationScope scope) noexcept {
  return vd::win32::HResultBoundary([&] {
    if (!install) {
      vd::win32::UnregisterServer(vd::win32::ServerClasses(), true, scope);
      return;
    }
    try {
      vd::win32::RegisterServer(vd::win32::ServerClasses(), true, scope);
    } catch (...) {
      vd::win32::UnregisterServer(vd::win32::ServerClasses(), true, scope);  // leave nothing half written
      throw;
    }
  });
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) noexcept {
  if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(instance);
  return TRUE;
}

HRESULT WINAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* out) {
  return vd::win32::HResultBoundary([&] { return vd::win32::GetServerClassObject(clsid, iid, out); });
}

HRESULT WINAPI DllCanUnloadNow() {
  return vd::win32::HResultBoundary([] {
    if (!vd::win32::ModuleCanUnload()) return S_FALSE;
    vd::win32::ReleaseModuleTypeLib();
    return S_OK;
  });
}

HRESULT WINAPI DllRegisterServer() noexcept { return Register(true, RegistrationScope::kMachine); }

HRESULT WINAPI DllUnregisterServer() noexcept { return Register(false, RegistrationScope::kMachine); }

// regsvr32 /i:user (with /n alone, or with /u to remove) registers for the current user only.
HRESULT WINAPI DllInstall(BOOL install, LPCWSTR commandLine) noexcept {
  return vd::win32::HResultBoundary(
      [&] { return Register(install != FALSE, vd::win32::ScopeFromCommandLine(commandLine)); });
}

}  // extern "C"
