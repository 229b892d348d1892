#include <gtest/gtest.h>

#include <cctype>

#include "vd/automation/text.h"

namespace vd::automation {
namespace {

struct TextPair {
  String in;
  String out;
};

TEST(UCase, MapsLettersBeyondAscii) {
  const TextPair cases[] = {
      {u"", u""},
      {u"abc xyz 09 !?", u"ABC XYZ 09 !?"},
      {u"sta:sov10", u"STA:SOV10"},
      {u"\u00E0\u00E9\u00EE\u00F5\u00FC", u"\u00C0\u00C9\u00CE\u00D5\u00DC"},  // àéîõü
      {u"stra\u00DFe", u"STRA\u00DFE"},                                        // ß has no one-letter capital
      {u"\u00FF", u"\u0178"},                                                  // ÿ
      {u"\u00F7\u00D7", u"\u00F7\u00D7"},                                      // ÷ × are no letters
      {u"\u0101\u0148\u017E", u"\u0100\u0147\u017D"},                          // ā ň ž
      {u"\u0131", u"I"},                                                       // dotless i
      {u"\u01C6\u01C5", u"\u01C4\u01C4"},                                      // dž and its title case
      {u"\u03B1\u03C9\u03C2\u03AC\u03CE", u"\u0391\u03A9\u03A3\u0386\u038F"},  // Greek, final sigma, accents
      {u"\u1F80\u1FB3", u"\u1F88\u1FBC"},                                      // with subscript iota
      {u"\u043F\u0440\u0438\u0432\u0435\u0442\u0451", u"\u041F\u0420\u0418\u0412\u0415\u0422\u0401"},
      {u"\u0561", u"\u0531"},                          // Armenian
      {u"\u1EBF", u"\u1EBE"},                          // Vietnamese ế
      {u"\u2170\u24D0\uFF41", u"\u2160\u24B6\uFF21"},  // ⅰ ⓐ full-width a
      {u"\U00010428", u"\U00010428"},                  // a surrogate pair stays as it is
      {u"\u6C34", u"\u6C34"},
  };
  for (const auto& c : cases) EXPECT_EQ(UCase(c.in), c.out) << ToUtf8(c.in);
}

TEST(LCase, MapsLettersBeyondAscii) {
  const TextPair cases[] = {
      {u"ABC xyz 09", u"abc xyz 09"},
      {u"\u00C0\u00DE", u"\u00E0\u00FE"},
      {u"\u0178", u"\u00FF"},
      {u"STRA\u1E9EE", u"stra\u00DFe"},  // capital sharp s
      {u"\u0130", u"\u0130"},            // dotted capital I has no one-letter small form
      {u"\u03A3\u0386", u"\u03C3\u03AC"},
      {u"\u0401\u042F", u"\u0451\u044F"},
      {u"\uFF21", u"\uFF41"},
  };
  for (const auto& c : cases) EXPECT_EQ(LCase(c.in), c.out) << ToUtf8(c.in);
}

TEST(CompareIgnoreCase, OrdersByUpperCasedCodeUnits) {
  const struct {
    String a;
    String b;
    int sign;
  } cases[] = {
      {u"", u"", 0},       {u"abc", u"ABC", 0},       {u"a", u"B", -1},      {u"B", u"a", 1},
      {u"ab", u"abc", -1}, {u"abc", u"ab", 1},        {u"_", u"a", 1},  // 'A' (65) sorts before '_' (95)
      {u"Z", u"_", -1},    {u"\u00E9", u"\u00C9", 0}, {u"a", u"\u00E0", -1}, {u"x1", u"X2", -1},
  };
  for (const auto& c : cases) {
    const int got = CompareIgnoreCase(c.a, c.b);
    EXPECT_EQ((got > 0) - (got < 0), c.sign) << ToUtf8(c.a) << " / " << ToUtf8(c.b);
    EXPECT_EQ(EqualsIgnoreCase(c.a, c.b), c.sign == 0) << ToUtf8(c.a) << " / " << ToUtf8(c.b);
  }
}

TEST(ContainsIgnoreCase, FindsTextAnywhere) {
  const struct {
    String haystack;
    String needle;
    bool found;
  } cases[] = {
      {u"Tank LEVEL 1", u"level", true},
      {u"Tank LEVEL 1", u"LEVEL 2", false},
      {u"abc", u"", true},
      {u"", u"", true},
      {u"", u"a", false},
      {u"abc", u"abcd", false},
      {u"\u00C9COLE", u"\u00E9cole", true},
      {u"xABc", u"bC", true},
      {u"a b", u"ab", false},
  };
  for (const auto& c : cases)
    EXPECT_EQ(ContainsIgnoreCase(c.haystack, c.needle), c.found) << ToUtf8(c.haystack) << " / " << ToUtf8(c.needle);
}

TEST(NormalizeBlanks, CollapsesBlanksAndTabsOnly) {
  const TextPair cases[] = {
      {u"", u""},
      {u"   ", u""},
      {u"\t \t", u""},
      {u"x", u"x"},
      {u"  x", u"x"},
      {u"x  ", u"x"},
      {u"a  b", u"a b"},
      {u"a\t\tb", u"a b"},
      {u"\t a \t b\t", u"a b"},
      {u" 1 . 5 ", u"1 . 5"},
      {u"name   class   # comment", u"name class # comment"},
      {u"a\nb", u"a\nb"},
      {u"a\u00A0 b", u"a\u00A0 b"},
      {u" a \r\n", u"a \r\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(NormalizeBlanks(c.in), c.out) << ToUtf8(c.in);
}

TEST(Trim, RemovesBlanksOnly) {
  const TextPair cases[] = {
      {u"", u""}, {u"   ", u""}, {u"  a b  ", u"a b"}, {u"\ta\t", u"\ta\t"}, {u"x", u"x"}, {u" \tx", u"\tx"},
  };
  for (const auto& c : cases) EXPECT_EQ(Trim(c.in), c.out) << ToUtf8(c.in);
}

}  // namespace
}  // namespace vd::automation
