// A number shown and the number read back follow the same rules, so a look at
// a constant variable never changes its value, whatever the locale.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "dialog_fixture.h"
#include "vd/automation/numeric.h"

namespace vd::robust_test {
namespace {

using automation::FormatGeneral;
using automation::String;
using automation::ToUtf8;
using Limits = std::numeric_limits<double>;

// The number syntax of a locale whose decimal separator is "," and whose
// thousands separator is ".", as Automation reads it there: "." before the
// decimal separator is dropped, so "1.5" reads 15. Installed for the life of
// the object, with decimal as the separator the general number format writes.
std::optional<double> ParseCommaLocale(automation::StringView text) {
  std::string ascii;
  bool decimals = false;
  for (const char16_t c : text) {
    if (c == u'.' && !decimals) continue;  // grouping
    decimals = decimals || c == u',';
    ascii.push_back(c == u',' ? '.' : static_cast<char>(c));
  }
  double value = 0;
  const auto [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
  if (ascii.empty() || error != std::errc() || end != ascii.data() + ascii.size()) return std::nullopt;
  return value;
}

class CommaLocale {
 public:
  explicit CommaLocale(automation::String decimal = u",") {
    automation::SetNumberParser(ParseCommaLocale);
    automation::SetDecimalSeparator(std::move(decimal));
  }
  ~CommaLocale() {
    automation::SetNumberParser({});
    automation::SetDecimalSeparator({});
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
};

// Fractions, 16 and 17 significant digits, both exponent forms, the ends of Double's range.
// clang-format off
const std::vector<double> kHardValues = {1.5, -0.25, 0.1 + 0.2, 1.0 / 3.0, 123456.789, 1234567.0, 1e15, 1.5e-7,
    0.0001, 9.999999999999999e14, Limits::max(), Limits::lowest(), Limits::min(), Limits::denorm_min(),
    Limits::epsilon(), 9007199254740993.0, -2.2250738585072009e-308};
// clang-format on

uint64_t Bits(double value) { return std::bit_cast<uint64_t>(value); }

TEST(NumberRoundTrip, EveryValueReadsBackBitForBitWithThePointOrACommaSyntax) {
  std::vector<double> values = kHardValues;
  std::mt19937_64 random(20261123);  // finite doubles from random bits, random decimal fractions
  while (values.size() < 40000) {
    const double fromBits = std::bit_cast<double>(random());
    if (std::isfinite(fromBits)) values.push_back(fromBits);
    values.push_back(static_cast<double>(random() % 100000000) / static_cast<double>(1 + random() % 10000));
  }
  for (const bool comma : {true, false}) {  // then "." again when the syntax ends
    std::optional<CommaLocale> locale;
    if (comma) locale.emplace();
    for (const double value : values) {
      const String text = FormatGeneral(value);
      const auto back = automation::ParseNumber(text);
      ASSERT_TRUE(back.has_value()) << ToUtf8(text);
      EXPECT_EQ(Bits(*back), Bits(value == 0 ? 0.0 : value)) << ToUtf8(text);
    }
  }
}

// An editing run that clicks every constant variable and closes: every value
// is what it was (the run reports a change: every look writes the value and
// the scope back). With "." shown but "," read, 1.5 would turn into 15.
TEST(LookAtConstants, LeavesEveryValueBitForBitUnlessShownAndReadDiffer) {
  for (const char16_t* shown : {u"", u",", u"."}) {
    std::optional<CommaLocale> locale;
    if (*shown != u'\0') locale.emplace(shown);
    const bool mismatch = String(shown) == u".";
    const size_t count = mismatch ? 1 : kHardValues.size();  // 1.5 alone
    DialogFixture<> f;
    auto display = sample::MemoryDisplay::Create();
    display->DataSources()->AddDs(toolkit::kind::kMemory, u"")->GetDsVars()->AddDsv()->SetDsvValue(2.5);
    const toolkit::DsvListRef constants = display->DataSources()->AddDs(toolkit::kind::kConstant, u"")->GetDsVars();
    for (size_t i = 0; i < count; ++i) constants->AddDsv()->SetDsvValue(kHardValues[i]);
    for (size_t i = 1; i <= count; ++i) {
      const String key = u"2:" + automation::ToDecimal(static_cast<long long>(i));
      f.user.SelectNode(f.dlg.treDataSources, key).Check([&f, key] {
        EXPECT_TRUE(f.dlg.txtDsvValue.Visible()) << ToUtf8(key);
      });
    }
    f.user.Click(f.dlg.dbClose);
    f.desk.EditDataSources(display);
    EXPECT_EQ(constants->DsvItem(1)->GetDsvValue(), mismatch ? 15 : 1.5);
    for (size_t i = 1; i < count; ++i) {
      EXPECT_EQ(Bits(constants->DsvItem(static_cast<int32_t>(i + 1))->GetDsvValue()), Bits(kHardValues[i])) << i;
    }
    EXPECT_TRUE(f.desk.IsModified());
  }
}

}  // namespace
}  // namespace vd::robust_test
