// The tree mirror's pointer table: finds what was inserted, forgets what was
// erased, and keeps the rest findable when erasing moves entries back.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "views/pointer_table.h"

namespace vd::win32::views::testing {
namespace {

struct Key {
  int id;
};

TEST(PointerTable, FindsEveryKeyLeftAndNoneErased) {
  // keys, then erase every n-th of them in a shuffled order (runs closed from every side)
  const std::pair<int, int> tables[] = {{1, 1}, {1000, 1000000}, {5000, 2}, {20000, 3}, {3000, 1}};
  for (const auto& [count, every] : tables) {
    SCOPED_TRACE(::testing::Message() << count << " keys, every " << every << " erased");
    std::vector<Key> keys(static_cast<size_t>(count));
    std::vector<int> values(keys.size());
    PointerTable<Key, int> map;
    for (size_t i = 0; i < keys.size(); ++i) map.Insert(&keys[i], &values[i]);
    ASSERT_EQ(map.Size(), keys.size());
    std::vector<size_t> order(keys.size());
    for (size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::shuffle(order.begin(), order.end(), std::mt19937(7));
    size_t erased = 0;
    for (const size_t i : order) {
      if (static_cast<int>(i) % every != 0) continue;
      map.Erase(&keys[i]);
      ++erased;
    }
    EXPECT_EQ(map.Size(), keys.size() - erased);
    for (size_t i = 0; i < keys.size(); ++i)
      ASSERT_EQ(map.Find(&keys[i]), static_cast<int>(i) % every == 0 ? nullptr : &values[i]) << i;
  }
}

TEST(PointerTable, ErasedSlotIsReusedAndClearEmptiesAll) {
  Key a{1};
  Key b{2};
  int va = 1;
  int vb = 2;
  PointerTable<Key, int> map;
  EXPECT_EQ(map.Find(&a), nullptr);
  map.Insert(&a, &va);
  map.Erase(&b);  // not there: nothing happens
  map.Erase(&a);
  map.Insert(&a, &vb);
  map.Insert(&b, &va);
  EXPECT_EQ(map.Find(&a), &vb);
  EXPECT_EQ(map.Find(&b), &va);
  map.Clear();
  EXPECT_EQ(map.Size(), 0u);
  EXPECT_EQ(map.Find(&a), nullptr);
}

}  // namespace
}  // namespace vd::win32::views::testing
