#include <gtest/gtest.h>

#include "error_probe.h"
#include "vd/automation/conversions.h"
#include "vd/sample/large_display.h"

namespace vd::sample {
namespace {

TEST(LargeDisplay, HasTheRequestedSizeAndIsTheSameEveryTime) {
  const LargeDisplaySize sizes[] = {{1, 1}, {8, 7}, {13, 0}, {0, 50}};
  for (const auto& size : sizes) {
    const SampleDisplay sample = GenerateLargeDisplay(size);
    auto list = sample.display->GetDataSources();
    ASSERT_EQ(list->DsCount(), size.dataSources);
    for (int32_t i = 1; i <= list->DsCount(); ++i)
      EXPECT_EQ(list->DsItem(i)->GetDsVars()->DsvCount(), size.variablesPerDs);
    EXPECT_EQ(WriteDisplayJson(GenerateLargeDisplay(size), "/"), WriteDisplayJson(sample, "/"));
  }
}

TEST(LargeDisplay, EveryMappedVariableValidatesAndSomeDeletesAreRefused) {
  const SampleDisplay sample = GenerateLargeDisplay({16, 12});
  int mapped = 0;
  int inUse = 0;
  auto list = sample.display->GetDataSources();
  for (int32_t i = 1; i <= list->DsCount(); ++i) {
    auto vars = list->DsItem(i)->GetDsVars();
    for (int32_t j = 1; j <= vars->DsvCount(); ++j) {
      inUse += vars->DsvItem(j)->GetDsvUseCount() >= 1;
      auto custom = vars->DsvItem(j)->AsCustom();
      if (!custom) continue;
      automation::Variant value;
      const auto itemId = automation::CStr(custom->GetParams()->ParamItem(2)->GetParamValue());
      EXPECT_EQ(testing::RaisedBy([&] { sample.scada->ValidateItem(itemId, value); }).number, 0)
          << automation::ToUtf8(itemId);
      ++mapped;
    }
  }
  EXPECT_EQ(mapped, 16 / 4 * 12);
  EXPECT_GT(inUse, 0);
}

}  // namespace
}  // namespace vd::sample
