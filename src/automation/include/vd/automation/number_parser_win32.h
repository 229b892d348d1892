#pragma once
// Windows only: makes IsNumeric, CDbl, CLng, ... read numbers as Automation
// itself does (VarR8FromStr with the user's locale: its decimal and thousands
// separators, currency symbol, parentheses and trailing signs). Call once at
// start-up, before the first conversion; SetNumberParser({}) undoes it.
#ifndef _WIN32
#error "vd/automation/number_parser_win32.h is for Windows builds only"
#endif

namespace vd::automation {

void InstallWindowsNumberParser();

}  // namespace vd::automation
