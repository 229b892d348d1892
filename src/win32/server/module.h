#pragma once
// The module's life: how many of its COM objects and server locks are alive
// (DllCanUnloadNow), which module it is, and its embedded type library.
#include <windows.h>

#include <oaidl.h>

#include <string>

#include "com/com_ptr.h"

namespace vd::win32 {

// Counts one live COM object of the module for as long as it exists.
class ModuleReference {
 public:
  ModuleReference();
  ModuleReference(const ModuleReference&) = delete;
  ModuleReference& operator=(const ModuleReference&) = delete;
  ~ModuleReference();
};

void LockModule();
void UnlockModule();
// True when no object and no lock of the module is alive.
bool ModuleCanUnload();
long LiveModuleObjects();

// The module this code is linked into (the DLL, or a test program).
HMODULE ThisModule();
std::wstring ThisModulePath();

// The type library embedded as resource TYPELIB 1 of this module, loaded once.
ComPtr<ITypeLib> ModuleTypeLib();
// The type info of an interface or class of that library; raises when absent.
ComPtr<ITypeInfo> ModuleTypeInfo(REFGUID guid);
// Drops the cached library (when the module may unload).
void ReleaseModuleTypeLib();

}  // namespace vd::win32
