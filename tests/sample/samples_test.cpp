// Every sample file loads, and the plant display offers what the embedded
// default promises: every kind of data source, SCADA variables of every signal
// type, and objects the simulated system knows.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>

#include "error_probe.h"
#include "vd/automation/conversions.h"
#include "vd/sample/sample_file.h"

namespace vd::sample {
namespace {

using automation::String;
using automation::Variant;
namespace fs = std::filesystem;

fs::path SamplesFolder() {
  const char* source = std::getenv("VD_SOURCE_DIR");
  return fs::path(source ? source : ".") / "samples";
}

bool IsScadaDataSource(toolkit::Ds& ds) {
  auto custom = ds.AsCustom();
  if (!custom) return false;
  auto params = custom->GetParams();
  return params->ParamCount() >= 2 && params->ParamItem(1)->GetParamType() == toolkit::paramtype::kText &&
         params->ParamItem(1)->GetParamValue() == Variant(kScadaDsMarker);
}

TEST(Samples, EveryFileUnderSamplesLoads) {
  int files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(SamplesFolder())) {
    if (entry.path().extension() != ".json") continue;
    ++files;
    EXPECT_NO_THROW(LoadDisplayFile(entry.path())) << entry.path();
  }
  EXPECT_GE(files, 2);
}

class PlantSample : public ::testing::Test {
 protected:
  void SetUp() override { sample = LoadDisplayFile(SamplesFolder() / "plant.json"); }
  SampleDisplay sample;
};

TEST_F(PlantSample, HoldsEveryKindOfDataSource) {
  std::set<int32_t> kinds;
  int scadaSources = 0;
  auto list = sample.display->GetDataSources();
  for (int32_t i = 1; i <= list->DsCount(); ++i) {
    kinds.insert(list->DsItem(i)->GetDsType());
    scadaSources += IsScadaDataSource(*list->DsItem(i));
  }
  EXPECT_EQ(kinds, (std::set<int32_t>{toolkit::kind::kFile, toolkit::kind::kConstant, toolkit::kind::kMemory,
                                      toolkit::kind::kCustom}));
  EXPECT_GE(scadaSources, 2);
}

TEST_F(PlantSample, ScadaVariablesCoverEverySignalTypeAndMatchTheObjectTable) {
  ASSERT_NE(sample.scada, nullptr);
  std::set<int32_t> signalTypes;
  int valid = 0;
  int invalid = 0;
  int scripts = 0;
  auto list = sample.display->GetDataSources();
  for (int32_t i = 1; i <= list->DsCount(); ++i) {
    auto ds = list->DsItem(i);
    if (!IsScadaDataSource(*ds)) continue;
    const auto application =
        static_cast<int16_t>(automation::CLng(ds->AsCustom()->GetParams()->ParamItem(2)->GetParamValue()));
    for (int32_t j = 1; j <= ds->GetDsVars()->DsvCount(); ++j) {
      auto params = ds->GetDsVars()->DsvItem(j)->AsCustom()->GetParams();
      if (params->ParamCount() < 3) continue;
      const String itemId = automation::CStr(params->ParamItem(2)->GetParamValue());
      if (itemId.empty()) continue;
      const int32_t signal = automation::CLng(params->ParamItem(3)->GetParamValue()) & 15;
      signalTypes.insert(signal);
      Variant value;
      const auto raised = testing::RaisedBy([&] { sample.scada->ValidateItem(itemId, value); });
      (raised.number == 0 ? valid : invalid) += 1;
      if (signal >= 2 && params->ParamCount() >= 5 &&
          !automation::CStr(params->ParamItem(5)->GetParamValue()).empty()) {
        Variant directory;
        sample.scada->ExecuteKorlInApp(
            application,
            String(u"@path1=path(\"APL_\")\n@path1 =%path1(1)\n") + u"#return substr(%path1,1,length(%path1)-4)",
            directory);
        const fs::path script =
            fs::path(directory.AsString()) / "PICT" / fs::path(params->ParamItem(5)->GetParamValue().AsString());
        EXPECT_TRUE(fs::exists(script)) << script;
        ++scripts;
      }
    }
  }
  EXPECT_TRUE(signalTypes.contains(0) && signalTypes.contains(1) && signalTypes.contains(2));
  EXPECT_GE(valid, 10);
  EXPECT_GE(invalid, 1) << "one stale mapping shows the failing validation";
  EXPECT_GE(scripts, 2);
}

}  // namespace
}  // namespace vd::sample
