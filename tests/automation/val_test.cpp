#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "vd/automation/numeric.h"

namespace vd::automation {
namespace {

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

TEST(Val, ReadsTheLongestDecimalPrefix) {
  const ValCase cases[] = {
      {u"  1 2 3abc", 123}, {u"-3.5e2x", -350}, {u"12 - Main", 12}, {u"0 - X", 0},    {u"-3", -3},
      {u"2.5", 2.5},        {u"+.5", 0.5},      {u".5e1", 5},       {u"5.", 5},       {u"1.5.6", 1.5},
      {u"1,5", 1},          {u"2D3", 2000},     {u"2d-1", 0.2},     {u"1e+2.5", 100}, {u"12e3e4", 12000},
      {u"- 5", -5},         {u"\t-\n4", -4},    {u"1\r2", 1},       {u"0x1A", 0},     {u"$5", 0},
      {u"007", 7},          {u"-0.25", -0.25},  {u"1e-2", 0.01},    {u"  42  ", 42},  {u"3 . 5", 3.5},
  };
  for (const auto& c : cases) ExpectVal(c);
}

TEST(Val, IsZeroWithoutANumberAndNeverFails) {
  const ValCase cases[] = {
      {u"", 0},    {u" ", 0},  {u"+", 0}, {u"-", 0},   {u".", 0},  {u"-.", 0},     {u"abc", 0},    {u"--5", 0},
      {u"+-5", 0}, {u"e5", 0}, {u"&", 0}, {u"&x1", 0}, {u"-0", 0}, {u"-0.0e5", 0}, {u"\u0661", 0},  // an Arabic-Indic
                                                                                                    // digit is no digit
                                                                                                    // here
  };
  for (const auto& c : cases) ExpectVal(c);
}

TEST(Val, ABareExponentLetterEndsTheNumberBeforeIt) {
  const ValCase cases[] = {{u"1e", 1}, {u"1E+", 1}, {u"1e-", 1}, {u"2.5d", 2.5}, {u"7ex", 7}, {u"7e 2", 700}};
  for (const auto& c : cases) ExpectVal(c);
}

TEST(Val, MagnitudesBeyondDoubleBecomeInfinityOrZero) {
  const std::string zeros(400, '0');
  const ValCase cases[] = {
      {u"1e400", kInf},
      {u"-1e400", -kInf},
      {u"1e-400", 0},
      {u"-1e-400", 0},
      {u"1e99999999999999999999", kInf},
      {u"0e99999999999999999999", 0},
      {FromUtf8("1" + zeros), kInf},
      {FromUtf8("-1" + zeros), -kInf},
      {FromUtf8("1" + zeros + "e-100"), 1e300},
      {FromUtf8("0." + zeros + "1"), 0},
      {FromUtf8("0." + zeros + "1e402"), 10},
      {u"1.7976931348623157e308", std::numeric_limits<double>::max()},
      {u"4.9406564584124654e-324", std::numeric_limits<double>::denorm_min()},
  };
  for (const auto& c : cases) ExpectVal(c);
}

TEST(Val, ReadsHexAndOctalPrefixes) {
  const ValCase cases[] = {
      {u"&h1F", 31},
      {u"&H1f", 31},
      {u"&h 1f", 31},
      {u"& h1f", 31},
      {u"&h1Fzz", 31},
      {u"&h", 0},
      {u"&H", 0},
      {u"&hG", 0},
      {u"&H7FFF", 32767},
      {u"&H8000", -32768},
      {u"&HFFFF", -1},
      {u"&H0FFFF", 65535},  // five digits: a Long
      {u"&H10000", 65536},
      {u"&H7FFFFFFF", 2147483647},
      {u"&H80000000", -2147483648.0},
      {u"&HFFFFFFFF", -1},
      {u"&H0000000FFFFFFFF", -1},
      {u"&H123456789", 0x12345678},  // the ninth digit would leave 32 bits
      {u"&H1FFFFFFFF", 0x1FFFFFFF},
      {u"&O17", 15},
      {u"&o77777", 32767},
      {u"&O100000", -32768},
      {u"&O177777", -1},
      {u"&O0177777", 65535},  // seven digits: a Long
      {u"&O200000", 65536},
      {u"&O37777777777", -1},
      {u"&O40000000000", 0x20000000},
      {u"&O8", 0},
      {u"&O78", 7},
      {u"-&H10", 0},
  };
  for (const auto& c : cases) ExpectVal(c);
}

}  // namespace
}  // namespace vd::automation
