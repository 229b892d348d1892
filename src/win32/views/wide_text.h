#pragma once
// The system's text (UTF-16 in char16_t) as the wide Win32 calls take it:
// wchar_t is 16 bits on Windows, so the two only differ in type.
#include <windows.h>

#include "vd/automation/string.h"

namespace vd::win32::views {

using vd::automation::String;
using vd::automation::StringView;

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Windows' wchar_t is UTF-16");

inline const wchar_t* Wide(const String& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }
inline String FromWide(const wchar_t* text, size_t length) {
  return String(reinterpret_cast<const char16_t*>(text), length);
}
inline String FromWide(const wchar_t* text) { return text != nullptr ? FromWide(text, wcslen(text)) : String(); }

// The whole text of a window ("" for none).
String WindowText(HWND window);

}  // namespace vd::win32::views
