// Numbers in text: Val's prefix reading, IsNumeric and ParseNumber's syntax,
// an installed parser, and FormatGeneral's shortest text.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "error_number.h"
#include "vd/automation/conversions.h"
#include "vd/automation/error.h"
#include "vd/automation/numeric.h"

namespace vd::automation {
namespace {

using testing::ErrorNumberOf;
constexpr double kInf = std::numeric_limits<double>::infinity();

struct ValCase {
  String text;
  double expected;
};

void ExpectVal(const ValCase& c) {
  const double v = Val(c.text);
  EXPECT_EQ(v, c.expected) << ToUtf8(c.text);
  EXPECT_FALSE(std::signbit(v) && v == 0) << "negative zero for " << ToUtf8(c.text);
}

TEST(Val, ReadsTheLongestPrefixAndIsZeroWithoutANumber) {
  const std::string zeros(400, '0');
  const ValCase cases[] = {
      {u"  1 2 3abc", 123}, {u"-3.5e2x", -350},  {u"12 - Main", 12}, {u"+.5", 0.5},  {u"1.5.6", 1.5},
      {u"1,5", 1},          {u"2d-1", 0.2},      {u"12e3e4", 12000}, {u"- 5", -5},   {u"\t-\n4", -4},
      {u"1\r2", 1},         {u"3 . 5", 3.5},     {u"0x1A", 0},       {u"", 0},       {u"-.", 0},
      {u"--5", 0},          {u"-0", 0},          {u"\u0661", 0},     {u"1E+", 1},    {u"7e 2", 700},
      {u"-1e400", -kInf},   {u"-1e-400", 0},     {u"&h 1f", 31},     {u"& h1f", 31}, {u"&H8000", -32768},
      {u"&H0FFFF", 65535},  {u"&H10000", 65536}, {u"&O78", 7},       {u"&hG", 0},    {u"-&H10", 0},
  };
  const ValCase limits[] = {
      {u"0e99999999999999999999", 0},         {FromUtf8("1" + zeros + "e-100"), 1e300},
      {FromUtf8("0." + zeros + "1e402"), 10}, {u"4.9406564584124654e-324", std::numeric_limits<double>::denorm_min()},
      {u"&H123456789", 0x12345678},           {u"&O40000000000", 0x20000000}};
  for (const ValCase& c : limits) ExpectVal(c);
  for (const ValCase& c : cases) ExpectVal(c);
}

TEST(IsNumeric, DefaultSyntaxOfTextAndVariants) {
  const struct {
    String text;
    bool numeric;
  } cases[] = {{u"", false},      {u"1e", false},    {u"&h", false},        {u"\t1\r\n", true},
               {u"\v1\f", true},  {u"-.5", true},    {u"1.", true},         {u"1d3", true},
               {u"1e400", false}, {u"1e-400", true}, {u"1 2", false},       {u"1,000", false},
               {u"- 1", false},   {u"1-", false},    {u"1e5.5", false},     {u"\u00A01", false},
               {u"Inf", false},   {u" &H1F ", true}, {u"&hFFFFFFFF", true}, {u"&H100000000", false},
               {u"& H1", false},  {u"&O8", false},   {u"12 - Main", false}};
  for (const auto& c : cases) EXPECT_EQ(IsNumeric(Variant(c.text)), c.numeric) << ToUtf8(c.text);
  const struct {
    Variant value;
    bool numeric;
  } variants[] = {{Variant(), true},         {Variant::Null(), false},  {Variant(true), true},
                  {Variant(nullptr), false}, {Variant(Array{}), false}, {Variant(u"7"), true}};
  for (const auto& c : variants) EXPECT_EQ(IsNumeric(c.value), c.numeric) << ToUtf8(TypeName(c.value));
  EXPECT_FALSE(IsNumeric(static_cast<const char16_t*>(nullptr)));
}

TEST(ParseNumber, ValuesAndErrors) {
  const struct {
    String text;
    std::optional<double> value;
    int32_t error;
  } cases[] = {{u"-0", 0.0, 0},
               {u"&HFFFF", -1, 0},
               {u"&H10000", 65536, 0},
               {u"abc", std::nullopt, 0},
               {u"1e400", std::nullopt, err::kOverflow},
               {u"&H100000000", std::nullopt, err::kOverflow}};
  for (const auto& c : cases) {
    std::optional<double> got;
    EXPECT_EQ(ErrorNumberOf([&] { got = ParseNumber(c.text); }), c.error) << ToUtf8(c.text);
    EXPECT_EQ(got, c.value) << ToUtf8(c.text);
    EXPECT_FALSE(got && *got == 0 && std::signbit(*got)) << ToUtf8(c.text);
  }
}

// Puts the default syntax back however a test ends.
class NumberParserTest : public ::testing::Test {
 protected:
  void TearDown() override { SetNumberParser({}); }
};

TEST_F(NumberParserTest, AnInstalledParserDecidesWhatIsNumericButNotVal) {
  // A syntax with a decimal comma and nothing else.
  SetNumberParser([](StringView text) -> std::optional<double> {
    if (text == u"1,5") return 1.5;
    if (text == u"huge") Raise(err::kOverflow);
    if (text == u"minus zero") return -0.0;
    return std::nullopt;
  });
  EXPECT_TRUE(IsNumeric(u"1,5"));
  EXPECT_FALSE(IsNumeric(u"1.5"));
  EXPECT_FALSE(IsNumeric(u"huge"));
  EXPECT_EQ(CLng(u"1,5"), 2);
  EXPECT_EQ(ErrorNumberOf([] { (void)CDbl(u"1.5"); }), err::kTypeMismatch);
  EXPECT_EQ(ErrorNumberOf([] { (void)CDbl(u"huge"); }), err::kOverflow);
  EXPECT_FALSE(std::signbit(*ParseNumber(u"minus zero")));
  EXPECT_EQ(Val(u"1,5"), 1);
  SetNumberParser({});
  EXPECT_TRUE(IsNumeric(u"1.5"));
}

TEST(FormatGeneral, FixedUpTo15DigitsThenExponentFormInDoubleOrSinglePrecision) {
  const struct {
    double value;
    String text;
  } doubles[] = {{-0.0, u"0"},
                 {0.1 + 0.2, u"0.30000000000000004"},  // the shortest text that reads back
                 {123456789012345.6, u"123456789012345.6"},
                 {-1e15, u"-1E+15"},
                 {0.0001, u"0.0001"},
                 {0.000099, u"9.9E-05"},
                 {-1.5e-300, u"-1.5E-300"},
                 {std::numeric_limits<double>::denorm_min(), u"5E-324"},
                 {-kInf, u"-Inf"},
                 {std::numeric_limits<double>::quiet_NaN(), u"NaN"}};
  for (const auto& c : doubles) EXPECT_EQ(FormatGeneral(c.value), c.text) << ToUtf8(c.text);
  const struct {
    float value;
    String text;
  } singles[] = {{1.0F / 3.0F, u"0.33333334"},
                 {9999999.0F, u"9999999"},
                 {16777216.0F, u"1.6777216E+07"},
                 {1e-5F, u"1E-05"},
                 {-0.0F, u"0"}};
  for (const auto& c : singles) EXPECT_EQ(FormatGeneral(c.value), c.text) << ToUtf8(c.text);
}

// Random bit patterns cover every exponent; each text must read back to the
// same value, start without a blank and carry no more digits than needed.
TEST(FormatGeneral, EveryDoubleAndSingleReadsBackFromItsText) {
  std::mt19937_64 random(20240611);
  for (int i = 0; i < 20000; ++i) {
    const uint64_t bits = random();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    float single = 0;
    std::memcpy(&single, &bits, sizeof single);
    if (std::isfinite(single)) {
      EXPECT_EQ(static_cast<float>(*ParseNumber(FormatGeneral(single))), single) << ToUtf8(FormatGeneral(single));
    }
    if (!std::isfinite(value)) continue;
    const String text = FormatGeneral(value);
    ASSERT_FALSE(text.empty());
    EXPECT_NE(text.front(), u' ');
    EXPECT_EQ(ParseNumber(text), value) << ToUtf8(text);
    EXPECT_EQ(Val(text), value) << ToUtf8(text);
    String mantissa;
    for (const char16_t c : text.substr(0, text.find(u'E')))
      if (c >= u'0' && c <= u'9' && (c != u'0' || !mantissa.empty())) mantissa.push_back(c);
    EXPECT_LE(mantissa.size(), 17U) << ToUtf8(text);
  }
}

}  // namespace
}  // namespace vd::automation
