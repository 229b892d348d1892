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

constexpr int32_t kVariables = 2000;
constexpr int16_t kApplication = 1;

String Name(int32_t i) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "FDR%04d", i);
  return vd::automation::FromUtf8(buffer);
}

using vd::bench::SilentUi;

// One SCADA data source of kVariables status colour variables, each with its object in the system.
vd::sample::SampleDisplay Feeders() {
  namespace paramtype = vd::toolkit::paramtype;
  vd::sample::SampleDisplay sample{vd::sample::MemoryDisplay::Create(), std::make_shared<vd::sample::SimulatedScada>()};
  sample.scada->AddApplication(vd::sample::ScadaApplication{kApplication, u"FEEDERS", u"apl/FEEDERS"});
  const auto ds = sample.display->DataSources()->Add(vd::toolkit::kind::kCustom, u"TelvaneDV.DataSource");
  ds->SetDsName(u"Feeders");
  ds->Params()->Append(paramtype::kText, String(u"Telvane DV DataSource"));
  ds->Params()->Append(paramtype::kNumber, static_cast<double>(kApplication));
  for (int32_t i = 1; i <= kVariables; ++i) {
    const auto dsv = ds->Variables()->Add();
    dsv->SetDsvName(Name(i) + u"_Status");
    const auto params = dsv->Params();
    params->AppendEmpty();
    params->Append(paramtype::kText, u"\\\\APL\\1\\P\\" + Name(i) + u"\\11:OV");
    params->Append(paramtype::kNumber, 1.0);
    params->Append(paramtype::kText, String(u"0,0,0"));
    vd::sample::ScadaObject object;
    object.application = kApplication;
    object.name = Name(i);
    object.index = 11;
    object.offsets = vd::automation::ToDecimal(i % 97) + u",12,40";
    sample.scada->AddObject(std::move(object));
  }
  return sample;
}

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
