#include "platform/ansi_text.h"

#include <gtest/gtest.h>

#include <string>

namespace vd::platform {
namespace {

using namespace std::string_literals;

TEST(Latin1, EveryByteIsTheCharacterOfItsCode) {
  std::string bytes;
  for (int b = 0; b < 256; ++b) bytes.push_back(static_cast<char>(b));
  const std::u16string text = FromLatin1(bytes);
  ASSERT_EQ(text.size(), 256u);
  for (size_t i = 0; i < text.size(); ++i) EXPECT_EQ(static_cast<size_t>(text[i]), i);
  EXPECT_EQ(ToLatin1(text), bytes);
}

struct EncodeCase {
  std::u16string text;
  std::string expected;
};

class ToLatin1Test : public ::testing::TestWithParam<EncodeCase> {};

TEST_P(ToLatin1Test, ReplacesWhatLatin1Lacks) { EXPECT_EQ(ToLatin1(GetParam().text), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(Texts, ToLatin1Test,
                         ::testing::Values(EncodeCase{u"", ""},
                                           EncodeCase{u"Grüße",
                                                      "Gr\xFC\xDF"
                                                      "e"},
                                           EncodeCase{u"\u20AC1", "?1"}, EncodeCase{u"a\0b"s, "a\0b"s},
                                           EncodeCase{u"\U0001F600", "??"}));

}  // namespace
}  // namespace vd::platform
