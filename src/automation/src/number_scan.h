#pragma once
// Scanners shared by Val and the default number syntax. They read ASCII
// digits only and leave blanks and the end of the number to their callers.
#include <cstddef>
#include <string>

#include "vd/automation/string.h"

namespace vd::automation::detail {

// An optional sign, digits with at most one ".", then an exponent (E or D,
// optional sign, at least one digit) when one follows.
struct DecimalScan {
  std::string ascii;          // what was taken, without a "+" sign
  size_t end = 0;             // one past the last character taken
  bool hasDigits = false;     // the mantissa holds a digit
  bool bareExponent = false;  // an exponent letter without digits follows the mantissa
  bool negative = false;
  bool nonzero = false;     // the mantissa holds a digit other than 0
  long long magnitude = 0;  // decimal exponent of the first nonzero digit
};
DecimalScan ScanDecimal(StringView text);

// The Double nearest to a scanned number (one with hasDigits): +/-infinity
// beyond Double's range, zero below it.
double DecimalValue(const DecimalScan& scan);

// "&H" or "&O", either case.
bool StartsWithRadixPrefix(StringView text);
bool IsHexPrefix(StringView text);

// The longest run of hex / octal digits at the start of text whose value fits
// in 32 bits: up to four hex (six octal) digits with a value below 65536 read
// as a 16-bit Integer, others as a Long.
struct RadixScan {
  double value = 0;
  size_t digits = 0;      // digits taken
  bool overflow = false;  // a further digit would have left 32 bits
};
RadixScan ScanRadixDigits(StringView text, bool hex);

// White space that may surround a number: blank, tab, LF, VT, FF, CR.
inline bool IsNumberSpace(char16_t c) { return c == u' ' || (c >= u'\t' && c <= u'\r'); }
StringView TrimNumberSpace(StringView text);

inline double WithoutNegativeZero(double value) { return value == 0 ? 0.0 : value; }

}  // namespace vd::automation::detail
