// The tree mirror's pointer table: finds what was inserted, forgets what was
// erased, and keeps the rest findable when erasing moves entries back.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <vector>

#include "views/pointer_table.h"

namespace vd::win32::views::testing {
namespace {

struct Key {
  int id;
};

struct TableCase {
  const char* name;
  int keys;
  int eraseEvery;  // erase every n-th key after inserting them all
};

class PointerTableTest : public ::testing::TestWithParam<TableCase> {};

TEST_P(PointerTableTest, FindsEveryKeyLeftAndNoneErased) {
  const TableCase& table = GetParam();
  std::vector<Key> keys(static_cast<size_t>(table.keys));
  std::vector<int> values(keys.size());
  PointerTable<Key, int> map;
  for (size_t i = 0; i < keys.size(); ++i) map.Insert(&keys[i], &values[i]);
  ASSERT_EQ(map.Size(), keys.size());

  // Erase in a shuffled order, so that runs are closed from every side.
  std::vector<size_t> order(keys.size());
  for (size_t i = 0; i < order.size(); ++i) order[i] = i;
  std::shuffle(order.begin(), order.end(), std::mt19937(7));
  std::set<size_t> erased;
  for (const size_t i : order)
    if (static_cast<int>(i) % table.eraseEvery == 0) {
      map.Erase(&keys[i]);
      erased.insert(i);
    }
  EXPECT_EQ(map.Size(), keys.size() - erased.size());
  for (size_t i = 0; i < keys.size(); ++i) {
    if (erased.count(i) != 0) {
      EXPECT_EQ(map.Find(&keys[i]), nullptr) << i;
    } else {
      EXPECT_EQ(map.Find(&keys[i]), &values[i]) << i;
    }
  }
}

const TableCase kTables[] = {
    {"OneKey", 1, 1},      {"EraseOnlyTheFirst", 1000, 1000000}, {"EraseHalf", 5000, 2}, {"EraseEveryThird", 20000, 3},
    {"EraseAll", 3000, 1},
};

INSTANTIATE_TEST_SUITE_P(Tables, PointerTableTest, ::testing::ValuesIn(kTables),
                         [](const ::testing::TestParamInfo<TableCase>& param) { return param.param.name; });

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
