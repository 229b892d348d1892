#pragma once
// The component's creatable classes: one table that DllGetClassObject serves
// from and registration writes.
#include <windows.h>

#include <unknwn.h>

#include <span>

#include "server/registration.h"

namespace vd::win32 {

std::span<const ClassEntry> ServerClasses();
// The factory of one of the classes; CLASS_E_CLASSNOTAVAILABLE for others.
HRESULT GetServerClassObject(REFCLSID clsid, REFIID iid, void** out) noexcept;

}  // namespace vd::win32
