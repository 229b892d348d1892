// Variants, their conversions with the Automation errors they raise, and the
// errors' standard descriptions.
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

TEST(AutomationError, CarriesNumberAndTheStandardOrGivenDescription) {
  const struct {
    int32_t number;
    String description;  // empty: the standard one
    const char* what;
  } cases[] = {{err::kTypeMismatch, u"", "error 13: Type mismatch"},
               {12345, u"", "error 12345: Application-defined or object-defined error"},
               {1001, u"K\u00FChlung fehlt", "error 1001: K\xC3\xBChlung fehlt"}};
  for (const auto& c : cases) {
    try {
      c.description.empty() ? Raise(c.number) : Raise(c.number, c.description);
      ADD_FAILURE() << "Raise returned for " << c.number;
    } catch (const AutomationError& e) {
      EXPECT_EQ(e.Number(), c.number);
      EXPECT_STREQ(e.what(), c.what);
    }
  }
}

TEST(Variant, TypeNamesAndEqualityOfTheSameKindAndValue) {
  const std::pair<Variant, const char16_t*> names[] = {{Variant(), u"Empty"},
                                                       {Variant(1), u"Long"},
                                                       {Variant(1.0), u"Double"},
                                                       {Variant(false), u"Boolean"},
                                                       {Variant(u""), u"String"},
                                                       {Variant::Null(), u"Null"},
                                                       {Variant(int16_t{1}), u"Integer"},
                                                       {Variant(1.0F), u"Single"},
                                                       {Variant(std::make_shared<Object>()), u"Object"},
                                                       {Variant(nullptr), u"Nothing"},
                                                       {Variant(Array{1, {}}), u"Variant()"}};
  for (const auto& [value, name] : names) EXPECT_EQ(TypeName(value), name);
  auto tank = std::make_shared<Object>();
  const struct {
    Variant a;
    Variant b;
    bool equal;
  } cases[] = {{Variant(1), Variant(1.0), false},
               {Variant(1), Variant(int16_t{1}), false},
               {Variant(u"a"), Variant(u"A"), false},
               {Variant(), Variant::Null(), false},
               {Variant::Null(), Variant::Null(), true},
               {Variant(tank), Variant(tank), true},
               {Variant(tank), Variant(std::make_shared<Object>()), false},
               {Variant(Array{0, {1, u"x"}}), Variant(Array{0, {1, u"x"}}), true},
               {Variant(Array{0, {1, u"x"}}), Variant(Array{1, {1, u"x"}}), false}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.a == c.b, c.equal) << ToUtf8(TypeName(c.a)) << " / " << ToUtf8(TypeName(c.b));
    EXPECT_EQ(c.b == c.a, c.equal) << ToUtf8(TypeName(c.a)) << " / " << ToUtf8(TypeName(c.b));
  }
  EXPECT_EQ(ErrorNumberOf([] { (void)Variant(u"12").AsLong(); }), err::kTypeMismatch);
  EXPECT_EQ(ErrorNumberOf([] { (void)Variant(12).AsObject(); }), err::kObjectRequired);
}

std::string Describe(const Variant& v) {
  std::string text = ToUtf8(TypeName(v));
  if (v.Type() == VarType::kDouble) text += " " + std::to_string(v.AsDouble());
  if (v.Type() == VarType::kString) text += " \"" + ToUtf8(v.AsString()) + "\"";
  return text;
}

// One conversion: its value, or the error it raises.
template <class R>
struct Case {
  Variant in;
  R expected;
  int32_t error;
};

template <class R, size_t N, class Convert>
void ExpectConversions(const Case<R> (&cases)[N], Convert convert) {
  for (const auto& c : cases) {
    R got{};
    EXPECT_EQ(ErrorNumberOf([&] { got = convert(c.in); }), c.error) << Describe(c.in);
    if (c.error == 0) {
      EXPECT_EQ(got, c.expected) << Describe(c.in);
    }
  }
}

TEST(Conversions, WholeNumbersRoundHalfToEvenAndCheckTheRange) {
  const Case<int32_t> clng[] = {{2.5, 2, 0},
                                {-2.5, -2, 0},
                                {2.5000000000000004, 3, 0},
                                {2147483647.5, 0, err::kOverflow},
                                {-2147483648.0, -2147483647 - 1, 0},
                                {-2147483648.6, 0, err::kOverflow},
                                {kNaN, 0, err::kOverflow},
                                {true, -1, 0},
                                {u" 12 ", 12, 0},
                                {u"&HFFFF", -1, 0},
                                {u"1e400", 0, err::kOverflow},
                                {u"1e", 0, err::kTypeMismatch},
                                {Variant::Null(), 0, err::kInvalidUseOfNull},
                                {std::make_shared<Object>(), 0, err::kTypeMismatch},
                                {nullptr, 0, err::kObjectNotSet}};
  ExpectConversions(clng, CLng);
  const Case<int32_t> cint[] = {
      {32767.5, 0, err::kOverflow}, {-32768.5, -32768, 0}, {-32769, 0, err::kOverflow}, {u"32768", 0, err::kOverflow}};
  ExpectConversions(cint, CInt);
}

TEST(Conversions, RealsBooleansAndText) {
  const Case<double> cdbl[] = {{Variant(), 0, 0},
                               {0.1F, static_cast<double>(0.1F), 0},  // a Single keeps its own value
                               {u"&H8000", -32768, 0},
                               {u"1.2.3", 0, err::kTypeMismatch},
                               {nullptr, 0, err::kObjectNotSet}};
  ExpectConversions(cdbl, CDbl);
  constexpr float kMax = std::numeric_limits<float>::max();
  const Case<float> csng[] = {
      {static_cast<double>(kMax), kMax, 0}, {3.5e38, 0, err::kOverflow}, {kInf, 0, err::kOverflow}, {1e-50, 0, 0}};
  ExpectConversions(csng, CSng);
  const Case<bool> cbool[] = {{u" TRUE ", true, 0},
                              {u"\tFalse\n", false, 0},
                              {u"0.001", true, 0},
                              {u"True1", false, err::kTypeMismatch},
                              {u"1e400", false, err::kOverflow},
                              {Variant(), false, 0},
                              {0.5, true, 0},
                              {Variant::Null(), false, err::kInvalidUseOfNull}};
  ExpectConversions(cbool, CBool);
  const Case<String> cstr[] = {{Variant(), u"", 0},
                               {-2147483647 - 1, u"-2147483648", 0},
                               {-0.0, u"0", 0},
                               {1e15, u"1E+15", 0},
                               {0.1F, u"0.1", 0},
                               {true, u"True", 0},
                               {Variant::Null(), u"", err::kInvalidUseOfNull}};
  ExpectConversions(cstr, CStr);
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
