// How the Nodes collection stores its nodes: indexes counted across the gaps
// that removals leave (and after the gaps are closed), keys found through
// growth and renumbering, a relative key that names a node added again, and
// nodes held past their tree.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "tree_fixture.h"
#include "vd/automation/error.h"

namespace vd::forms::test {
namespace {

using vd::automation::ToDecimal;
using vd::automation::ToUtf8;

// Keys in collection order and each key's parent ("" for top level).
struct Model {
  std::vector<String> order;
  std::map<String, String> parentOf;

  void Add(const String& key, const String& parent) {
    order.push_back(key);
    parentOf[key] = parent;
  }
  // The node and its subtree; answers how many went.
  size_t Remove(const String& key) {
    std::set<String> doomed{key};
    for (bool grew = true; grew;) {
      grew = false;
      for (const auto& [child, parent] : parentOf)
        if (doomed.count(parent) != 0 && doomed.insert(child).second) grew = true;
    }
    std::erase_if(order, [&](const String& k) { return doomed.count(k) != 0; });
    for (const String& gone : doomed) parentOf.erase(gone);
    return doomed.size();
  }
};

void ExpectSameAs(const TreeView& tree, const Model& model, const std::set<String>& removed) {
  const Nodes& nodes = tree.Nodes();
  ASSERT_EQ(nodes.Count(), static_cast<int32_t>(model.order.size()));
  // Index of a node found by key first, so that no Item(index) call has
  // settled anything before.
  for (size_t i = 0; i < model.order.size(); i += 7) {
    const NodeRef node = nodes.Find(model.order[i]);
    ASSERT_TRUE(node) << ToUtf8(model.order[i]);
    EXPECT_EQ(node->Index(), static_cast<int32_t>(i) + 1) << ToUtf8(model.order[i]);
  }
  for (size_t i = 0; i < model.order.size(); ++i) {
    const NodeRef node = nodes.Item(static_cast<int32_t>(i) + 1);
    ASSERT_EQ(node->Key(), model.order[i]) << "index " << i + 1;
    EXPECT_EQ(node->Index(), static_cast<int32_t>(i) + 1);
    const String& parent = model.parentOf.at(model.order[i]);
    EXPECT_EQ(node->Parent() ? node->Parent()->Key() : String(), parent);
  }
  for (const String& key : removed) EXPECT_FALSE(nodes.Find(key)) << ToUtf8(key);
}

// Random adds and removals of single nodes and subtrees, checked against the
// model after every step; enough removals that the gaps outnumber the nodes
// several times over.
TEST(TreeStorage, IndexesAndKeysFollowRandomAddsAndRemovals) {
  EventLogForm form;
  TreeView& tree = form.treItems;
  Model model;
  std::set<String> removed;
  std::mt19937 random(20261123);
  int next = 0;
  const auto addNode = [&] {
    const String key = u"k" + ToDecimal(++next);
    const bool child = !model.order.empty() && random() % 3 != 0;
    const String parent = child ? model.order[random() % model.order.size()] : String();
    if (child) {
      tree.Nodes().Add(parent, tvwChild, key, key);
    } else {
      tree.Nodes().Add(Variant(), tvwLast, key, key);
    }
    model.Add(key, parent);
  };
  for (int i = 0; i < 300; ++i) addNode();
  for (int step = 0; step < 400; ++step) {
    const unsigned what = random() % 10;
    if (what < 5 || model.order.empty()) {
      addNode();
    } else {
      const size_t at = random() % model.order.size();
      const String key = model.order[at];
      const int32_t before = tree.Nodes().Count();
      if (what < 7) {
        tree.Nodes().Remove(static_cast<int32_t>(at) + 1);
      } else if (what < 9) {
        tree.Nodes().Remove(key);
      } else {
        tree.Nodes().Remove(tree.Nodes().Find(key));
      }
      removed.insert(key);
      const size_t gone = model.Remove(key);
      ASSERT_EQ(before - tree.Nodes().Count(), static_cast<int32_t>(gone));
    }
    if (step % 40 == 0) ExpectSameAs(tree, model, removed);
  }
  ExpectSameAs(tree, model, removed);
}

TEST(TreeStorage, RemovingTheLastNodesLeavesNoGapBehind) {
  EventLogForm form;
  BuildTree(form.treItems, 3, 2);  // _Ds1 _Ds2 _Ds3 1:1 1:2 2:1 2:2 3:1 3:2
  Nodes& nodes = form.treItems.Nodes();
  nodes.Remove(u"_Ds3");  // a gap at 3, and the last two nodes
  const NodeRef added = nodes.Add(u"_Ds1", tvwChild, u"1:3", u"Var3");
  EXPECT_EQ(added->Index(), 7);
  EXPECT_EQ(nodes.Item(u"2:2")->Index(), 6);
  EXPECT_EQ(nodes.Item(u"1:1")->Index(), 3);
  EXPECT_EQ(nodes.Item(7)->Key(), u"1:3");
  EXPECT_EQ(nodes.Count(), 7);
}

TEST(TreeStorage, ARelativeKeyNamesTheNodeThatHasItNow) {
  EventLogForm form;
  Nodes& nodes = form.treItems.Nodes();
  nodes.Add(Variant(), tvwLast, u"A", u"first A");
  nodes.Add(u"A", tvwChild, u"A1", u"child of the first");
  nodes.Remove(u"A");
  try {
    nodes.Add(u"A", tvwChild, u"A9", u"orphan");
    ADD_FAILURE() << "a removed node's key still names it";
  } catch (const vd::automation::AutomationError& e) {
    EXPECT_EQ(e.Number(), 35601);
  }
  const NodeRef second = nodes.Add(Variant(), tvwLast, u"a", u"second A");
  const NodeRef child = nodes.Add(u"A", tvwChild, u"A2", u"child of the second");
  EXPECT_EQ(child->Parent(), second);
  nodes.Clear();
  nodes.Add(Variant(), tvwLast, u"A", u"third A");
  const NodeRef third = nodes.Add(u"a", tvwChild, u"A3", u"child of the third");
  EXPECT_EQ(third->Parent()->Text(), u"third A");
}

TEST(TreeStorage, NodesHeldPastTheirTreeStayValidObjects) {
  NodeRef held;
  NodeRef removed;
  {
    EventLogForm form;
    BuildTree(form.treItems, 50, 20);
    held = form.treItems.Nodes().Item(u"25:7");
    removed = form.treItems.Nodes().Item(u"3:3");
    form.treItems.Nodes().Remove(removed);
    form.treItems.Nodes().Clear();
    BuildTree(form.treItems, 50, 20);  // reuses what Clear gave back, never what is held
    EXPECT_TRUE(held->Removed());
    EXPECT_EQ(form.treItems.Nodes().Item(u"25:7")->Text(), u"Var7");
    held = form.treItems.Nodes().Item(u"25:8");
  }
  EXPECT_TRUE(held->Removed());
  EXPECT_TRUE(removed->Removed());
  held.reset();  // its memory goes back after the tree's
  removed.reset();
}

}  // namespace
}  // namespace vd::forms::test
