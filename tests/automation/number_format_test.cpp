#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

#include "vd/automation/numeric.h"

namespace vd::automation {
namespace {

TEST(FormatGeneral, DoublesInFixedAndExponentForm) {
  const struct {
    double value;
    String text;
  } cases[] = {
      {0.0, u"0"},
      {-0.0, u"0"},
      {1, u"1"},
      {-1, u"-1"},
      {0.5, u"0.5"},
      {-0.5, u"-0.5"},
      {1.5, u"1.5"},
      {0.1, u"0.1"},
      {123.456, u"123.456"},
      {100, u"100"},
      {2147483648.0, u"2147483648"},
      {0.1 + 0.2, u"0.30000000000000004"},  // the shortest text that reads back
      {1e14, u"100000000000000"},
      {999999999999999.0, u"999999999999999"},
      {123456789012345.6, u"123456789012345.6"},
      {1e15, u"1E+15"},
      {-1e15, u"-1E+15"},
      {1234567890123456.0, u"1.234567890123456E+15"},
      {1e100, u"1E+100"},
      {0.0001, u"0.0001"},
      {0.00012, u"0.00012"},
      {0.000099, u"9.9E-05"},
      {0.00001, u"1E-05"},
      {1.5e-7, u"1.5E-07"},
      {-1.5e-300, u"-1.5E-300"},
      {std::numeric_limits<double>::max(), u"1.7976931348623157E+308"},
      {std::numeric_limits<double>::denorm_min(), u"5E-324"},
      {std::numeric_limits<double>::infinity(), u"Inf"},
      {-std::numeric_limits<double>::infinity(), u"-Inf"},
      {std::numeric_limits<double>::quiet_NaN(), u"NaN"},
  };
  for (const auto& c : cases) EXPECT_EQ(FormatGeneral(c.value), c.text) << ToUtf8(c.text);
}

TEST(FormatGeneral, SinglesUseSinglePrecision) {
  const struct {
    float value;
    String text;
  } cases[] = {
      {0.1F, u"0.1"},
      {-2.5F, u"-2.5"},
      {1.0F / 3.0F, u"0.33333334"},
      {1234567.0F, u"1234567"},
      {9999999.0F, u"9999999"},
      {1e7F, u"1E+07"},
      {16777216.0F, u"1.6777216E+07"},
      {0.0001F, u"0.0001"},
      {1e-5F, u"1E-05"},
      {std::numeric_limits<float>::max(), u"3.4028235E+38"},
      {-0.0F, u"0"},
  };
  for (const auto& c : cases) EXPECT_EQ(FormatGeneral(c.value), c.text) << ToUtf8(c.text);
}

// Random bit patterns cover every exponent; each text must read back to the
// same value, start without a blank and carry no more digits than needed.
TEST(FormatGeneral, EveryDoubleReadsBackFromItsText) {
  std::mt19937_64 random(20240611);
  for (int i = 0; i < 20000; ++i) {
    const uint64_t bits = random();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) continue;
    const String text = FormatGeneral(value);
    ASSERT_FALSE(text.empty());
    EXPECT_NE(text.front(), u' ');
    const auto back = ParseNumber(text);
    ASSERT_TRUE(back.has_value()) << ToUtf8(text);
    EXPECT_EQ(*back, value) << ToUtf8(text);
    EXPECT_EQ(Val(text), value) << ToUtf8(text);
    String mantissa;
    for (const char16_t c : text.substr(0, text.find(u'E')))
      if (c >= u'0' && c <= u'9' && (c != u'0' || !mantissa.empty())) mantissa.push_back(c);
    EXPECT_LE(mantissa.size(), 17U) << ToUtf8(text);
  }
}

TEST(FormatGeneral, EverySingleReadsBackAsTheSameSingle) {
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    const uint32_t bits = random();
    float value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) continue;
    const String text = FormatGeneral(value);
    const auto back = ParseNumber(text);
    ASSERT_TRUE(back.has_value()) << ToUtf8(text);
    EXPECT_EQ(static_cast<float>(*back), value) << ToUtf8(text);
  }
}

}  // namespace
}  // namespace vd::automation
