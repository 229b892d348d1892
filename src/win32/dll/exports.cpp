// The standard exports of the in-process server. They carry no logic of the
// component's own and let no exception out.
#include <windows.h>

#include "convert/error_convert.h"
#include "server/module.h"
#include "server/registration.h"
#include "server/server_classes.h"

using vd::win32::RegistrationScope;

namespace {

HRESULT Register(bool install, RegistrationScope scope) noexcept {
  try {
    if (install) {
      try {
        vd::win32::RegisterServer(vd::win32::ServerClasses(), true, scope);
      } catch (...) {
        vd::win32::UnregisterServer(vd::win32::ServerClasses(), true, scope);  // leave nothing half written
        throw;
      }
    } else {
      vd::win32::UnregisterServer(vd::win32::ServerClasses(), true, scope);
    }
    return S_OK;
  } catch (...) {
    try {
      return vd::win32::HResultFromNumber(vd::win32::ErrorFromCurrentException().Number());
    } catch (...) {
      return E_UNEXPECTED;
    }
  }
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(instance);
  return TRUE;
}

HRESULT WINAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* out) {
  try {
    return vd::win32::GetServerClassObject(clsid, iid, out);
  } catch (...) {
    return E_UNEXPECTED;
  }
}

HRESULT WINAPI DllCanUnloadNow() {
  if (!vd::win32::ModuleCanUnload()) return S_FALSE;
  vd::win32::ReleaseModuleTypeLib();
  return S_OK;
}

HRESULT WINAPI DllRegisterServer() { return Register(true, RegistrationScope::kMachine); }

HRESULT WINAPI DllUnregisterServer() { return Register(false, RegistrationScope::kMachine); }

// regsvr32 /i:user (with /n alone, or with /u to remove) registers for the current user only.
HRESULT WINAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  return Register(install != FALSE, vd::win32::ScopeFromCommandLine(commandLine));
}

}  // extern "C"
