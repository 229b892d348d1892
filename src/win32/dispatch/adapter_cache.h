#pragma once
// Live adapters by the identity of the object they stand for and the
// interface they present, so that one object keeps one adapter per interface.
#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <typeindex>

#include "vd/automation/object.h"

namespace vd::win32 {

// The live adapter of the object for the interface, or nullptr.
automation::ObjectRef FindAdapter(IUnknown* identity, std::type_index kind);
void RememberAdapter(IUnknown* identity, std::type_index kind, const automation::ObjectRef& adapter);

}  // namespace vd::win32
