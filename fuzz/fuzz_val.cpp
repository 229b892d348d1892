// Val on any text: never fails, never NaN nor -0; a character that cannot
// continue a number changes nothing when appended; and where the strict
// number syntax reads the text, Val reads the same value.
#include <bit>
#include <cmath>
#include <cstdint>

#include "fuzz_text.h"
#include "vd/automation/error.h"
#include "vd/automation/numeric.h"

namespace {

using vd::automation::String;
using vd::fuzz::Require;

bool SameBits(double a, double b) { return std::bit_cast<uint64_t>(a) == std::bit_cast<uint64_t>(b); }

// Val skips blanks, tabs and line feeds anywhere; the strict syntax allows
// carriage returns, vertical tabs and form feeds around the number too.
bool HasSpaceOnlyTheStrictSyntaxSkips(const String& text) { return text.find_first_of(u"\r\v\f") != String::npos; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const String text = vd::fuzz::TextOf(data, size);
  const double value = vd::automation::Val(text);
  Require(!std::isnan(value));
  Require(!(value == 0 && std::signbit(value)));
  Require(SameBits(vd::automation::Val(text + u"x"), value));
  Require(SameBits(vd::automation::Val(text + u"#" + text), value));

  if (HasSpaceOnlyTheStrictSyntaxSkips(text)) return 0;
  try {
    if (const auto strict = vd::automation::ParseNumber(text)) Require(SameBits(*strict, value));
  } catch (const vd::automation::AutomationError& error) {
    Require(error.Number() == vd::automation::err::kOverflow);
  }
  return 0;
}
