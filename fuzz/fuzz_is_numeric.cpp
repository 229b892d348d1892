// IsNumeric on any text, with the point and with a comma as decimal
// separator: it answers without failing, exactly when the text reads as a
// number; and a number it accepts, shown in the general number format, reads
// back as the same value, also where the separator is a comma.
#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

#include "fuzz_text.h"
#include "vd/automation/error.h"
#include "vd/automation/numeric.h"

namespace {

using vd::automation::String;
using vd::automation::StringView;
using vd::fuzz::Require;

std::optional<double> Parsed(StringView text) {
  try {
    return vd::automation::ParseNumber(text);
  } catch (const vd::automation::AutomationError& error) {
    Require(error.Number() == vd::automation::err::kOverflow);
    return std::nullopt;
  }
}

// The comma syntax of a German locale, on top of the default one: "," is the
// decimal separator, "." is not accepted.
std::optional<double> ParseWithComma(StringView text) {
  if (text.find(u'.') != StringView::npos) return std::nullopt;
  String swapped(text);
  for (char16_t& c : swapped)
    if (c == u',') c = u'.';
  vd::automation::SetNumberParser({});
  std::optional<double> value;
  try {
    value = vd::automation::ParseNumber(swapped);
  } catch (...) {
    vd::automation::SetNumberParser(ParseWithComma);
    throw;
  }
  vd::automation::SetNumberParser(ParseWithComma);
  return value;
}

void CheckSyntax(const String& text) {
  const bool numeric = vd::automation::IsNumeric(text);
  const std::optional<double> value = Parsed(text);
  Require(numeric == value.has_value());
  if (!value) return;
  Require(!std::isnan(*value) && !std::isinf(*value));
  const String shown = vd::automation::FormatGeneral(*value);
  Require(vd::automation::IsNumeric(shown));
  const std::optional<double> back = Parsed(shown);
  Require(back && std::bit_cast<uint64_t>(*back) == std::bit_cast<uint64_t>(*value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const String text = vd::fuzz::TextOf(data, size);
  CheckSyntax(text);
  vd::automation::SetNumberParser(ParseWithComma);
  vd::automation::SetDecimalSeparator(u",");
  CheckSyntax(text);
  vd::automation::SetNumberParser({});
  vd::automation::SetDecimalSeparator({});
  return 0;
}
