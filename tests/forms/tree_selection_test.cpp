#include <gtest/gtest.h>

#include "tree_fixture.h"

namespace vd::forms::test {
namespace {

using Logs = std::vector<std::string>;
using vd::automation::FromUtf8;
using vd::automation::ToUtf8;

std::string SelectedKey(const TreeView& tree) {
  const NodeRef node = tree.SelectedItem();
  return node ? ToUtf8(node->Key()) : "(none)";
}

struct RemovalSelectionCase {
  const char* name;
  int dataSources;
  int variablesEach;
  bool sortedFirstParent;
  std::string selected;
  std::string removed;
  std::string selectedAfter;
};

class SelectionAfterRemoval : public ::testing::TestWithParam<RemovalSelectionCase> {};

TEST_P(SelectionAfterRemoval, MovesToNextElsePreviousElseParentElseNone) {
  const RemovalSelectionCase& c = GetParam();
  EventLogForm form;
  BuildTree(form.treItems, c.dataSources, c.variablesEach);
  if (c.sortedFirstParent) {
    form.treItems.Nodes().Item(DsKey(1))->SetSorted(true);
    form.treItems.Nodes().Item(u"1:1")->SetText(u"z");  // 1:1 now shows last
  }
  form.treItems.Nodes().Item(FromUtf8(c.selected))->SetSelected(true);
  form.log.clear();
  form.treItems.Nodes().Remove(FromUtf8(c.removed));
  EXPECT_EQ(SelectedKey(form.treItems), c.selectedAfter);
  EXPECT_TRUE(form.log.empty()) << form.log.front();
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SelectionAfterRemoval,
    ::testing::Values(RemovalSelectionCase{"NextSibling", 2, 3, false, "1:2", "1:2", "1:3"},
                      RemovalSelectionCase{"PreviousSiblingOfTheLast", 2, 3, false, "1:3", "1:3", "1:2"},
                      RemovalSelectionCase{"ParentOfTheOnlyChild", 2, 1, false, "2:1", "2:1", "_Ds2"},
                      RemovalSelectionCase{"NoneForTheOnlyNode", 1, 0, false, "_Ds1", "_Ds1", "(none)"},
                      RemovalSelectionCase{"NextTopLevel", 3, 0, false, "_Ds2", "_Ds2", "_Ds3"},
                      RemovalSelectionCase{"PreviousTopLevel", 3, 0, false, "_Ds3", "_Ds3", "_Ds2"},
                      RemovalSelectionCase{"SelectedInsideTheRemovedSubtree", 3, 2, false, "2:2", "_Ds2", "_Ds3"},
                      RemovalSelectionCase{"SelectedInsideTheLastSubtree", 3, 2, false, "3:1", "_Ds3", "_Ds2"},
                      RemovalSelectionCase{"AnotherNodeRemoved", 2, 3, false, "1:2", "1:3", "1:2"},
                      RemovalSelectionCase{"NextInSortedOrder", 2, 3, true, "1:3", "1:3", "1:1"},
                      RemovalSelectionCase{"PreviousInSortedOrder", 2, 3, true, "1:1", "1:1", "1:3"}),
    [](const ::testing::TestParamInfo<RemovalSelectionCase>& param) { return std::string(param.param.name); });

TEST(TreeSelection, SelectingFromCodeFiresNothing) {
  EventLogForm form;
  BuildTree(form.treItems, 2, 2);
  form.treItems.Nodes().Item(u"1:2")->SetSelected(true);
  form.treItems.SetSelectedItem(form.treItems.Nodes().Item(u"_Ds2"));
  form.treItems.Nodes().Item(u"_Ds2")->EnsureVisible();
  EXPECT_EQ(SelectedKey(form.treItems), "_Ds2");
  EXPECT_TRUE(form.log.empty()) << form.log.front();
  form.treItems.Nodes().Item(u"_Ds2")->SetSelected(false);
  EXPECT_EQ(SelectedKey(form.treItems), "(none)");
}

TEST(TreeSelection, AUserClickSelectsThenFiresNodeClickEvenOnTheSelectedNode) {
  EventLogForm form;
  BuildTree(form.treItems, 2, 2);
  form.treItems.Nodes().Item(u"2:1")->SetSelected(true);
  std::string selectedInHandler;
  form.treItems.onNodeClick = [&](const NodeRef& node) {
    selectedInHandler = SelectedKey(form.treItems);
    form.log.push_back("NodeClick " + ToUtf8(node->Key()));
  };
  for (const char16_t* key : {u"1:2", u"1:2"})
    ASSERT_TRUE(form.treItems.UserSelectNode(form.treItems.Nodes().Item(key)));
  EXPECT_EQ(selectedInHandler, "1:2");
  EXPECT_EQ(form.log,
            (Logs{"treItems.GotFocus", "NodeClick 1:2", "treItems.Click", "NodeClick 1:2", "treItems.Click"}));
}

TEST(TreeSelection, CollapsingMovesTheSelectionFromBelowToTheCollapsedNode) {
  const struct {
    const char* name;
    bool byUser;
    std::string selected;
    std::string collapsed;
    std::string selectedAfter;
    Logs events;
  } cases[] = {
      {"UserWithChildSelected", true, "1:2", "_Ds1", "_Ds1", {"treItems.GotFocus", "treItems.Collapse _Ds1"}},
      {"UserWithOtherSelected", true, "2:1", "_Ds1", "2:1", {"treItems.GotFocus", "treItems.Collapse _Ds1"}},
      {"CodeWithChildSelected", false, "1:1", "_Ds1", "_Ds1", {}},
      {"CodeWithItselfSelected", false, "_Ds1", "_Ds1", "_Ds1", {}},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    BuildTree(form.treItems, 2, 2);
    form.treItems.Nodes().Item(DsKey(1))->SetExpanded(true);
    form.treItems.Nodes().Item(FromUtf8(c.selected))->SetSelected(true);
    form.log.clear();
    const NodeRef node = form.treItems.Nodes().Item(FromUtf8(c.collapsed));
    if (c.byUser) {
      ASSERT_TRUE(form.treItems.UserCollapse(node)) << c.name;
    } else {
      node->SetExpanded(false);
    }
    EXPECT_FALSE(node->Expanded()) << c.name;
    EXPECT_EQ(SelectedKey(form.treItems), c.selectedAfter) << c.name;
    EXPECT_EQ(form.log, c.events) << c.name;
  }
}

TEST(TreeSelection, EnsureVisibleAndSelectingExpandEveryAncestor) {
  for (const bool bySelecting : {false, true}) {
    EventLogForm form;
    Nodes& nodes = form.treItems.Nodes();
    nodes.Add(Variant(), tvwLast, u"a", u"a");
    nodes.Add(u"a", tvwChild, u"b", u"b");
    nodes.Add(u"b", tvwChild, u"c", u"c");
    const NodeRef deepest = nodes.Add(u"c", tvwChild, u"d", u"d");
    EXPECT_FALSE(deepest->Displayed());
    if (bySelecting) {
      deepest->SetSelected(true);
    } else {
      deepest->EnsureVisible();
    }
    EXPECT_TRUE(deepest->Displayed());
    for (const char16_t* key : {u"a", u"b", u"c"}) EXPECT_TRUE(nodes.Item(key)->Expanded());
    EXPECT_FALSE(deepest->Expanded());
    EXPECT_TRUE(form.log.empty());
  }
}

TEST(TreeSelection, ADoubleClickClicksTheNodeFirst) {
  EventLogForm form;
  BuildTree(form.treItems, 1, 1);
  ASSERT_TRUE(form.treItems.UserDoubleClickNode(form.treItems.Nodes().Item(u"1:1")));
  ASSERT_TRUE(form.treItems.UserDoubleClickNode(nullptr));
  EXPECT_EQ(form.log, (Logs{"treItems.GotFocus", "treItems.NodeClick 1:1", "treItems.Click", "treItems.DblClick",
                            "treItems.Click", "treItems.DblClick"}));
  EXPECT_EQ(SelectedKey(form.treItems), "1:1");
}

TEST(TreeHitTest, AnswersTheNodeTheMouseMovedOver) {
  EventLogForm form;
  BuildTree(form.treItems, 1, 1);
  const NodeRef node = form.treItems.Nodes().Item(u"1:1");
  std::string hitInHandler;
  form.treItems.onMouseMove = [&](int16_t, int16_t, float x, float y) {
    const NodeRef hit = form.treItems.HitTest(x, y);
    hitInHandler = hit ? ToUtf8(hit->Key()) : "(none)";
  };
  ASSERT_TRUE(form.treItems.UserMouseMove(0, 0, 120, 45, node));
  EXPECT_EQ(hitInHandler, "1:1");
  EXPECT_EQ(form.treItems.HitTest(120, 46), nullptr);
  ASSERT_TRUE(form.treItems.UserMouseMove(0, 0, 10, 400, nullptr));
  EXPECT_EQ(hitInHandler, "(none)");
  form.treItems.UserMouseMove(0, 0, 120, 45, node);
  form.treItems.Nodes().Remove(u"1:1");
  EXPECT_EQ(form.treItems.HitTest(120, 45), nullptr);
  form.treItems.hitTester = [&](float, float) { return form.treItems.Nodes().Item(1); };
  EXPECT_EQ(form.treItems.HitTest(1, 1)->Key(), DsKey(1));
}

}  // namespace
}  // namespace vd::forms::test
