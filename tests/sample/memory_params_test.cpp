#include <gtest/gtest.h>

#include "error_probe.h"
#include "vd/automation/conversions.h"
#include "vd/sample/memory_toolkit.h"

namespace vd::sample {
namespace {

using automation::String;
using automation::Variant;
using automation::VarType;
using testing::RaisedBy;

toolkit::ParamListRef FreshParams() {
  auto ds = MemoryDisplay::Create()->DataSources()->AddDs(toolkit::kind::kCustom, u"Acme.Report");
  return ds->AsCustom()->GetParams();
}

TEST(MemoryParams, AddParamAppendsAnEmptyParameterOfTypeZero) {
  auto params = FreshParams();
  params->AddParam()->SetParamValue(9, u"first");
  auto added = params->AddParam();
  ASSERT_EQ(params->ParamCount(), 2);
  EXPECT_EQ(params->ParamItem(2), added);
  EXPECT_EQ(added->GetParamType(), 0);
  EXPECT_TRUE(added->GetParamValue().IsEmpty());
  EXPECT_EQ(automation::CStr(added->GetParamValue()), u"");
  EXPECT_EQ(automation::CLng(added->GetParamValue()), 0);
  EXPECT_EQ(params->ParamItem(1)->GetParamValue().AsString(), u"first");
}

TEST(MemoryParams, ParamItemOutsideTheListRaisesNine) {
  auto params = FreshParams();
  params->AddParam();
  params->AddParam();
  for (int16_t index : {0, -1, 3, 32767}) {
    EXPECT_EQ(RaisedBy([&] { params->ParamItem(index); }).number, automation::err::kSubscriptOutOfRange) << index;
  }
}

TEST(MemoryParams, SetParamValueStoresTextAsStringAndNumbersAsDouble) {
  const struct {
    int32_t type;
    Variant value;
    Variant stored;
  } cases[] = {
      {9, Variant(u"\\\\APL\\1\\P\\STA\\10:OV"), Variant(u"\\\\APL\\1\\P\\STA\\10:OV")},
      {9, Variant(int32_t{12}), Variant(u"12")},
      {9, Variant(1.5), Variant(u"1.5")},
      {9, Variant(), Variant(u"")},
      {5, Variant(u"500"), Variant(500.0)},
      {5, Variant(int32_t{17}), Variant(17.0)},
      {5, Variant(int16_t{-3}), Variant(-3.0)},
      {5, Variant(), Variant(0.0)},
  };
  for (const auto& c : cases) {
    auto param = FreshParams()->AddParam();
    param->SetParamValue(c.type, c.value);
    EXPECT_EQ(param->GetParamType(), c.type);
    EXPECT_EQ(param->GetParamValue(), c.stored) << automation::ToUtf8(automation::CStr(c.stored));
    EXPECT_EQ(param->GetParamValue().Type(), c.stored.Type());
  }
}

TEST(MemoryParams, RefusedValuesLeaveTheParameterAsItWas) {
  const struct {
    int32_t type;
    Variant value;
    int32_t error;
  } cases[] = {
      {0, Variant(u"x"), automation::err::kInvalidProcedureCall},
      {7, Variant(1.0), automation::err::kInvalidProcedureCall},
      {8, Variant(1.0), automation::err::kInvalidProcedureCall},
      {5, Variant(u"abc"), automation::err::kTypeMismatch},
      {5, Variant::Null(), automation::err::kInvalidUseOfNull},
  };
  for (const auto& c : cases) {
    auto param = FreshParams()->AddParam();
    param->SetParamValue(9, u"kept");
    EXPECT_EQ(RaisedBy([&] { param->SetParamValue(c.type, c.value); }).number, c.error) << c.type;
    EXPECT_EQ(param->GetParamType(), 9);
    EXPECT_EQ(param->GetParamValue().AsString(), u"kept");
  }
}

}  // namespace
}  // namespace vd::sample
