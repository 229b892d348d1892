#pragma once
// Single-byte ("ANSI") text as the ANSI Win32 calls and the system's text files
// hold it. On Windows it is the process's ANSI code page; elsewhere Latin-1,
// where every byte is the character of the same code.
#include <string>
#include <string_view>

#include "vd/automation/string.h"

namespace vd::platform {

using automation::String;
using automation::StringView;

String FromAnsiText(std::string_view bytes);
// A character the code page lacks becomes "?".
std::string ToAnsiText(StringView text);

// Latin-1 both ways; characters above U+00FF become "?".
String FromLatin1(std::string_view bytes);
std::string ToLatin1(StringView text);

}  // namespace vd::platform
