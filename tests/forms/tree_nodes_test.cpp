// The tree's nodes: where a new node goes, the keys and relatives it takes,
// the order shown under sorted parents, and the selection through removals,
// collapses and the user's clicks.
#include <gtest/gtest.h>

#include "tree_fixture.h"

namespace vd::forms::test {
namespace {

using Texts = std::vector<std::string>;
using vd::automation::FromUtf8;
using vd::automation::ToUtf8;

std::string SelectedKey(const TreeView& tree) {
  const NodeRef node = tree.SelectedItem();
  return node ? ToUtf8(node->Key()) : "(none)";
}

TEST(TreeNodes, RelationshipsPlaceTheNewNode) {
  const struct {
    Variant relative;
    int32_t relationship;
    Texts topLevel;
    Texts childrenOfB;
  } cases[] = {
      {Variant(), tvwFirst, {"N", "A", "B", "C"}, {"b1", "b2"}},
      {Variant(int32_t{2}), tvwChild, {"A", "B", "C"}, {"b1", "b2", "N"}},
      {Variant(u"A"), tvwNext, {"A", "N", "B", "C"}, {"b1", "b2"}},
      {Variant(u"B"), tvwPrevious, {"A", "N", "B", "C"}, {"b1", "b2"}},
      {Variant(u"b2"), tvwFirst, {"A", "B", "C"}, {"N", "b1", "b2"}},
      {Variant(u"b1"), tvwLast, {"A", "B", "C"}, {"b1", "b2", "N"}},
      {Variant(u"b1"), tvwNext, {"A", "B", "C"}, {"b1", "N", "b2"}},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    Nodes& nodes = form.treItems.Nodes();
    for (const char16_t* key : {u"A", u"B", u"C"}) nodes.Add(Variant(), tvwLast, key, key);
    for (const char16_t* key : {u"b1", u"b2"}) nodes.Add(u"B", tvwChild, key, key);
    const NodeRef added = nodes.Add(c.relative, c.relationship, u"N", u"N");
    EXPECT_EQ(added->Index(), 6);
    EXPECT_EQ(ChildTexts(form.treItems, nullptr), c.topLevel) << c.relationship;
    EXPECT_EQ(ChildTexts(form.treItems, nodes.Item(u"B")), c.childrenOfB) << c.relationship;
  }
  // The relative may be a key in any case, a node or a Double index.
  EventLogForm form;
  BuildTree(form.treItems, 3, 1);
  Nodes& nodes = form.treItems.Nodes();
  EXPECT_EQ(nodes.Add(u"_DS2", tvwChild)->Parent()->Key(), DsKey(2));
  EXPECT_EQ(nodes.Add(nodes.Item(2), tvwChild)->Parent()->Key(), DsKey(2));
  EXPECT_EQ(nodes.Add(Variant(2.0), tvwChild)->Parent()->Key(), DsKey(2));
}

TEST(TreeNodes, BadArgumentsRaiseTheControlsErrorsAndAddNothing) {
  namespace err_ = vd::automation::err;
  const struct {
    const char* name;
    std::function<void(TreeView&)> call;
    int32_t error;
  } cases[] = {
      {"DuplicateKeyOtherCase", [](TreeView& t) { t.Nodes().Add(Variant(), tvwLast, u"_DS1"); },
       err_::kTreeKeyNotUnique},
      {"UnknownRelativeKey", [](TreeView& t) { t.Nodes().Add(u"_Missing1", tvwChild, u"k", u"t"); },
       err_::kTreeElementNotFound},
      {"RelativeIndexTooHigh", [](TreeView& t) { t.Nodes().Add(int32_t{9}, tvwChild, u"k", u"t"); },
       err_::kTreeIndexOutOfBounds},
      {"UnknownRelationship", [](TreeView& t) { t.Nodes().Add(u"_Ds1", 7, u"k", u"t"); }, err_::kInvalidProcedureCall},
      {"ItemPastCount", [](TreeView& t) { (void)t.Nodes().Item(t.Nodes().Count() + 1); }, err_::kTreeIndexOutOfBounds},
      {"RemoveMissingKey", [](TreeView& t) { t.Nodes().Remove(u"nope"); }, err_::kTreeElementNotFound},
      {"ImageOutsideTheList", [](TreeView& t) { t.Nodes().Add(Variant(), tvwLast, u"k", u"t", 4); },
       err_::kTreeIndexOutOfBounds},
      {"RelativeOfAnotherKind", [](TreeView& t) { t.Nodes().Add(Variant(true), tvwChild, u"k", u"t"); },
       err_::kTypeMismatch},
      {"RelativeNodeOfAnotherTree",
       [](TreeView& t) {
         EventLogForm other;
         t.Nodes().Add(other.treItems.Nodes().Add(Variant(), tvwLast, u"f", u"f"), tvwNext, u"k", u"t");
       },
       err_::kTreeElementNotFound},
      {"ImageWithoutAList",
       [](TreeView& t) {
         t.SetImageList(nullptr);
         t.Nodes().Add(Variant(), tvwLast, u"k", u"t", 1);
       },
       err::kImageListNotInitialized},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    BuildTree(form.treItems, 2, 1);
    EXPECT_EQ(ErrorOf([&] { c.call(form.treItems); }), c.error) << c.name;
    EXPECT_EQ(KeysByIndex(form.treItems), (Texts{"_Ds1", "_Ds2", "1:1", "2:1"})) << c.name;
  }
  EventLogForm form;
  form.treItems.Nodes().Add(Variant(), tvwLast, u"_K\u00FChlung1");
  EXPECT_EQ(ErrorOf([&] { form.treItems.Nodes().Add(Variant(), tvwLast, u"_K\u00DCHLUNG1"); }),
            vd::automation::err::kTreeKeyNotUnique);
}

TEST(TreeNodes, HeldReferencesSurviveRemovalsAndRemovedOnesAreDetectable) {
  EventLogForm form;
  BuildTree(form.treItems, 2, 2);
  const NodeRef kept = form.treItems.Nodes().Item(u"2:2");
  const NodeRef goneWithParent = form.treItems.Nodes().Item(u"1:2");
  form.treItems.Nodes().Remove(u"_Ds1");
  EXPECT_EQ(kept->Index(), 3);
  EXPECT_TRUE(goneWithParent->Removed());
  EXPECT_EQ(ErrorOf([&] { (void)goneWithParent->Text(); }), err::kNodeRemoved);
  EXPECT_EQ(ErrorOf([&] { form.treItems.Nodes().Add(goneWithParent, tvwNext, u"k", u"t"); }),
            vd::automation::err::kTreeElementNotFound);
  kept->SetSelected(true);
  form.treItems.Nodes().Clear();
  EXPECT_EQ(form.treItems.SelectedItem(), nullptr);
  EXPECT_TRUE(kept->Removed());
}

// Adds the texts as children of one parent (keys c1, c2, ...), sorted before or after adding.
NodeRef AddChildren(TreeView& tree, const Texts& texts, bool sortFirst) {
  const NodeRef parent = tree.Nodes().Add(Variant(), tvwLast, u"P", u"Parent");
  if (sortFirst) parent->SetSorted(true);
  for (size_t i = 0; i < texts.size(); ++i)
    tree.Nodes().Add(u"P", tvwChild, u"c" + vd::automation::ToDecimal(static_cast<long long>(i + 1)),
                     FromUtf8(texts[i]));
  parent->SetSorted(true);
  return parent;
}

TEST(DisplayOrder, SortedChildrenIgnoreCaseKeepAddingOrderForEqualTextsAndNavigateAsShown) {
  const struct {
    Texts added;
    Texts shown;
  } cases[] = {{{"b", "A", "a", "C", "B"}, {"A", "a", "b", "B", "C"}},
               {{"Level10", "Level", "Lev", "Var9"}, {"Lev", "Level", "Level10", "Var9"}}};
  for (const auto& c : cases) {
    for (const bool sortFirst : {true, false}) {
      EventLogForm form;
      const NodeRef parent = AddChildren(form.treItems, c.added, sortFirst);
      EXPECT_EQ(ChildTexts(form.treItems, parent), c.shown);
      Texts backwards;
      for (NodeRef node = parent->Child()->LastSibling(); node; node = node->Previous())
        backwards.insert(backwards.begin(), ToUtf8(node->Text()));
      EXPECT_EQ(backwards, c.shown);
      EXPECT_EQ(ToUtf8(parent->Child()->Next()->FirstSibling()->Text()), c.shown.front());
      EXPECT_EQ(ToUtf8(form.treItems.Nodes().Item(2)->Text()), c.added.front());  // the collection keeps adding order
    }
  }
}

TEST(DisplayOrder, RenamingUnderASortedParentMovesTheNodeAndTheTreesSortedOrdersTopLevelOnly) {
  EventLogForm form;
  TreeView& tree = form.treItems;
  const NodeRef parent = AddChildren(tree, {"a", "c", "e"}, true);
  tree.Nodes().Item(u"c1")->SetText(u"D");
  EXPECT_EQ(ChildTexts(tree, parent), (Texts{"c", "D", "e"}));
  tree.Nodes().Item(u"c3")->SetText(u"b");
  EXPECT_EQ(ChildTexts(tree, parent), (Texts{"b", "c", "D"}));
  parent->SetSorted(false);
  tree.Nodes().Add(Variant(), tvwLast, u"alarms", u"alarms");
  tree.Nodes().Add(Variant(), tvwFirst, u"Plant", u"Plant");
  tree.SetSorted(true);
  tree.Nodes().Add(Variant(), tvwFirst, u"Ash", u"Ash");
  EXPECT_EQ(ChildTexts(tree, nullptr), (Texts{"alarms", "Ash", "Parent", "Plant"}));
  tree.Nodes().Item(u"c2")->SetText(u"z");
  EXPECT_EQ(ChildTexts(tree, parent), (Texts{"b", "z", "D"}));
}

TEST(TreeSelection, ARemovedSelectionMovesToNextElsePreviousElseParentElseNoneFiringNothing) {
  const struct {
    int dataSources, variablesEach;
    bool sorted;
    std::string selected, removed, selectedAfter;
  } cases[] = {{2, 3, false, "1:2", "1:2", "1:3"},   {2, 3, false, "1:3", "1:3", "1:2"},
               {2, 1, false, "2:1", "2:1", "_Ds2"},  {1, 0, false, "_Ds1", "_Ds1", "(none)"},
               {3, 2, false, "2:2", "_Ds2", "_Ds3"}, {2, 3, false, "1:2", "1:3", "1:2"},
               {2, 3, true, "1:3", "1:3", "1:1"},    {2, 3, true, "1:1", "1:1", "1:3"}};
  for (const auto& c : cases) {
    EventLogForm form;
    BuildTree(form.treItems, c.dataSources, c.variablesEach);
    if (c.sorted) {
      form.treItems.Nodes().Item(DsKey(1))->SetSorted(true);
      form.treItems.Nodes().Item(u"1:1")->SetText(u"z");  // 1:1 now shows last
    }
    form.treItems.Nodes().Item(FromUtf8(c.selected))->SetSelected(true);
    form.log.clear();
    form.treItems.Nodes().Remove(FromUtf8(c.removed));
    EXPECT_EQ(SelectedKey(form.treItems), c.selectedAfter) << c.selected << " " << c.removed;
    EXPECT_TRUE(form.log.empty());
  }
}

TEST(TreeSelection, FromCodeFiresNothingAndExpandsEveryAncestor) {
  EventLogForm form;
  Nodes& nodes = form.treItems.Nodes();
  nodes.Add(Variant(), tvwLast, u"a", u"a");
  nodes.Add(u"a", tvwChild, u"b", u"b");
  const NodeRef deepest = nodes.Add(u"b", tvwChild, u"c", u"c");
  const NodeRef other = nodes.Add(u"a", tvwChild, u"d", u"d");
  EXPECT_FALSE(deepest->Displayed());
  deepest->SetSelected(true);
  EXPECT_TRUE(deepest->Displayed() && nodes.Item(u"a")->Expanded() && nodes.Item(u"b")->Expanded());
  EXPECT_FALSE(deepest->Expanded());
  form.treItems.SetSelectedItem(other);
  EXPECT_EQ(SelectedKey(form.treItems), "d");
  other->SetSelected(false);
  EXPECT_EQ(SelectedKey(form.treItems), "(none)");
  EXPECT_TRUE(form.log.empty());
}

TEST(TreeSelection, AUserClickSelectsThenFiresNodeClickEvenOnTheSelectedNodeAndADoubleClickClicksFirst) {
  EventLogForm form;
  BuildTree(form.treItems, 2, 2);
  form.treItems.Nodes().Item(u"2:1")->SetSelected(true);
  std::string selectedInHandler;
  form.treItems.onNodeClick = [&](const NodeRef& node) {
    selectedInHandler = SelectedKey(form.treItems);
    form.log.push_back("NodeClick " + ToUtf8(node->Key()));
  };
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(form.treItems.UserSelectNode(form.treItems.Nodes().Item(u"1:2")));
  ASSERT_TRUE(form.treItems.UserDoubleClickNode(form.treItems.Nodes().Item(u"1:1")));
  ASSERT_TRUE(form.treItems.UserDoubleClickNode(nullptr));
  EXPECT_EQ(selectedInHandler, "1:1");
  EXPECT_EQ(form.log,
            (Texts{"treItems.GotFocus", "NodeClick 1:2", "treItems.Click", "NodeClick 1:2", "treItems.Click",
                   "NodeClick 1:1", "treItems.Click", "treItems.DblClick", "treItems.Click", "treItems.DblClick"}));
}

TEST(TreeSelection, CollapsingMovesTheSelectionFromBelowToTheCollapsedNode) {
  const struct {
    bool byUser;
    std::string selected, selectedAfter;
    Texts events;
  } cases[] = {{true, "1:2", "_Ds1", {"treItems.GotFocus", "treItems.Collapse _Ds1"}},
               {true, "2:1", "2:1", {"treItems.GotFocus", "treItems.Collapse _Ds1"}},
               {false, "1:1", "_Ds1", {}}};
  for (const auto& c : cases) {
    EventLogForm form;
    BuildTree(form.treItems, 2, 2);
    const NodeRef node = form.treItems.Nodes().Item(DsKey(1));
    node->SetExpanded(true);
    form.treItems.Nodes().Item(FromUtf8(c.selected))->SetSelected(true);
    form.log.clear();
    if (c.byUser) {
      ASSERT_TRUE(form.treItems.UserCollapse(node));
    } else {
      node->SetExpanded(false);
    }
    EXPECT_FALSE(node->Expanded());
    EXPECT_EQ(SelectedKey(form.treItems), c.selectedAfter) << c.selected;
    EXPECT_EQ(form.log, c.events) << c.selected;
  }
}

}  // namespace
}  // namespace vd::forms::test
