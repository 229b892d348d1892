#include "demo/component_loader.h"

#include "convert/error_convert.h"

namespace vd::win32::demo {
namespace {

constexpr wchar_t kProgId[] = L"VarDeskGUI.VarDeskUI";
constexpr wchar_t kDllName[] = L"VarDeskGUI.dll";

using GetClassObjectFunction = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);

void Check(HRESULT hr) {
  if (FAILED(hr)) throw ErrorFromHResult(hr);
}

// The registered class, or nothing when the ProgID or its class is not registered.
ComPtr<_VarDeskUI> CreateRegistered() {
  CLSID clsid{};
  if (FAILED(CLSIDFromProgID(kProgId, &clsid))) return nullptr;
  ComPtr<_VarDeskUI> ui;
  const HRESULT hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID__VarDeskUI, ui.PutVoid());
  if (hr == REGDB_E_CLASSNOTREG || hr == CO_E_DLLNOTFOUND || hr == HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND))
    return nullptr;
  Check(hr);
  return ui;
}

}  // namespace

std::wstring ProgramFolder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L"\\/") + 1);
}

LoadedComponent CreateVarDeskUI() {
  LoadedComponent component;
  component.ui = CreateRegistered();
  if (component.ui) {
    component.origin = std::wstring(L"registered class ") + kProgId;
    return component;
  }
  const std::wstring path = ProgramFolder() + kDllName;
  component.library = LibraryHandle(path);
  if (!component.library) throw ErrorFromHResult(HRESULT_FROM_WIN32(GetLastError()));
  const auto getClassObject = component.library.Export<GetClassObjectFunction>("DllGetClassObject");
  if (!getClassObject) throw ErrorFromHResult(HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND));
  ComPtr<IClassFactory> factory;
  Check(getClassObject(CLSID_VarDeskUI, IID_IClassFactory, factory.PutVoid()));
  Check(factory->CreateInstance(nullptr, IID__VarDeskUI, component.ui.PutVoid()));
  component.origin = path + L" (not registered)";
  return component;
}

}  // namespace vd::win32::demo
