#include "server/class_factory.h"

#include <new>

namespace vd::win32 {

HRESULT ClassFactory::QueryInterface(REFIID iid, void** out) noexcept {
  if (!out) return E_POINTER;
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IClassFactory)) {
    *out = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  *out = nullptr;
  return E_NOINTERFACE;
}

ULONG ClassFactory::Release() noexcept {
  ULONG left = refs_.Down();
  if (left == 0) delete this;
  return left;
}

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
  if (!out) return E_POINTER;
  *out = nullptr;
  auto* factory = new (std::nothrow) ClassFactory(create);
  if (!factory) return E_OUTOFMEMORY;
  HRESULT hr = factory->QueryInterface(iid, out);
  factory->Release();
  return hr;
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
