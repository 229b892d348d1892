#pragma once
// The table of a server's creatable classes: registration writes its rows and
// the class factory creates from them, so adding a class is one row.
#include <windows.h>

#include <span>

namespace vd::win32 {

// Creates a new object of the class and queries it for iid.
using CreateInstanceFunction = HRESULT (*)(REFIID iid, void** out);

struct ClassEntry {
  const CLSID* clsid;
  const wchar_t* progId;
  const wchar_t* description;
  const wchar_t* threadingModel = L"Apartment";
  CreateInstanceFunction create = nullptr;
};

// The row of the table for clsid, or nullptr.
const ClassEntry* FindClass(std::span<const ClassEntry> classes, REFCLSID clsid) noexcept;

}  // namespace vd::win32
