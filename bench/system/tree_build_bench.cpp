// The data browser preparing an editing run over the generated large display
// (2,000 data sources with 50 variables each): reading the display and
// building its 102,000 tree nodes, headless. Beside it, the floor the forms
// layer measures itself against, in the same run: making the same key strings
// and putting them into a std::unordered_map.
#include <benchmark/benchmark.h>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "browser/frm_data_browser.h"
#include "platform/services.h"
#include "platform/testing/fake_registry.h"
#include "platform/testing/memory_file_service.h"
#include "silent_ui.h"
#include "vd/sample/large_display.h"

namespace {

using vd::automation::String;
using vd::automation::ToDecimal;

using vd::bench::SilentUi;

const vd::sample::SampleDisplay& LargeDisplay() {
  static const vd::sample::SampleDisplay sample = vd::sample::GenerateLargeDisplay();
  return sample;
}

int64_t NodeCount() {
  const auto& list = LargeDisplay().display->DataSources();
  int64_t count = list->DsCount();
  for (int32_t i = 1; i <= list->DsCount(); ++i) count += list->Item(i)->Variables()->DsvCount();
  return count;
}

void BM_InitDBForEditLargeDisplay(benchmark::State& state) {
  SilentUi ui;
  vd::platform::testing::FakeRegistry registry;  // no toolkit home: no kinds file either
  vd::platform::testing::MemoryFileService files;
  vd::platform::Services services{ui, registry, files};
  vd::browser::frmDataBrowser dlg(services);
  const vd::toolkit::DisplayRef display = LargeDisplay().display;
  for (auto _ : state) {
    state.PauseTiming();
    dlg.treDataSources.Nodes().Clear();  // taking the last tree down is not part of the build
    state.ResumeTiming();
    dlg.InitDBForEdit(display);
    benchmark::DoNotOptimize(dlg.treDataSources.Nodes().Count());
  }
  state.SetItemsProcessed(state.iterations() * NodeCount());
}
BENCHMARK(BM_InitDBForEditLargeDisplay)->Unit(benchmark::kMillisecond);

void BM_FloorSameKeysIntoUnorderedMap(benchmark::State& state) {
  // The names as the display holds them, read once.
  const auto& list = LargeDisplay().display->DataSources();
  std::vector<String> dsNames;
  std::vector<int32_t> dsvCounts;
  for (int32_t i = 1; i <= list->DsCount(); ++i) {
    dsNames.push_back(list->Item(i)->GetDsName());
    dsvCounts.push_back(list->Item(i)->Variables()->DsvCount());
  }
  for (auto _ : state) {
    auto keys = std::make_unique<std::unordered_map<String, int>>();
    int index = 0;
    for (size_t i = 0; i < dsNames.size(); ++i)
      keys->emplace(u"_" + dsNames[i] + ToDecimal(static_cast<int64_t>(i) + 1), ++index);
    for (size_t i = 0; i < dsNames.size(); ++i) {
      const String prefix = ToDecimal(static_cast<int64_t>(i) + 1) + u":";
      for (int32_t j = 1; j <= dsvCounts[i]; ++j) keys->emplace(prefix + ToDecimal(j), ++index);
    }
    benchmark::DoNotOptimize(keys->size());
    state.PauseTiming();
    keys.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * NodeCount());
}
BENCHMARK(BM_FloorSameKeysIntoUnorderedMap)->Unit(benchmark::kMillisecond);

}  // namespace
