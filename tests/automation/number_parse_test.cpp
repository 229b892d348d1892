#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "error_number.h"
#include "vd/automation/conversions.h"
#include "vd/automation/error.h"
#include "vd/automation/numeric.h"

namespace vd::automation {
namespace {

using testing::ErrorNumberOf;

TEST(IsNumeric, DefaultSyntax) {
  const struct {
    String text;
    bool numeric;
  } cases[] = {
      {u"", false},      {u" ", false},           {u"+", false},      {u"-", false},         {u".", false},
      {u"1e", false},    {u"1e+", false},         {u"1E-", false},    {u"&h", false},        {u"&H", false},
      {u"1", true},      {u" 1 ", true},          {u"\t1\r\n", true}, {u"\v1\f", true},      {u"+1", true},
      {u"-1.5", true},   {u"1.", true},           {u".5", true},      {u"-.5", true},        {u"1e5", true},
      {u"1E-5", true},   {u"1e+05", true},        {u"1d3", true},     {u"1e400", false},     {u"-1e400", false},
      {u"1e-400", true}, {u"1 2", false},         {u"1,5", false},    {u"1,000", false},     {u"1.2.3", false},
      {u"abc", false},   {u"12abc", false},       {u"--1", false},    {u"+-1", false},       {u"- 1", false},
      {u"1-", false},    {u"(1)", false},         {u"0x10", false},   {u"1e5.5", false},     {u"Inf", false},
      {u"NaN", false},   {u"\u00A01", false},     {u"\u0661", false}, {u"&hFFFFFFFF", true}, {u"&H1F", true},
      {u" &H1F ", true}, {u"&H100000000", false}, {u"&HFG", false},   {u"& H1", false},      {u"&O17", true},
      {u"&O8", false},   {u"12 - Main", false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(IsNumeric(c.text), c.numeric) << ToUtf8(c.text);
    EXPECT_EQ(IsNumeric(Variant(c.text)), c.numeric) << ToUtf8(c.text);
  }
}

TEST(IsNumeric, OfVariantsByKind) {
  auto object = std::make_shared<Object>();
  const struct {
    Variant value;
    bool numeric;
  } cases[] = {
      {Variant(), true},      {Variant::Null(), false}, {Variant(int16_t{1}), true}, {Variant(1), true},
      {Variant(1.5F), true},  {Variant(1.5), true},     {Variant(true), true},       {Variant(u"7"), true},
      {Variant(u"x"), false}, {Variant(object), false}, {Variant(nullptr), false},   {Variant(Array{}), false},
  };
  for (const auto& c : cases) EXPECT_EQ(IsNumeric(c.value), c.numeric) << ToUtf8(TypeName(c.value));
}

TEST(IsNumeric, AcceptsEveryKindOfTextArgument) {
  const String owned = u"12";
  const char16_t* pointer = u"x";
  EXPECT_TRUE(IsNumeric(owned));
  EXPECT_FALSE(IsNumeric(pointer));
  EXPECT_FALSE(IsNumeric(static_cast<const char16_t*>(nullptr)));
  EXPECT_TRUE(IsNumeric(StringView(u" 3 ")));
}

TEST(ParseNumber, ValuesAndErrors) {
  const struct {
    String text;
    std::optional<double> value;
    int32_t error;
  } cases[] = {
      {u" 2.5 ", 2.5, 0},
      {u"-0", 0.0, 0},
      {u"&HFFFF", -1, 0},
      {u"&HFFFFFFFF", -1, 0},
      {u"&H10000", 65536, 0},
      {u"1e-400", 0.0, 0},
      {u"abc", std::nullopt, 0},
      {u"", std::nullopt, 0},
      {u"1e400", std::nullopt, err::kOverflow},
      {u"&H100000000", std::nullopt, err::kOverflow},
  };
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

TEST_F(NumberParserTest, AnInstalledParserDecidesWhatIsNumeric) {
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
  EXPECT_EQ(CDbl(u"1,5"), 1.5);
  EXPECT_EQ(CLng(u"1,5"), 2);
  EXPECT_EQ(ErrorNumberOf([] { (void)CDbl(u"1.5"); }), err::kTypeMismatch);
  EXPECT_EQ(ErrorNumberOf([] { (void)CDbl(u"huge"); }), err::kOverflow);
  EXPECT_FALSE(std::signbit(*ParseNumber(u"minus zero")));
  // Val keeps its own, locale-free syntax.
  EXPECT_EQ(Val(u"1,5"), 1);
  EXPECT_EQ(Val(u"1.5"), 1.5);

  SetNumberParser({});
  EXPECT_TRUE(IsNumeric(u"1.5"));
  EXPECT_FALSE(IsNumeric(u"1,5"));
}

}  // namespace
}  // namespace vd::automation
