#pragma once
// How a host gets the component: CoCreateInstance by its ProgID when it is
// registered, else the DLL beside the program through its DllGetClassObject
// (no registration needed).
#include <windows.h>

#include <string>

#include "VarDeskGUI.h"
#include "com/com_ptr.h"
#include "com/library_handle.h"

namespace vd::win32::demo {

struct LoadedComponent {
  LibraryHandle library;  // the DLL loaded beside the program; empty when registered
  ComPtr<_VarDeskUI> ui;  // released before the library goes (declared after it)
  std::wstring origin;    // where the component came from, for the user
};

// Raises an AutomationError when neither way gives the class.
LoadedComponent CreateVarDeskUI();

// The folder of this program, with a trailing backslash.
std::wstring ProgramFolder();

}  // namespace vd::win32::demo
