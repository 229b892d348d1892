#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "error_number.h"
#include "vd/automation/conversions.h"
#include "vd/automation/error.h"

namespace vd::automation {
namespace {

using testing::ErrorNumberOf;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// A whole-number conversion case: the value, or the error number it raises.
struct WholeCase {
  Variant in;
  int32_t expected;
  int32_t error;
};

std::string Describe(const Variant& v) {
  std::string text = ToUtf8(TypeName(v));
  if (v.Type() == VarType::kDouble) text += " " + std::to_string(v.AsDouble());
  if (v.Type() == VarType::kString) text += " \"" + ToUtf8(v.AsString()) + "\"";
  return text;
}

// Checks one conversion: its value, or the error it raises.
template <class R, class Convert>
void ExpectConversion(const Variant& in, R expected, int32_t error, Convert convert) {
  R got{};
  EXPECT_EQ(ErrorNumberOf([&] { got = convert(in); }), error) << Describe(in);
  if (error == 0) {
    EXPECT_EQ(got, expected) << Describe(in);
  }
}

TEST(CLng, RoundsHalfToEvenAndChecksTheRange) {
  const WholeCase cases[] = {
      {2.5, 2, 0},
      {3.5, 4, 0},
      {-2.5, -2, 0},
      {0.5, 0, 0},
      {0.49999999999999994, 0, 0},
      {2.5000000000000004, 3, 0},
      {2147483647.0, 2147483647, 0},
      {2147483647.5, 0, err::kOverflow},
      {2147483648.0, 0, err::kOverflow},
      {-2147483648.0, -2147483647 - 1, 0},
      {-2147483648.6, 0, err::kOverflow},
      {-2147483649.0, 0, err::kOverflow},
      {kInf, 0, err::kOverflow},
      {kNaN, 0, err::kOverflow},
      {Variant(int16_t{-7}), -7, 0},
      {Variant(), 0, 0},
      {true, -1, 0},
      {u"2.5", 2, 0},
      {u" 12 ", 12, 0},
      {u"-2147483648", -2147483647 - 1, 0},
      {u"2147483648", 0, err::kOverflow},
      {u"&HFFFF", -1, 0},
      {u"1e400", 0, err::kOverflow},
      {u"abc", 0, err::kTypeMismatch},
      {u"", 0, err::kTypeMismatch},
      {u"1e", 0, err::kTypeMismatch},
      {Variant::Null(), 0, err::kInvalidUseOfNull},
      {std::make_shared<Object>(), 0, err::kTypeMismatch},
      {nullptr, 0, err::kObjectNotSet},
  };
  for (const auto& c : cases) ExpectConversion<int32_t>(c.in, c.expected, c.error, CLng);
}

TEST(CInt, RoundsHalfToEvenAndChecksTheRange) {
  const WholeCase cases[] = {
      {2.5, 2, 0},
      {32767.0, 32767, 0},
      {32767.5, 0, err::kOverflow},
      {32768.0, 0, err::kOverflow},
      {-32768.0, -32768, 0},
      {-32768.5, -32768, 0},
      {-32769.0, 0, err::kOverflow},
      {32768, 0, err::kOverflow},
      {-32769, 0, err::kOverflow},
      {u"32768", 0, err::kOverflow},
      {u"-32768", -32768, 0},
      {Variant::Null(), 0, err::kInvalidUseOfNull},
  };
  for (const auto& c : cases) ExpectConversion<int32_t>(c.in, c.expected, c.error, CInt);
}

TEST(CDbl, ConvertsEveryScalarKind) {
  const struct {
    Variant in;
    double expected;
    int32_t error;
  } cases[] = {
      {Variant(), 0, 0},
      {true, -1, 0},
      {Variant(int16_t{-32768}), -32768, 0},
      {2147483647, 2147483647, 0},
      {0.1F, static_cast<double>(0.1F), 0},  // a Single keeps its own value
      {u" -1.5e3 ", -1500, 0},
      {u"&H8000", -32768, 0},
      {u"1e400", 0, err::kOverflow},
      {u"1.2.3", 0, err::kTypeMismatch},
      {Variant::Null(), 0, err::kInvalidUseOfNull},
      {std::make_shared<Object>(), 0, err::kTypeMismatch},
      {nullptr, 0, err::kObjectNotSet},
  };
  for (const auto& c : cases) ExpectConversion<double>(c.in, c.expected, c.error, CDbl);
}

TEST(CSng, ChecksSinglesRange) {
  constexpr float kMax = std::numeric_limits<float>::max();
  const struct {
    Variant in;
    float expected;
    int32_t error;
  } cases[] = {
      {0.1, 0.1F, 0},
      {static_cast<double>(kMax), kMax, 0},
      {3.5e38, 0, err::kOverflow},
      {u"1e39", 0, err::kOverflow},
      {kInf, 0, err::kOverflow},
      {1e-50, 0, 0},
      {u"x", 0, err::kTypeMismatch},
      {Variant::Null(), 0, err::kInvalidUseOfNull},
  };
  for (const auto& c : cases) ExpectConversion<float>(c.in, c.expected, c.error, CSng);
}

TEST(CBool, NumbersAndTheWordsTrueAndFalse) {
  const struct {
    Variant in;
    bool expected;
    int32_t error;
  } cases[] = {
      {u"True", true, 0},
      {u" TRUE ", true, 0},
      {u"\tFalse\n", false, 0},
      {u"0", false, 0},
      {u"-1", true, 0},
      {u"0.001", true, 0},
      {u"Tru", false, err::kTypeMismatch},
      {u"True1", false, err::kTypeMismatch},
      {u"", false, err::kTypeMismatch},
      {u"1e400", false, err::kOverflow},
      {Variant(), false, 0},
      {0.0, false, 0},
      {0.5, true, 0},
      {Variant(int16_t{2}), true, 0},
      {Variant::Null(), false, err::kInvalidUseOfNull},
      {nullptr, false, err::kObjectNotSet},
  };
  for (const auto& c : cases) ExpectConversion<bool>(c.in, c.expected, c.error, CBool);
}

TEST(CStr, TextOfEveryKind) {
  const struct {
    Variant in;
    String expected;
    int32_t error;
  } cases[] = {
      {Variant(), u"", 0},
      {Variant(int16_t{-5}), u"-5", 0},
      {-2147483647 - 1, u"-2147483648", 0},
      {1.5, u"1.5", 0},
      {-0.0, u"0", 0},
      {1e15, u"1E+15", 0},
      {0.1F, u"0.1", 0},
      {true, u"True", 0},
      {u" text ", u" text ", 0},
      {Variant::Null(), u"", err::kInvalidUseOfNull},
      {std::make_shared<Object>(), u"", err::kTypeMismatch},
      {nullptr, u"", err::kObjectNotSet},
  };
  for (const auto& c : cases) ExpectConversion<String>(c.in, c.expected, c.error, CStr);
}

// Near every tie the rounding must agree with the exact rule, whatever the
// magnitude: the neighbours just below and above a half go down and up.
TEST(RoundToLong, NeighboursOfHalvesRoundAway) {
  for (const double whole : {0.0, 1.0, 2.0, 1000001.0, -3.0, -1000000.0, 2147483645.0}) {
    const double half = whole + 0.5;
    EXPECT_EQ(RoundToLong(std::nextafter(half, -kInf)), static_cast<int32_t>(whole)) << half;
    EXPECT_EQ(RoundToLong(std::nextafter(half, kInf)), static_cast<int32_t>(whole + 1)) << half;
    const bool wholeIsEven = std::fmod(whole, 2.0) == 0;
    EXPECT_EQ(RoundToLong(half), static_cast<int32_t>(wholeIsEven ? whole : whole + 1)) << half;
  }
}

}  // namespace
}  // namespace vd::automation
