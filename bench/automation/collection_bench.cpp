// Key lookups of Collection must not grow with the number of items.
#include <benchmark/benchmark.h>

#include "vd/automation/collection.h"

namespace vd::automation {
namespace {

Collection<int> Filled(int64_t count) {
  Collection<int> c;
  for (int64_t i = 0; i < count; ++i) c.Add(static_cast<int>(i), u"Variable" + ToDecimal(i));
  return c;
}

// The key added last, in another case: the worst case for a linear search.
void BM_ItemByKey(benchmark::State& state) {
  const Collection<int> c = Filled(state.range(0));
  const String key = u"VARIABLE" + ToDecimal(state.range(0) - 1);
  for (auto _ : state) benchmark::DoNotOptimize(c.Item(key));
}
BENCHMARK(BM_ItemByKey)->RangeMultiplier(16)->Range(16, 65536);

void BM_ItemByIndex(benchmark::State& state) {
  const Collection<int> c = Filled(state.range(0));
  const auto last = static_cast<int32_t>(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(c.Item(last));
}
BENCHMARK(BM_ItemByIndex)->RangeMultiplier(16)->Range(16, 65536);

}  // namespace
}  // namespace vd::automation
