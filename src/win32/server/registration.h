#pragma once
// Registration of an in-process server under Software\Classes, per machine
// (HKLM) or per user (HKCU): each class's CLSID and ProgID keys, the server
// path with the class's ThreadingModel and, when the module embeds one, its
// type library with the library's Automation interfaces. Failures raise.
#include <windows.h>

#include <span>

#include "server/class_table.h"

namespace vd::win32 {

enum class RegistrationScope { kMachine, kUser };

// The scope DllInstall's command line asks for: "user" (any case) is per user.
RegistrationScope ScopeFromCommandLine(const wchar_t* commandLine);

void RegisterServer(std::span<const ClassEntry> classes, bool withTypeLib, RegistrationScope scope);
// Removes what RegisterServer wrote; keys that are not there are no error.
void UnregisterServer(std::span<const ClassEntry> classes, bool withTypeLib, RegistrationScope scope);

}  // namespace vd::win32
