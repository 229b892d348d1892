// The data browser's search and sort for good, headless, over the in-memory
// toolkit.
//
// FindNode walks down from node 1 of the generated large display (2,000 data
// sources with 50 variables each: 102,000 nodes) for a text that no node has,
// so it tests every node but the first and ends with its "Cannot find"
// message. Its floor, in the same run: a plain loop that makes the same
// comparison (part of the text, any case) over the same texts in a vector.
//
// SortDsVariables orders a data source of 1,000 variables that stand in
// reverse order: about 500,000 single exchanges through the toolkit, then the
// rebuild of the tree.
#include <benchmark/benchmark.h>

#include <memory>
#include <optional>
#include <vector>

#include "browser/frm_data_browser.h"
#include "platform/services.h"
#include "platform/testing/fake_registry.h"
#include "platform/testing/memory_file_service.h"
#include "silent_ui.h"
#include "vd/automation/text.h"
#include "vd/sample/large_display.h"
#include "vd/sample/memory_toolkit.h"

namespace vd::browser {

// The routines under measurement, which no control reaches without a user.
struct DataBrowserInspector {
  frmDataBrowser& form;
  void FindNode(const String& text, bool matchCase, bool wholeWord, bool down) const {
    form.FindNode(text, matchCase, wholeWord, down);
  }
  void SortDsVariables() const { form.SortDsVariables(); }
};

}  // namespace vd::browser

namespace {

using vd::automation::String;
using vd::automation::ToDecimal;

constexpr char16_t kAbsentText[] = u"no such tag";

using vd::bench::SilentUi;

struct Browser {
  SilentUi ui;
  vd::platform::testing::FakeRegistry registry;  // no toolkit home: no kinds file either
  vd::platform::testing::MemoryFileService files;
  vd::platform::Services services{ui, registry, files};
  vd::browser::frmDataBrowser dlg{services};
  vd::browser::DataBrowserInspector inside{dlg};
};

const vd::sample::SampleDisplay& LargeDisplay() {
  static const vd::sample::SampleDisplay sample = vd::sample::GenerateLargeDisplay();
  return sample;
}

void BM_FindNodeDownNoMatchLargeDisplay(benchmark::State& state) {
  Browser b;
  b.dlg.InitDBForEdit(LargeDisplay().display);
  const vd::forms::NodeRef first = b.dlg.treDataSources.Nodes().Item(1);
  for (auto _ : state) {
    first->SetSelected(true);
    b.inside.FindNode(kAbsentText, false, false, true);
    benchmark::DoNotOptimize(b.dlg.treDataSources.SelectedItem());
  }
  state.SetItemsProcessed(state.iterations() * (b.dlg.treDataSources.Nodes().Count() - 1));
}
BENCHMARK(BM_FindNodeDownNoMatchLargeDisplay)->Unit(benchmark::kMillisecond);

void BM_FloorCompareSameTextsInAVector(benchmark::State& state) {
  Browser b;
  b.dlg.InitDBForEdit(LargeDisplay().display);
  // The node texts in the walk's order, node 1 left out as the search leaves it out.
  std::vector<String> texts;
  for (vd::forms::NodeRef ds = b.dlg.treDataSources.Nodes().Item(1); ds; ds = ds->Next()) {
    texts.push_back(ds->Text());
    for (vd::forms::NodeRef v = ds->Child(); v; v = v->Next()) texts.push_back(v->Text());
  }
  texts.erase(texts.begin());
  const String needle = kAbsentText;
  for (auto _ : state) {
    int64_t matches = 0;
    for (const String& text : texts) matches += vd::automation::ContainsIgnoreCase(text, needle) ? 1 : 0;
    benchmark::DoNotOptimize(matches);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(texts.size()));
}
BENCHMARK(BM_FloorCompareSameTextsInAVector)->Unit(benchmark::kMillisecond);

// One data source of count variables named v<n>, in reverse order of name.
std::shared_ptr<vd::sample::MemoryDisplay> ReversedDisplay(int32_t count) {
  auto display = vd::sample::MemoryDisplay::Create();
  const vd::toolkit::DsRef ds = display->GetDataSources()->AddDs(vd::toolkit::kind::kMemory, u"");
  const vd::toolkit::DsvListRef vars = ds->GetDsVars();
  for (int32_t i = count; i >= 1; --i) {
    String name = ToDecimal(i);
    name.insert(0, 5 - name.size(), u'0');
    vars->AddDsv()->SetDsvName(u"v" + name);
  }
  return display;
}

void BM_SortDsVariablesReversed(benchmark::State& state) {
  const auto count = static_cast<int32_t>(state.range(0));
  Browser b;
  for (auto _ : state) {
    state.PauseTiming();
    b.dlg.InitDBForEdit(ReversedDisplay(count));  // node 1, the data source, is selected
    state.ResumeTiming();
    b.inside.SortDsVariables();
    benchmark::DoNotOptimize(b.dlg.treDataSources.Nodes().Count());
  }
  // Exchanges: every pair stands in the wrong order.
  state.counters["moves"] = static_cast<double>(count) * (count - 1) / 2;
}
BENCHMARK(BM_SortDsVariablesReversed)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
