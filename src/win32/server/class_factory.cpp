#include "server/class_factory.h"

namespace vd::win32 {

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  return create_(iid, out);
}

HRESULT ClassFactory::LockServer(BOOL lock) noexcept {
  if (lock) {
    LockModule();
  } else {
    UnlockModule();
  }
  return S_OK;
}

HRESULT GetClassFactory(CreateInstanceFunction create, REFIID iid, void** out) noexcept {
  return ClassFactory::Make(iid, out, create);
}

const ClassEntry* FindClass(std::span<const ClassEntry> classes, REFCLSID clsid) noexcept {
  for (const ClassEntry& entry : classes)
    if (IsEqualCLSID(*entry.clsid, clsid)) return &entry;
  return nullptr;
}

HRESULT GetClassObject(std::span<const ClassEntry> classes, REFCLSID clsid, REFIID iid, void** out) noexcept {
  if (!out) return E_POINTER;
  *out = nullptr;
  const ClassEntry* entry = FindClass(classes, clsid);
  if (!entry || !entry->create) return CLASS_E_CLASSNOTAVAILABLE;
  return GetClassFactory(entry->create, iid, out);
}

}  // namespace vd::win32
