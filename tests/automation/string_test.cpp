#include <gtest/gtest.h>

#include <climits>
#include <random>

#include "vd/automation/string.h"

namespace vd::automation {
namespace {

TEST(Utf8, RoundTripsTextOutsideAscii) {
  const struct {
    std::string utf8;
    String utf16;
  } cases[] = {
      {"", u""},
      {"Plant", u"Plant"},
      {"K\xC3\xBChlung \xE2\x82\xAC", u"K\u00FChlung \u20AC"},
      {"\xF0\x9F\x94\xA5", u"\U0001F525"},
      {"\xF4\x8F\xBF\xBF", u"\U0010FFFF"},
      {"\xEF\xBF\xBF", u"\uFFFF"},
      {std::string("a\0b", 3), String(u"a\0b", 3)},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FromUtf8(c.utf8), c.utf16) << c.utf8;
    EXPECT_EQ(ToUtf8(c.utf16), c.utf8) << c.utf8;
  }
}

TEST(Utf8, EachIllFormedSubsequenceBecomesOneReplacementCharacter) {
  const struct {
    std::string utf8;
    String utf16;
  } cases[] = {
      {"a\xFF"
       "b",
       u"a\uFFFDb"},
      {"a\xC3", u"a\uFFFD"},
      {"\xE2\x82", u"\uFFFD"},  // truncated: one unit
      {"\xE2\x82x", u"\uFFFDx"},
      {"\xF0\x9F\x94", u"\uFFFD"},
      {"\xC0\xAF", u"\uFFFD\uFFFD"},                      // overlong form: no valid lead byte
      {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},            // overlong three-byte form
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},            // an encoded surrogate
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond U+10FFFF
      {"\x80\xBF", u"\uFFFD\uFFFD"},
      {"\xC3\xC3\xA9", u"\uFFFD\u00E9"},
  };
  for (const auto& c : cases) EXPECT_EQ(FromUtf8(c.utf8), c.utf16) << c.utf8;
}

TEST(Utf8, UnpairedSurrogatesBecomeReplacementCharacters) {
  const struct {
    String utf16;
    std::string utf8;
  } cases[] = {
      {String(1, static_cast<char16_t>(0xD800)), "\xEF\xBF\xBD"},
      {u"a" + String(1, static_cast<char16_t>(0xDC00)) + u"b",
       "a\xEF\xBF\xBD"
       "b"},
      {String{static_cast<char16_t>(0xDC00), static_cast<char16_t>(0xD800)}, "\xEF\xBF\xBD\xEF\xBF\xBD"},
  };
  for (const auto& c : cases) EXPECT_EQ(ToUtf8(c.utf16), c.utf8);
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
  const struct {
    long long value;
    String text;
  } cases[] = {
      {0, u"0"},
      {-12, u"-12"},
      {32768, u"32768"},
      {LLONG_MAX, u"9223372036854775807"},
      {LLONG_MIN, u"-9223372036854775808"},
  };
  for (const auto& c : cases) EXPECT_EQ(ToDecimal(c.value), c.text);
}

}  // namespace
}  // namespace vd::automation
