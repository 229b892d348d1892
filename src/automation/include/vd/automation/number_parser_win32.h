#pragma once
// Windows only: makes IsNumeric, CDbl, CLng, ... read numbers with the number
// syntax of Automation itself (VarParseNumFromStr with the user's locale: its
// decimal and thousands separators, currency symbol, parentheses and trailing
// signs), and makes the general number format write the locale's decimal
// separator, so that a number shown reads back as the same value. Call once at
// start-up, before the first conversion; UninstallWindowsNumberSyntax undoes it.
#ifndef _WIN32
#error "vd/automation/number_parser_win32.h is for Windows builds only"
#endif

namespace vd::automation {

void InstallWindowsNumberSyntax();
void UninstallWindowsNumberSyntax();

}  // namespace vd::automation
