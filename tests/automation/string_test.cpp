#include <gtest/gtest.h>

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
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FromUtf8(c.utf8), c.utf16) << c.utf8;
    EXPECT_EQ(ToUtf8(c.utf16), c.utf8) << c.utf8;
  }
}

TEST(Utf8, MalformedBytesBecomeReplacementCharacters) {
  EXPECT_EQ(FromUtf8("a\xFF" "b"), u"a\uFFFDb");
  EXPECT_EQ(FromUtf8("a\xC3"), u"a\uFFFD");
  EXPECT_EQ(FromUtf8("\xC0\xAF"), u"\uFFFD\uFFFD");  // overlong form
}

}  // namespace
}  // namespace vd::automation
