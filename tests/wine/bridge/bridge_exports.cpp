// Exports of the test-only bridge DLL; registered per machine like the component.
#include <windows.h>

#include <array>

#include "convert/error_convert.h"
#include "event_bridge.h"
#include "server/class_factory.h"
#include "server/module.h"
#include "server/registration.h"

namespace {

const CLSID kEventBridgeClsid = {0x7512dc55, 0x3387, 0x45f9, {0x91, 0x93, 0x78, 0x6b, 0x40, 0x0d, 0x7f, 0x24}};

const std::array<vd::win32::ClassEntry, 1> kClasses{{
    {&kEventBridgeClsid, L"VdTestBridge.EventBridge", L"Test event bridge"},
}};

HRESULT Register(bool install) noexcept {
  try {
    if (install) {
      vd::win32::RegisterServer(kClasses, false, vd::win32::RegistrationScope::kMachine);
    } else {
      vd::win32::UnregisterServer(kClasses, false, vd::win32::RegistrationScope::kMachine);
    }
    return S_OK;
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace

extern "C" {

HRESULT WINAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* out) {
  if (IsEqualCLSID(clsid, kEventBridgeClsid))
    return vd::win32::GetClassFactory(&vd::testbridge::CreateEventBridge, iid, out);
  if (out) *out = nullptr;
  return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT WINAPI DllCanUnloadNow() { return vd::win32::ModuleCanUnload() ? S_OK : S_FALSE; }
HRESULT WINAPI DllRegisterServer() { return Register(true); }
HRESULT WINAPI DllUnregisterServer() { return Register(false); }

}  // extern "C"
