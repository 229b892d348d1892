// Variant <-> VARIANT: every kind, arrays with their bounds (a round trip
// keeps the lower bound; a host's typed array is read with its own), objects both ways.
#include <gtest/gtest.h>

#include <cmath>

#include "com/bstr.h"
#include "convert/object_convert.h"
#include "convert/variant_convert.h"
#include "dispatch/dispatch_holder.h"
#include "plant.h"
#include "vd/automation/error.h"

namespace vd::testhost {
namespace {

using automation::Variant;
using win32::FromVariant;
using win32::ToVariant;

struct RoundTrip {
  const char* name;
  Variant value;
  VARTYPE expectedType;
};

class VariantRoundTripTest : public testing::TestWithParam<RoundTrip> {};

TEST_P(VariantRoundTripTest, ComesBackEqualWithTheAutomationType) {
  const RoundTrip& c = GetParam();
  win32::UniqueVariant v = ToVariant(c.value);
  EXPECT_EQ(v.Type(), c.expectedType);
  if (c.expectedType == VT_BOOL) {
    EXPECT_EQ(v.Ref().boolVal, c.value.AsBoolean() ? VARIANT_TRUE : VARIANT_FALSE);
  }
  Variant back = FromVariant(v.Ref());
  EXPECT_EQ(back.Type(), c.value.Type());
  EXPECT_TRUE(back == c.value);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, VariantRoundTripTest,
    testing::Values(RoundTrip{"empty", Variant(), VT_EMPTY}, RoundTrip{"null", Variant::Null(), VT_NULL},
                    RoundTrip{"integer", Variant(int16_t{-32768}), VT_I2},
                    RoundTrip{"long", Variant(int32_t{2147483647}), VT_I4}, RoundTrip{"single", Variant(1.25f), VT_R4},
                    RoundTrip{"double", Variant(-0.1), VT_R8}, RoundTrip{"true", Variant(true), VT_BOOL},
                    RoundTrip{"false", Variant(false), VT_BOOL}, RoundTrip{"text", Variant(u" two  blanks "), VT_BSTR},
                    RoundTrip{"empty text", Variant(u""), VT_BSTR},
                    RoundTrip{"nul and emoji", Variant(automation::String(u"a\0b \U0001F600", 6)), VT_BSTR},
                    RoundTrip{"array", Variant(automation::Array{3, {Variant(int16_t{1}), Variant(u"a"), Variant()}}),
                              VT_ARRAY | VT_VARIANT},
                    RoundTrip{"nested array",
                              Variant(automation::Array{0, {Variant(automation::Array{-1, {Variant(2.5)}})}}),
                              VT_ARRAY | VT_VARIANT},
                    RoundTrip{"empty array", Variant(automation::Array{}), VT_ARRAY | VT_VARIANT}),
    [](const testing::TestParamInfo<RoundTrip>& param) {
      std::string name = param.param.name;
      for (char& ch : name)
        if (ch == ' ') ch = '_';
      return name;
    });

struct Incoming {
  const char* name;
  VARIANT raw;
  Variant expected;
};

VARIANT Make(VARTYPE type, LONGLONG bits) {
  VARIANT v;
  VariantInit(&v);
  v.vt = type;
  v.llVal = bits;
  return v;
}

TEST(VariantConvertTest, ReadsTheOtherAutomationTypes) {
  CY currency;
  currency.int64 = 12345;  // 1.2345
  VARIANT cy = Make(VT_CY, currency.int64);
  const std::vector<Incoming> cases = {
      {"byte", Make(VT_UI1, 200), Variant(int16_t{200})},
      {"unsigned short", Make(VT_UI2, 65535), Variant(int32_t{65535})},
      {"small 64-bit", Make(VT_I8, -5), Variant(int16_t{-5})},
      {"big 64-bit", Make(VT_I8, 1LL << 40), Variant(static_cast<double>(1LL << 40))},
      {"unsigned long beyond Long", Make(VT_UI4, 0xFFFFFFFFLL), Variant(4294967295.0)},
      {"currency", cy, Variant(1.2345)},
      {"missing argument", Make(VT_ERROR, static_cast<LONG>(DISP_E_PARAMNOTFOUND)), Variant()},
  };
  for (const Incoming& c : cases) {
    SCOPED_TRACE(c.name);
    Variant got = FromVariant(c.raw);
    EXPECT_EQ(got.Type(), c.expected.Type());
    EXPECT_TRUE(got == c.expected);
  }
}

TEST(VariantConvertTest, ReadsThroughReferences) {
  LONG number = 77;
  VARIANT byRefLong;
  byRefLong.vt = VT_BYREF | VT_I4;
  byRefLong.plVal = &number;
  EXPECT_TRUE(FromVariant(byRefLong) == Variant(int32_t{77}));

  win32::UniqueVariant inner = ToVariant(Variant(u"inside"));
  VARIANT byRefVariant;
  byRefVariant.vt = VT_BYREF | VT_VARIANT;
  byRefVariant.pvarVal = inner.Get();
  EXPECT_TRUE(FromVariant(byRefVariant) == Variant(u"inside"));

  win32::Bstr text(u"by ref text");
  BSTR raw = text.Get();
  VARIANT byRefBstr;
  byRefBstr.vt = VT_BYREF | VT_BSTR;
  byRefBstr.pbstrVal = &raw;
  EXPECT_TRUE(FromVariant(byRefBstr) == Variant(u"by ref text"));
}

TEST(VariantConvertTest, ReadsTypedArraysWithTheirBounds) {
  SAFEARRAYBOUND bound{2, 3};
  win32::UniqueVariant v;
  v.Get()->parray = SafeArrayCreate(VT_BSTR, 1, &bound);
  v.Get()->vt = VT_ARRAY | VT_BSTR;
  LONG index = 3;
  win32::Bstr first(u"x");
  SafeArrayPutElement(v.Ref().parray, &index, first.Get());
  index = 4;
  win32::Bstr second(u"y");
  SafeArrayPutElement(v.Ref().parray, &index, second.Get());
  Variant got = FromVariant(v.Ref());
  ASSERT_TRUE(got.IsArray());
  EXPECT_EQ(got.AsArray().lowerBound, 3);
  ASSERT_EQ(got.AsArray().items.size(), 2u);
  EXPECT_TRUE(got.AsArray().items[1] == Variant(u"y"));
}

TEST(VariantConvertTest, TwoDimensionalArraysAreATypeMismatch) {
  SAFEARRAYBOUND bounds[2] = {{2, 0}, {2, 0}};
  win32::UniqueVariant v;
  v.Get()->parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
  v.Get()->vt = VT_ARRAY | VT_VARIANT;
  try {
    FromVariant(v.Ref());
    FAIL() << "no error";
  } catch (const automation::AutomationError& e) {
    EXPECT_EQ(e.Number(), automation::err::kTypeMismatch);
  }
}

TEST(VariantConvertTest, OwnObjectsGoOutAsDispatchAndComeBackAsThemselves) {
  auto display = MakePlant();
  auto ds = display->DataSources()->Item(1);
  win32::UniqueVariant v = ToVariant(Variant(automation::ObjectRef(ds)));
  ASSERT_EQ(v.Type(), VT_DISPATCH);
  ASSERT_NE(v.Ref().pdispVal, nullptr);
  win32::UniqueVariant again = ToVariant(Variant(automation::ObjectRef(ds)));
  EXPECT_EQ(again.Ref().pdispVal, v.Ref().pdispVal) << "one object, one IDispatch";
  Variant back = FromVariant(v.Ref());
  EXPECT_EQ(back.AsObject().get(), ds.get());
}

TEST(VariantConvertTest, ForeignObjectsComeInAsDispatchHoldersAndGoBackUnchanged) {
  auto display = MakePlant();
  win32::ComPtr<IDispatch> exposed = win32::DispatchFromObject(display);
  // A plain dispatch object stands for someone else's IDispatch.
  auto stranger = std::make_shared<win32::PlainDispatchObject>(exposed);
  win32::UniqueVariant v = ToVariant(Variant(automation::ObjectRef(stranger)));
  EXPECT_EQ(v.Ref().pdispVal, exposed.Get());
}

TEST(VariantConvertTest, NothingTravelsAsANullDispatch) {
  win32::UniqueVariant v = ToVariant(Variant(automation::ObjectRef()));
  EXPECT_EQ(v.Type(), VT_DISPATCH);
  EXPECT_EQ(v.Ref().pdispVal, nullptr);
  Variant back = FromVariant(v.Ref());
  EXPECT_TRUE(back.IsObject());
  EXPECT_EQ(back.AsObject(), nullptr);
}

}  // namespace
}  // namespace vd::testhost
