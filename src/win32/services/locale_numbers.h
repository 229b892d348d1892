#pragma once
// The number syntax of the user's locale, through Automation's own parser
// (VarParseNumFromStr with LOCALE_USER_DEFAULT: its decimal and thousands
// separators, currency symbol, parentheses and trailing signs), and the
// locale's decimal separator for the general number format, so that a number
// shown reads back as the same value. The platform hands both to the
// conversions at start-up:
//   vd::automation::SetNumberParser(&ParseLocaleNumber);
//   vd::automation::SetDecimalSeparatorSource(&LocaleDecimalSeparator);
#include <optional>

#include "vd/automation/string.h"

namespace vd::win32::services {

// nullopt for no number; error 6 for a number beyond Double's range. Like
// every Automation conversion of a BSTR, the text ends at its first NUL.
std::optional<double> ParseLocaleNumber(vd::automation::StringView text);

// The user locale's decimal separator, read at every call (the user may change
// it while the component is loaded); "." when the locale has none.
vd::automation::String LocaleDecimalSeparator();

}  // namespace vd::win32::services
