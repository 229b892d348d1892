// UTF-8 conversion, decimal text, case mapping and blank handling.
#include <gtest/gtest.h>

#include <climits>
#include <random>

#include "vd/automation/string.h"
#include "vd/automation/text.h"

namespace vd::automation {
namespace {

struct TextPair {
  String in;
  String out;
};

TEST(Utf8, RoundTripsAndReplacesEachIllFormedSubsequenceOnce) {
  const struct {
    std::string utf8;
    String utf16;
  } wellFormed[] = {{"K\xC3\xBChlung \xE2\x82\xAC", u"K\u00FChlung \u20AC"},
                    {"\xF4\x8F\xBF\xBF", u"\U0010FFFF"},
                    {std::string("a\0b", 3), String(u"a\0b", 3)}},
    illFormed[] = {{"a\xC3", u"a\uFFFD"},
                   {"\xE2\x82x", u"\uFFFDx"},
                   {"\xC0\xAF", u"\uFFFD\uFFFD"},
                   {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
                   {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
                   {"\xC3\xC3\xA9", u"\uFFFD\u00E9"}};
  for (const auto& c : wellFormed) {
    EXPECT_EQ(FromUtf8(c.utf8), c.utf16) << c.utf8;
    EXPECT_EQ(ToUtf8(c.utf16), c.utf8) << c.utf8;
  }
  for (const auto& c : illFormed) EXPECT_EQ(FromUtf8(c.utf8), c.utf16) << c.utf8;
  EXPECT_EQ(ToUtf8(String{static_cast<char16_t>(0xDC00), static_cast<char16_t>(0xD800)}), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8, RandomWellFormedTextSurvivesTheRoundTrip) {
  std::mt19937 random(3);
  for (int i = 0; i < 500; ++i) {
    String text;
    for (int k = 0; k < 20; ++k) {
      const uint32_t cp = random() % 0x110000;
      if (cp >= 0xD800 && cp <= 0xDFFF) continue;
      if (cp >= 0x10000) {
        text.push_back(static_cast<char16_t>(0xD800 + ((cp - 0x10000) >> 10)));
        text.push_back(static_cast<char16_t>(0xDC00 + ((cp - 0x10000) & 0x3FF)));
      } else {
        text.push_back(static_cast<char16_t>(cp));
      }
    }
    ASSERT_EQ(FromUtf8(ToUtf8(text)), text);
  }
}

TEST(ToDecimal, WholeNumbersWithoutBlanks) {
  EXPECT_EQ(ToDecimal(-12), u"-12");
  EXPECT_EQ(ToDecimal(LLONG_MIN), u"-9223372036854775808");
}

TEST(CaseMapping, MapsLettersBeyondAscii) {
  const TextPair upper[] = {
      {u"abc xyz 09 !?", u"ABC XYZ 09 !?"},
      {u"stra\u00DFe\u00FF\u00F7", u"STRA\u00DFE\u0178\u00F7"},    // ß stays, ÿ, ÷ is no letter
      {u"\u0131\u01C6\u01C5", u"I\u01C4\u01C4"},                   // dotless i, dž and its title case
      {u"\u03B1\u03C2\u03AC\u1F80", u"\u0391\u03A3\u0386\u1F88"},  // Greek, final sigma, subscript iota
      {u"\u0451\u0561\u1EBF\u2170\u24D0\uFF41", u"\u0401\u0531\u1EBE\u2160\u24B6\uFF21"},
      {u"\U00010428\u6C34", u"\U00010428\u6C34"},  // a surrogate pair stays as it is
  };
  for (const auto& c : upper) EXPECT_EQ(UCase(c.in), c.out) << ToUtf8(c.in);
  const TextPair lower[] = {{u"ABC\u00C0\u0178", u"abc\u00E0\u00FF"},
                            {u"STRA\u1E9EE\u0130", u"stra\u00DFe\u0130"},  // capital sharp s; dotted I stays
                            {u"\u03A3\u0401\uFF21", u"\u03C3\u0451\uFF41"}};
  for (const auto& c : lower) EXPECT_EQ(LCase(c.in), c.out) << ToUtf8(c.in);
}

TEST(CompareIgnoreCase, OrdersByUpperCasedCodeUnits) {
  const struct {
    String a;
    String b;
    int sign;
  } cases[] = {{u"abc", u"ABC", 0},
               {u"ab", u"abc", -1},
               {u"_", u"a", 1},  // 'A' (65) sorts before '_' (95)
               {u"\u00E9", u"\u00C9", 0},
               {u"a", u"\u00E0", -1}};
  for (const auto& c : cases) {
    const int got = CompareIgnoreCase(c.a, c.b);
    EXPECT_EQ((got > 0) - (got < 0), c.sign) << ToUtf8(c.a) << " / " << ToUtf8(c.b);
    EXPECT_EQ(EqualsIgnoreCase(c.a, c.b), c.sign == 0) << ToUtf8(c.a) << " / " << ToUtf8(c.b);
  }
  EXPECT_TRUE(ContainsIgnoreCase(u"Tank \u00C9COLE 1", u"\u00e9cole"));
  EXPECT_TRUE(ContainsIgnoreCase(u"", u""));
  EXPECT_FALSE(ContainsIgnoreCase(u"abc", u"abcd"));
  EXPECT_FALSE(ContainsIgnoreCase(u"a b", u"ab"));
}

TEST(Blanks, NormalizeCollapsesBlanksAndTabsTrimRemovesBlanksOnly) {
  const TextPair normalized[] = {{u"\t \t", u""},
                                 {u"\t a \t b\t", u"a b"},
                                 {u"name   class   # comment", u"name class # comment"},
                                 {u"a\u00A0 b", u"a\u00A0 b"},
                                 {u" a \r\n", u"a \r\n"}};
  for (const auto& c : normalized) EXPECT_EQ(NormalizeBlanks(c.in), c.out) << ToUtf8(c.in);
  const TextPair trimmed[] = {{u"   ", u""}, {u"  a b  ", u"a b"}, {u" \tx\t", u"\tx\t"}};
  for (const auto& c : trimmed) EXPECT_EQ(Trim(c.in), c.out) << ToUtf8(c.in);
}

}  // namespace
}  // namespace vd::automation
