#pragma once
// Text helpers with Automation's meaning of "ignoring case": each 16-bit code
// unit is mapped on its own by the one-to-one case mappings of Unicode (so "ß"
// and the dotted capital I keep their case, and surrogate pairs are left as
// they are); comparisons then go code unit by code unit, without the linguistic
// ordering of a locale.
#include "vd/automation/string.h"

namespace vd::automation {

String UCase(StringView text);
String LCase(StringView text);
// Text comparison ignoring case (vbTextCompare).
bool EqualsIgnoreCase(StringView a, StringView b);
bool ContainsIgnoreCase(StringView haystack, StringView needle);
// <0, 0, >0 comparing the upper-cased texts code unit by code unit; used for
// sorted tree order.
int CompareIgnoreCase(StringView a, StringView b);

// Drops leading blanks and tabs, turns each run of blanks and tabs into one
// blank and drops trailing blanks.
String NormalizeBlanks(StringView text);
// Trim removes leading and trailing blanks (only ' ', as VB's Trim).
String Trim(StringView text);

bool StartsWith(StringView text, StringView prefix);

}  // namespace vd::automation
