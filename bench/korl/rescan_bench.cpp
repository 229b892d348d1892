// The rescan of item offsets over one SCADA data source of 2,000 status colour
// variables, headless, against the simulated SCADA system: the whole button
// (request text, the system's answer, the stored text, the progress display
// after every variable). Beside it, the floor in the same run: the simulated
// system answering the same 2,000 requests, made beforehand, on its own.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <vector>

#include "browser/frm_data_browser.h"
#include "feeders.h"
#include "platform/services.h"
#include "platform/testing/fake_registry.h"
#include "platform/testing/memory_file_service.h"
#include "scada/sa_data_sources.h"
#include "silent_ui.h"
#include "vd/sample/memory_toolkit.h"
#include "vd/sample/sample_file.h"
#include "vd/sample/simulated_scada.h"

namespace {

using vd::automation::String;
using vd::automation::Variant;

using vd::bench::Feeders;
using vd::bench::kApplication;
using vd::bench::kVariables;
using vd::bench::Name;
using vd::bench::SilentUi;

void BM_RescanFeeders(benchmark::State& state) {
  SilentUi ui;
  vd::platform::testing::FakeRegistry registry;
  vd::platform::testing::MemoryFileService files;
  vd::platform::Services services{ui, registry, files};
  vd::browser::frmDataBrowser dlg(services);
  const vd::sample::SampleDisplay sample = Feeders();
  dlg.SetCommunication(sample.scada);
  dlg.InitDBForEdit(sample.display);
  if (!dlg.treDataSources.UserSelectNode(dlg.treDataSources.Nodes().Item(1)) || !dlg.Command1.Visible()) {
    state.SkipWithError("the SCADA data source panel is not shown");
    return;
  }
  for (auto _ : state) {
    state.PauseTiming();
    sample.scada->ClearLog();
    state.ResumeTiming();
    dlg.Command1.UserClick();
  }
  state.SetItemsProcessed(state.iterations() * kVariables);
  state.counters["per_variable"] = benchmark::Counter(
      static_cast<double>(kVariables), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_RescanFeeders)->Unit(benchmark::kMillisecond);

void BM_FloorSimulatedSystemAnswersTheSameRequests(benchmark::State& state) {
  const vd::sample::SampleDisplay sample = Feeders();
  std::vector<String> requests;
  for (int32_t i = 1; i <= kVariables; ++i)
    requests.push_back(vd::scada::modSADataSources::OffsetsRequest(Name(i), 11));
  for (auto _ : state) {
    state.PauseTiming();
    sample.scada->ClearLog();
    state.ResumeTiming();
    for (const String& request : requests) {
      Variant result;
      sample.scada->ExecuteKorlInApp(kApplication, request, result);
      benchmark::DoNotOptimize(result);
    }
  }
  state.SetItemsProcessed(state.iterations() * kVariables);
  state.counters["per_variable"] = benchmark::Counter(
      static_cast<double>(kVariables), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_FloorSimulatedSystemAnswersTheSameRequests)->Unit(benchmark::kMillisecond);

}  // namespace
