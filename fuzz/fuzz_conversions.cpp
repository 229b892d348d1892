// CDbl, CLng, CInt, CSng and CBool of any text: each gives a value or raises
// type mismatch (13) or overflow (6), nothing else; the whole-number
// conversions are CDbl rounded half to even; CStr of the Double reads back.
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>

#include "fuzz_text.h"
#include "vd/automation/conversions.h"
#include "vd/automation/error.h"
#include "vd/automation/numeric.h"

namespace {

using vd::automation::Variant;
using vd::fuzz::Require;
namespace err = vd::automation::err;

// The error number the conversion raised, 0 for none.
template <class T>
int32_t Convert(const std::function<T()>& conversion, std::optional<T>& result) {
  try {
    result = conversion();
    return 0;
  } catch (const vd::automation::AutomationError& error) {
    Require(error.Number() == err::kTypeMismatch || error.Number() == err::kOverflow);
    return error.Number();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const Variant text(vd::fuzz::TextOf(data, size));
  std::optional<double> d;
  std::optional<int32_t> l;
  std::optional<int16_t> i;
  std::optional<float> s;
  std::optional<bool> b;
  const int32_t dError = Convert<double>([&] { return vd::automation::CDbl(text); }, d);
  const int32_t lError = Convert<int32_t>([&] { return vd::automation::CLng(text); }, l);
  Convert<int16_t>([&] { return vd::automation::CInt(text); }, i);
  Convert<float>([&] { return vd::automation::CSng(text); }, s);
  Convert<bool>([&] { return vd::automation::CBool(text); }, b);

  if (dError != 0) {  // no number: no whole number either
    Require(lError == dError && !i && !s);
    return 0;
  }
  Require(std::isfinite(*d));
  const double nearest = std::nearbyint(*d);  // the default rounding: half to even
  const bool fitsLong = nearest >= -2147483648.0 && nearest <= 2147483647.0;
  const bool fitsInteger = nearest >= -32768.0 && nearest <= 32767.0;
  Require(fitsLong == l.has_value() && fitsInteger == i.has_value());
  if (l) Require(*l == static_cast<int32_t>(nearest));
  if (i) Require(*i == static_cast<int16_t>(nearest));
  if (s) Require(std::isfinite(*s));
  Require(b && *b == (*d != 0));

  const Variant shown(vd::automation::CStr(Variant(*d)));
  Require(std::bit_cast<uint64_t>(vd::automation::CDbl(shown)) == std::bit_cast<uint64_t>(*d));
  return 0;
}
