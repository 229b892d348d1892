#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

#include "error_number.h"
#include "vd/automation/collection.h"

namespace vd::automation {
namespace {

using testing::ErrorNumberOf;

Collection<int> Sample() {
  Collection<int> c;
  c.Add(10, u"Alpha");
  c.Add(20);
  c.Add(30, u"beta");
  return c;
}

std::vector<int> Items(const Collection<int>& c) {
  std::vector<int> out;
  for (int32_t i = 1; i <= c.Count(); ++i) out.push_back(c.Item(i));
  return out;
}

TEST(Collection, KeysIgnoreCaseAndRefusalsChangeNothing) {
  Collection<int> c = Sample();
  EXPECT_EQ(c.Item(u"ALPHA"), 10);
  EXPECT_FALSE(c.Exists(u"Alph"));
  EXPECT_EQ(c.KeyOf(1), u"Alpha");
  EXPECT_EQ(c.KeyOf(2), std::nullopt);
  EXPECT_EQ(ErrorNumberOf([&] { (void)c.Item(u"gamma"); }), err::kInvalidProcedureCall);
  EXPECT_EQ(ErrorNumberOf([&] { c.AddBefore(1, 99, u"alpha"); }), err::kKeyAlreadyInCollection);
  for (const int32_t index : {0, 4}) {
    EXPECT_EQ(ErrorNumberOf([&] { (void)c.Item(index); }), err::kSubscriptOutOfRange) << index;
    EXPECT_EQ(ErrorNumberOf([&] { c.Remove(index); }), err::kSubscriptOutOfRange) << index;
    EXPECT_EQ(ErrorNumberOf([&] { c.AddAfter(index, 1); }), err::kSubscriptOutOfRange) << index;
  }
  EXPECT_EQ(Items(c), (std::vector<int>{10, 20, 30}));
  c.Clear();
  EXPECT_FALSE(c.Exists(u"beta"));
}

// A model of the rules (a list of items with optional keys, searched one by
// one) against the collection, under a long random mix of operations.
TEST(Collection, BehavesLikeALinearListUnderRandomOperations) {
  struct ModelEntry {
    int value;
    std::optional<String> key;
  };
  std::vector<ModelEntry> model;
  Collection<int> c;
  std::mt19937 random(42);
  const String keys[] = {u"a", u"A", u"b", u"Tank1", u"TANK1", u"pump", u"\u00E9", u"\u00C9"};
  auto modelIndexOf = [&](const String& key) -> int32_t {
    for (size_t i = 0; i < model.size(); ++i)
      if (model[i].key && EqualsIgnoreCase(*model[i].key, key)) return static_cast<int32_t>(i) + 1;
    return 0;
  };
  for (int step = 0; step < 4000; ++step) {
    const int op = static_cast<int>(random() % 5);
    const String& key = keys[random() % std::size(keys)];
    const bool withKey = random() % 2 == 0;
    const int32_t count = c.Count();
    const int32_t position = count == 0 ? 1 : static_cast<int32_t>(random() % static_cast<uint32_t>(count)) + 1;
    const int value = step;
    const bool duplicate = withKey && modelIndexOf(key) != 0;
    std::optional<String> maybeKey = withKey ? std::optional<String>(key) : std::nullopt;
    if (op == 0) {
      EXPECT_EQ(ErrorNumberOf([&] { c.Add(value, maybeKey); }), duplicate ? err::kKeyAlreadyInCollection : 0);
      if (!duplicate) model.push_back({value, maybeKey});
    } else if (op == 1 && count > 0) {
      EXPECT_EQ(ErrorNumberOf([&] { c.AddAfter(position, value, maybeKey); }),
                duplicate ? err::kKeyAlreadyInCollection : 0);
      if (!duplicate) model.insert(model.begin() + position, {value, maybeKey});
    } else if (op == 2 && count > 0) {
      EXPECT_EQ(ErrorNumberOf([&] { c.AddBefore(position, value, maybeKey); }),
                duplicate ? err::kKeyAlreadyInCollection : 0);
      if (!duplicate) model.insert(model.begin() + (position - 1), {value, maybeKey});
    } else if (op == 3 && count > 0) {
      c.Remove(position);
      model.erase(model.begin() + (position - 1));
    } else if (op == 4) {
      const int32_t index = modelIndexOf(key);
      EXPECT_EQ(ErrorNumberOf([&] { c.Remove(key); }), index == 0 ? err::kInvalidProcedureCall : 0);
      if (index != 0) model.erase(model.begin() + (index - 1));
    }
    ASSERT_EQ(c.Count(), static_cast<int32_t>(model.size())) << "step " << step;
    for (size_t i = 0; i < model.size(); ++i) ASSERT_EQ(c.Item(static_cast<int32_t>(i) + 1), model[i].value);
    for (const String& k : keys) {
      const int32_t index = modelIndexOf(k);
      ASSERT_EQ(c.Exists(k), index != 0) << ToUtf8(k) << " step " << step;
      if (index != 0) {
        ASSERT_EQ(c.Item(k), model[static_cast<size_t>(index) - 1].value) << ToUtf8(k);
      }
    }
  }
}

}  // namespace
}  // namespace vd::automation
