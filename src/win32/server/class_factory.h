#pragma once
// A class factory for one creatable class; LockServer counts as a module lock.
#include <windows.h>

#include <unknwn.h>

#include <span>

#include "server/class_table.h"
#include "server/com_object.h"

namespace vd::win32 {

class ClassFactory final : public ComObject<ClassFactory, IClassFactory> {
  friend ComObject;

 public:
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override;

 private:
  explicit ClassFactory(CreateInstanceFunction create) : create_(create) {}
  ~ClassFactory() = default;
  CreateInstanceFunction create_;
};

// A factory for the class, or nullptr.
HRESULT GetClassFactory(CreateInstanceFunction create, REFIID iid, void** out) noexcept;
// The factory of the table's row for clsid; CLASS_E_CLASSNOTAVAILABLE when no
// row has it.
HRESULT GetClassObject(std::span<const ClassEntry> classes, REFCLSID clsid, REFIID iid, void** out) noexcept;

}  // namespace vd::win32
