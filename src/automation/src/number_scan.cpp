#include "number_scan.h"

#include <charconv>
#include <cstdint>
#include <limits>

namespace vd::automation::detail {
namespace {
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsExponentLetter(char16_t c) { return c == u'e' || c == u'E' || c == u'd' || c == u'D'; }

int RadixDigitValue(char16_t c, bool hex) {
  if (c >= u'0' && c <= (hex ? u'9' : u'7')) return c - u'0';
  if (!hex) return -1;
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return -1;
}

// Exponents beyond this only decide overflow against underflow.
constexpr long long kExponentLimit = 1'000'000'000'000LL;
}  // namespace

DecimalScan ScanDecimal(StringView text) {
  DecimalScan scan;
  size_t i = 0;
  if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) {
    scan.negative = text[i] == u'-';
    if (scan.negative) scan.ascii.push_back('-');
    ++i;
  }
  bool point = false;
  long long integerDigits = 0;  // significant digits before the point
  long long fractionZeros = 0;  // zeros after the point before the first nonzero digit
  for (; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (IsDigit(c)) {
      scan.hasDigits = true;
      if (!point && (scan.nonzero || c != u'0')) ++integerDigits;
      if (point && !scan.nonzero && c == u'0') ++fractionZeros;
      scan.nonzero = scan.nonzero || c != u'0';
      scan.ascii.push_back(static_cast<char>(c));
    } else if (c == u'.' && !point) {
      point = true;
      scan.ascii.push_back('.');
    } else {
      break;
    }
  }
  scan.end = i;
  if (!scan.hasDigits) return scan;
  long long exponent = 0;
  if (i < text.size() && IsExponentLetter(text[i])) {
    size_t k = i + 1;
    std::string part = "e";
    bool negativeExponent = false;
    if (k < text.size() && (text[k] == u'+' || text[k] == u'-')) {
      negativeExponent = text[k] == u'-';
      part.push_back(static_cast<char>(text[k++]));
    }
    const size_t firstDigit = k;
    for (; k < text.size() && IsDigit(text[k]); ++k) {
      part.push_back(static_cast<char>(text[k]));
      if (exponent < kExponentLimit) exponent = exponent * 10 + (text[k] - u'0');
    }
    if (k > firstDigit) {
      scan.ascii += part;
      scan.end = k;
      if (negativeExponent) exponent = -exponent;
    } else {
      scan.bareExponent = true;
      exponent = 0;
    }
  }
  scan.magnitude = (integerDigits > 0 ? integerDigits - 1 : -(fractionZeros + 1)) + exponent;
  return scan;
}

double DecimalValue(const DecimalScan& scan) {
  double value = 0;
  const char* const first = scan.ascii.data();
  const auto result = std::from_chars(first, first + scan.ascii.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    // from_chars leaves the value alone when it cannot represent it.
    value = scan.magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    if (scan.negative) value = -value;
  }
  return value;
}

StringView TrimNumberSpace(StringView text) {
  size_t first = 0;
  size_t end = text.size();
  while (first < end && IsNumberSpace(text[first])) ++first;
  while (end > first && IsNumberSpace(text[end - 1])) --end;
  return text.substr(first, end - first);
}

bool StartsWithRadixPrefix(StringView text) {
  return text.size() >= 2 && text[0] == u'&' &&
         (text[1] == u'H' || text[1] == u'h' || text[1] == u'O' || text[1] == u'o');
}

bool IsHexPrefix(StringView text) { return text.size() >= 2 && (text[1] == u'H' || text[1] == u'h'); }

RadixScan ScanRadixDigits(StringView text, bool hex) {
  RadixScan scan;
  const uint64_t radix = hex ? 16 : 8;
  uint64_t value = 0;
  for (; scan.digits < text.size(); ++scan.digits) {
    const int digit = RadixDigitValue(text[scan.digits], hex);
    if (digit < 0) break;
    const uint64_t next = value * radix + static_cast<uint64_t>(digit);
    if (next > 0xFFFF'FFFFULL) {
      scan.overflow = true;
      break;
    }
    value = next;
  }
  const size_t shortDigits = hex ? 4 : 6;
  if (scan.digits <= shortDigits && value <= 0xFFFF) {
    scan.value = static_cast<int16_t>(static_cast<uint16_t>(value));
  } else {
    scan.value = static_cast<int32_t>(static_cast<uint32_t>(value));
  }
  return scan;
}

}  // namespace vd::automation::detail
