// Building the data browser's tree at its largest (2,000 data sources with 50
// variables each, keys and texts as the browser makes them), and rebuilding
// one data source's variables, each beside a floor measured in the same run:
// making the same key strings and putting them into a std::unordered_map.
#include <benchmark/benchmark.h>

#include <array>
#include <unordered_map>
#include <vector>

#include "vd/forms/forms.h"

namespace {

using vd::automation::String;
using vd::automation::ToDecimal;
using vd::automation::Variant;
namespace forms = vd::forms;

constexpr int kDataSources = 2000;
constexpr int kVariablesEach = 50;

// What the display holds: names of data sources and of their variables.
struct Display {
  std::vector<String> dsNames;
  std::vector<String> dsvNames;  // the same names in every data source
};

const Display& TheDisplay() {
  static const Display display = [] {
    static const std::array<const char16_t*, 6> stems = {u"Plant",   u"Boiler",    u"Alarms",
                                                         u"Turbine", u"Feedwater", u"Steam"};
    Display d;
    for (int i = 1; i <= kDataSources; ++i) d.dsNames.push_back(stems[static_cast<size_t>(i) % stems.size()]);
    for (int j = 1; j <= kVariablesEach; ++j) d.dsvNames.push_back(u"Level" + ToDecimal(j));
    return d;
  }();
  return display;
}

String DsKey(int i) { return u"_" + TheDisplay().dsNames[static_cast<size_t>(i - 1)] + ToDecimal(i); }
String DsvKey(int i, int j) { return ToDecimal(i) + u":" + ToDecimal(j); }

class BrowserForm : public forms::Form {
 public:
  BrowserForm() : Form(u"frmDataBrowser") {
    for (int i = 0; i < 3; ++i) imgDsList.Add();
    treDataSources.SetImageList(&imgDsList);
  }
  forms::ImageList imgDsList{*this, u"imgDsList"};
  forms::TreeView treDataSources{*this, u"treDataSources"};
};

void AddDsvNodes(forms::TreeView& tree, int i) {
  const String parentKey = DsKey(i);
  for (int j = 1; j <= kVariablesEach; ++j) {
    const forms::NodeRef node =
        tree.Nodes().Add(parentKey, forms::tvwChild, DsvKey(i, j), TheDisplay().dsvNames[static_cast<size_t>(j - 1)]);
    node->SetTag(Variant(ToDecimal(j)));
    node->SetImage(1);
  }
}

// As the browser does: room for every node first, then the data sources, then their variables.
void BuildTree(forms::TreeView& tree) {
  tree.Nodes().Reserve(kDataSources * (kVariablesEach + 1));
  for (int i = 1; i <= kDataSources; ++i) {
    const forms::NodeRef node =
        tree.Nodes().Add(Variant(), forms::tvwLast, DsKey(i), TheDisplay().dsNames[static_cast<size_t>(i - 1)]);
    node->SetImage(2);
    node->SetExpandedImage(3);
    node->SetExpanded(true);
  }
  for (int i = 1; i <= kDataSources; ++i) AddDsvNodes(tree, i);
}

void BM_TreeBuild(benchmark::State& state) {
  TheDisplay();
  for (auto _ : state) {
    state.PauseTiming();
    auto form = std::make_unique<BrowserForm>();
    state.ResumeTiming();
    BuildTree(form->treDataSources);
    benchmark::DoNotOptimize(form->treDataSources.Nodes().Count());
    state.PauseTiming();
    form.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kDataSources * (kVariablesEach + 1));
}
BENCHMARK(BM_TreeBuild)->Unit(benchmark::kMillisecond);

void BM_FloorBuildKeys(benchmark::State& state) {
  TheDisplay();
  for (auto _ : state) {
    auto keys = std::make_unique<std::unordered_map<String, int>>();
    int index = 0;
    for (int i = 1; i <= kDataSources; ++i) keys->emplace(DsKey(i), ++index);
    for (int i = 1; i <= kDataSources; ++i)
      for (int j = 1; j <= kVariablesEach; ++j) keys->emplace(DsvKey(i, j), ++index);
    benchmark::DoNotOptimize(keys->size());
    state.PauseTiming();
    keys.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kDataSources * (kVariablesEach + 1));
}
BENCHMARK(BM_FloorBuildKeys)->Unit(benchmark::kMillisecond);

// Removes a data source's variable nodes highest index first, as the browser
// does, and adds them again. Taking the data sources in turn always moves the
// block right behind the data source nodes, the dearest place to remove from.
void BM_TreeRebuildOneDataSource(benchmark::State& state) {
  BrowserForm form;
  forms::TreeView& tree = form.treDataSources;
  BuildTree(tree);
  int i = 0;
  for (auto _ : state) {
    i = i % kDataSources + 1;
    const forms::NodeRef parent = tree.Nodes().Item(i);
    int32_t highest = 0;
    for (forms::NodeRef child = parent->Child(); child; child = child->Next())
      highest = std::max(highest, child->Index());
    for (int32_t n = parent->Children(), index = highest; n > 0; --n, --index) tree.Nodes().Remove(index);
    AddDsvNodes(tree, i);
    // The next use of an index closes the gap the removals left.
    benchmark::DoNotOptimize(tree.Nodes().Item(tree.Nodes().Count())->Index());
  }
}
BENCHMARK(BM_TreeRebuildOneDataSource)->Unit(benchmark::kMicrosecond);

void BM_FloorRebuildOneDataSourceKeys(benchmark::State& state) {
  std::unordered_map<String, int> keys;
  int index = 0;
  for (int i = 1; i <= kDataSources; ++i) keys.emplace(DsKey(i), ++index);
  for (int i = 1; i <= kDataSources; ++i)
    for (int j = 1; j <= kVariablesEach; ++j) keys.emplace(DsvKey(i, j), ++index);
  int i = 0;
  for (auto _ : state) {
    i = i % kDataSources + 1;
    for (int j = kVariablesEach; j >= 1; --j) keys.erase(DsvKey(i, j));
    for (int j = 1; j <= kVariablesEach; ++j) keys.emplace(DsvKey(i, j), ++index);
    benchmark::DoNotOptimize(keys.size());
  }
}
BENCHMARK(BM_FloorRebuildOneDataSourceKeys)->Unit(benchmark::kMicrosecond);

}  // namespace
