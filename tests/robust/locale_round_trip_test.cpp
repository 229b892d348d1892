// A number shown and the number read back follow the same rules, so a look at
// a constant variable never changes its value, whatever the locale.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "comma_locale.h"
#include "dialog_fixture.h"
#include "vd/automation/numeric.h"

namespace vd::robust_test {
namespace {

using automation::FormatGeneral;
using automation::ParseNumber;
using automation::String;
using automation::ToUtf8;

// Values whose text is easy to get wrong: fractions, 16 and 17 significant
// digits, both exponent forms, the ends of Double's range.
std::vector<double> HardValues() {
  return {1.5,
          -0.25,
          0.1 + 0.2,
          1.0 / 3.0,
          123456.789,
          1234567.0,
          1e15,
          1.5e-7,
          0.0001,
          9.999999999999999e14,
          std::numeric_limits<double>::max(),
          std::numeric_limits<double>::lowest(),
          std::numeric_limits<double>::min(),
          std::numeric_limits<double>::denorm_min(),
          std::numeric_limits<double>::epsilon(),
          9007199254740993.0,
          -2.2250738585072009e-308};
}

// Finite doubles from random bit patterns, and random decimal fractions.
std::vector<double> RandomValues(size_t count) {
  std::mt19937_64 random(20261123);
  std::vector<double> values;
  while (values.size() < count) {
    const double fromBits = std::bit_cast<double>(random());
    if (std::isfinite(fromBits)) values.push_back(fromBits);
    values.push_back(static_cast<double>(random() % 100000000) / static_cast<double>(1 + random() % 10000));
  }
  return values;
}

void ExpectEveryValueReadsBack(const std::vector<double>& values) {
  for (const double value : values) {
    const String text = FormatGeneral(value);
    const auto back = ParseNumber(text);
    ASSERT_TRUE(back.has_value()) << ToUtf8(text);
    EXPECT_EQ(std::bit_cast<uint64_t>(*back), std::bit_cast<uint64_t>(value == 0 ? 0.0 : value)) << ToUtf8(text);
  }
}

TEST(NumberRoundTrip, EveryValueReadsBackBitForBitWithThePointSyntax) {
  ExpectEveryValueReadsBack(HardValues());
  ExpectEveryValueReadsBack(RandomValues(20000));
}

TEST(NumberRoundTrip, EveryValueReadsBackBitForBitWithACommaLocale) {
  const CommaLocale locale;
  ExpectEveryValueReadsBack(HardValues());
  ExpectEveryValueReadsBack(RandomValues(20000));
}

TEST(NumberRoundTrip, TheGeneralFormatWritesTheDecimalSeparatorOfTheSyntax) {
  const std::tuple<double, const char16_t*, const char16_t*> cases[] = {
      {1.5, u"1.5", u"1,5"},      {-0.25, u"-0.25", u"-0,25"},    {1.5e-7, u"1.5E-07", u"1,5E-07"},
      {1e15, u"1E+15", u"1E+15"}, {1234.5, u"1234.5", u"1234,5"}, {12, u"12", u"12"}};
  for (const auto& [value, point, comma] : cases) {
    EXPECT_EQ(FormatGeneral(value), point);
    {
      const CommaLocale locale;
      EXPECT_EQ(FormatGeneral(value), comma);
      EXPECT_EQ(FormatGeneral(static_cast<float>(value)), comma);
    }
    EXPECT_EQ(FormatGeneral(value), point);  // the syntax's end restores "."
  }
}

// A display with one constant data source whose variables hold the hard
// values, and a memory data source beside it.
std::shared_ptr<sample::MemoryDisplay> ConstantsDisplay(const std::vector<double>& values) {
  auto display = sample::MemoryDisplay::Create();
  display->DataSources()->AddDs(toolkit::kind::kMemory, u"")->GetDsVars()->AddDsv()->SetDsvValue(2.5);
  const toolkit::DsvListRef constants = display->DataSources()->AddDs(toolkit::kind::kConstant, u"")->GetDsVars();
  for (const double value : values) constants->AddDsv()->SetDsvValue(value);
  return display;
}

struct LookCase {
  const char* name;
  bool commaLocale;
};

template <class Case>
std::string CaseName(const ::testing::TestParamInfo<Case>& tested) {
  return tested.param.name;
}

class LookAtConstants : public ::testing::TestWithParam<LookCase> {};

// An editing run that clicks every constant variable and closes: every value
// is what it was, and the run reports a change, since every look writes the
// value and the scope back.
TEST_P(LookAtConstants, LeavesEveryValueBitForBit) {
  std::optional<CommaLocale> locale;
  if (GetParam().commaLocale) locale.emplace();
  const std::vector<double> values = HardValues();
  DialogFixture f;
  const auto display = ConstantsDisplay(values);
  for (size_t i = 1; i <= values.size(); ++i) {
    const String key = u"2:" + automation::ToDecimal(static_cast<long long>(i));
    f.user.SelectNode(f.dlg.treDataSources, key).Check([&f, key] {
      EXPECT_TRUE(f.dlg.txtDsvValue.Visible()) << ToUtf8(key);
    });
  }
  f.user.Click(f.dlg.dbClose);
  f.desk.EditDataSources(display);
  const toolkit::DsvListRef constants = display->DataSources()->Item(2)->GetDsVars();
  for (size_t i = 0; i < values.size(); ++i) {
    const double now = constants->DsvItem(static_cast<int32_t>(i + 1))->GetDsvValue();
    EXPECT_EQ(std::bit_cast<uint64_t>(now), std::bit_cast<uint64_t>(values[i])) << "variable " << i + 1;
  }
  EXPECT_TRUE(f.desk.IsModified());
}

INSTANTIATE_TEST_SUITE_P(Locales, LookAtConstants, ::testing::Values(LookCase{"Point", false}, LookCase{"Comma", true}),
                         CaseName<LookCase>);

// The fault this guards against: the value shown with "." and read with the
// comma locale's rules turns 1.5 into 15 at a mere look.
TEST(LookAtConstantsMismatch, APointShownAndACommaReadChangesTheValue) {
  const CommaLocale mismatch(u".");
  DialogFixture f;
  const auto display = ConstantsDisplay({1.5});
  f.user.SelectNode(f.dlg.treDataSources, u"2:1").Click(f.dlg.dbClose);
  f.desk.EditDataSources(display);
  EXPECT_EQ(display->DataSources()->Item(2)->GetDsVars()->DsvItem(1)->GetDsvValue(), 15);
}

}  // namespace
}  // namespace vd::robust_test
