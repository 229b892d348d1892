#pragma once
// Text <-> number rules: Val, the general number format, IsNumeric and the
// locale-aware text-to-Double conversion behind CDbl.
#include <functional>
#include <optional>

#include "vd/automation/string.h"
#include "vd/automation/variant.h"

namespace vd::automation {

// The number given by the longest numeric prefix, whatever the locale: blanks,
// tabs and line feeds are dropped first, wherever they stand; then an optional
// sign, digits with at most one ".", and an exponent (E or D, optional sign, at
// least one digit; a bare exponent letter ends the number before it). Or an
// "&H" / "&O" prefix: the longest run of hex / octal digits whose value fits in
// 32 bits; up to four hex (six octal) digits with a value below 65536 read as a
// 16-bit Integer, so "&HFFFF" is -1, otherwise as a Long, so "&HFFFFFFFF" is -1
// too. 0 when there is no number; never -0. Never fails; a magnitude beyond
// Double gives +/-infinity.
double Val(StringView text);

// The general number format: the shortest decimal text that reads back to the
// same value (as a Double, or as a Single for the float overload), no leading
// blank, "-" for negatives, "0" for either zero. Exponent form with at least
// two exponent digits ("1E+15", "1.5E-07", "1E+100") from 1E+15 up (Single:
// 1E+07) and below 1E-04; infinities and NaN read "Inf", "-Inf", "NaN". The
// decimal point is DecimalSeparator(), so that the text reads back with the
// current number syntax.
String FormatGeneral(double value);
String FormatGeneral(float value);

// The decimal separator the general number format writes: "." unless the
// platform sets the one its number syntax reads (on Windows the user locale's,
// see win32/services/locale_numbers.h). An empty text restores ".". Not thread-safe: set
// it once at start-up, together with the number parser. A source, when set, is
// asked at every use instead (the user may change the locale while the
// component is loaded); nullptr removes it.
void SetDecimalSeparator(String separator);
void SetDecimalSeparatorSource(String (*source)());
[[nodiscard]] const String& DecimalSeparator();

// Whether the text reads as a number under the current number syntax (see
// ParseNumber). A number beyond Double's range is not numeric.
bool IsNumeric(StringView text);
bool IsNumeric(const String& text);
bool IsNumeric(const char16_t* text);
// Empty, Integer, Long, Single, Double and Boolean are numeric; a String when
// its text is; Null, objects and arrays are not.
bool IsNumeric(const Variant& v);

// Text to Double with the current number syntax. nullopt when the text is no
// number; error 6 when it is a number beyond Double's range. The default syntax:
// white space (blank, tab, CR, LF, VT, FF) around; an optional sign; digits
// with at most one "." as decimal point; an optional exponent (E or D, optional
// sign, at least one digit); or "&H" / "&O" with hex / octal digits only, read
// as Val reads them (more than 32 bits: error 6). No thousands separators.
// -0 reads as 0.
std::optional<double> ParseNumber(StringView text);

// The platform may replace the number syntax (on Windows: Automation's own
// conversion with the user locale, see win32/services/locale_numbers.h). The parser
// answers nullopt for no number and raises error 6 for overflow. An empty
// function restores the default. Not thread-safe: set it once at start-up.
using NumberParser = std::function<std::optional<double>(StringView)>;
void SetNumberParser(NumberParser parser);

}  // namespace vd::automation
