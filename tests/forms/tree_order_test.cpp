#include <gtest/gtest.h>

#include "tree_fixture.h"

namespace vd::forms::test {
namespace {

using Texts = std::vector<std::string>;
using vd::automation::FromUtf8;
using vd::automation::ToUtf8;

enum class SortWhen { kNever, kBeforeAdding, kAfterAdding };

struct OrderCase {
  const char* name;
  Texts added;
  SortWhen sort;
  Texts shown;
};

// Adds the texts as children of one parent (keys c1, c2, ...), sorting as told.
NodeRef AddChildren(TreeView& tree, const Texts& texts, SortWhen sort) {
  const NodeRef parent = tree.Nodes().Add(Variant(), tvwLast, u"P", u"Parent");
  if (sort == SortWhen::kBeforeAdding) parent->SetSorted(true);
  for (size_t i = 0; i < texts.size(); ++i)
    tree.Nodes().Add(u"P", tvwChild, u"c" + vd::automation::ToDecimal(static_cast<long long>(i + 1)),
                     FromUtf8(texts[i]));
  if (sort == SortWhen::kAfterAdding) parent->SetSorted(true);
  return parent;
}

// The same children walked backwards from LastSibling along Previous.
Texts BackwardTexts(const NodeRef& parent) {
  Texts texts;
  for (NodeRef node = parent->Child() ? parent->Child()->LastSibling() : nullptr; node; node = node->Previous())
    texts.insert(texts.begin(), ToUtf8(node->Text()));
  return texts;
}

class DisplayOrder : public ::testing::TestWithParam<OrderCase> {};

TEST_P(DisplayOrder, NavigationFollowsTheOrderShown) {
  const OrderCase& c = GetParam();
  EventLogForm form;
  const NodeRef parent = AddChildren(form.treItems, c.added, c.sort);
  EXPECT_EQ(ChildTexts(form.treItems, parent), c.shown);
  EXPECT_EQ(BackwardTexts(parent), c.shown);
  ASSERT_EQ(parent->Children(), static_cast<int32_t>(c.shown.size()));
  if (c.shown.empty()) return;
  // Every child names the same first and last sibling; the collection keeps adding order.
  for (NodeRef node = parent->Child(); node; node = node->Next()) {
    EXPECT_EQ(ToUtf8(node->FirstSibling()->Text()), c.shown.front());
    EXPECT_EQ(ToUtf8(node->LastSibling()->Text()), c.shown.back());
    EXPECT_EQ(node->Parent(), parent);
  }
  for (size_t i = 0; i < c.added.size(); ++i)
    EXPECT_EQ(ToUtf8(form.treItems.Nodes().Item(static_cast<int32_t>(i + 2))->Text()), c.added[i]);
}

INSTANTIATE_TEST_SUITE_P(
    Parents, DisplayOrder,
    ::testing::Values(
        OrderCase{"UnsortedKeepsAddingOrder", {"b", "A", "c"}, SortWhen::kNever, {"b", "A", "c"}},
        OrderCase{"SortedIgnoresCase", {"b", "A", "c"}, SortWhen::kBeforeAdding, {"A", "b", "c"}},
        OrderCase{"SortedLaterIgnoresCase", {"b", "A", "c"}, SortWhen::kAfterAdding, {"A", "b", "c"}},
        OrderCase{
            "EqualTextsKeepAddingOrder", {"b", "A", "a", "C", "B"}, SortWhen::kBeforeAdding, {"A", "a", "b", "B", "C"}},
        OrderCase{"EqualTextsKeepAddingOrderSortedLater",
                  {"b", "A", "a", "C", "B"},
                  SortWhen::kAfterAdding,
                  {"A", "a", "b", "B", "C"}},
        OrderCase{
            "PrefixComesFirst", {"Level10", "Level", "Lev"}, SortWhen::kBeforeAdding, {"Lev", "Level", "Level10"}},
        OrderCase{"DigitsAsText", {"Var10", "Var9", "Var1"}, SortWhen::kBeforeAdding, {"Var1", "Var10", "Var9"}},
        OrderCase{"OneChild", {"x"}, SortWhen::kBeforeAdding, {"x"}},
        OrderCase{"NoChildren", {}, SortWhen::kBeforeAdding, {}}),
    [](const ::testing::TestParamInfo<OrderCase>& param) { return std::string(param.param.name); });

TEST(DisplayOrder, RenamingUnderASortedParentMovesTheNode) {
  EventLogForm form;
  const NodeRef parent = AddChildren(form.treItems, {"a", "c", "e"}, SortWhen::kBeforeAdding);
  form.treItems.Nodes().Item(u"c1")->SetText(u"D");
  EXPECT_EQ(ChildTexts(form.treItems, parent), (Texts{"c", "D", "e"}));
  form.treItems.Nodes().Item(u"c3")->SetText(u"b");
  EXPECT_EQ(ChildTexts(form.treItems, parent), (Texts{"b", "c", "D"}));
}

TEST(DisplayOrder, TheTreesSortedOrdersTopLevelNodesOnly) {
  EventLogForm form;
  TreeView& tree = form.treItems;
  for (const char16_t* text : {u"Plant", u"alarms", u"Boiler"}) tree.Nodes().Add(Variant(), tvwLast, text, text);
  for (const char16_t* text : {u"z", u"y"}) tree.Nodes().Add(u"Plant", tvwChild, {}, text);
  tree.SetSorted(true);
  EXPECT_EQ(ChildTexts(tree, nullptr), (Texts{"alarms", "Boiler", "Plant"}));
  EXPECT_EQ(ChildTexts(tree, tree.Nodes().Item(u"Plant")), (Texts{"z", "y"}));
  tree.Nodes().Add(Variant(), tvwFirst, u"Ash", u"Ash");
  EXPECT_EQ(ChildTexts(tree, nullptr), (Texts{"alarms", "Ash", "Boiler", "Plant"}));
  EXPECT_EQ(tree.Nodes().Item(u"Plant")->Index(), 1);
  EXPECT_EQ(tree.Nodes().Item(u"Ash")->Index(), 6);
}

}  // namespace
}  // namespace vd::forms::test
