#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "tree_fixture.h"
#include "vd/automation/error.h"

namespace vd::forms::test {
namespace {

using vd::automation::AutomationError;
using vd::automation::ToUtf8;
using Keys = std::vector<std::string>;

int32_t ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const AutomationError& e) {
    return e.Number();
  }
  return 0;
}

// A plain model of the collection: keys in order and each key's parent.
struct CollectionModel {
  Keys order;
  std::map<std::string, std::string> parentOf;

  void Remove(const std::string& key) {
    Keys doomed{key};
    for (size_t i = 0; i < doomed.size(); ++i)
      for (const auto& [child, parent] : parentOf)
        if (parent == doomed[i]) doomed.push_back(child);
    for (const std::string& gone : doomed) {
      order.erase(std::find(order.begin(), order.end(), gone));
      parentOf.erase(gone);
    }
  }
};

CollectionModel ModelOf(const TreeView& tree) {
  CollectionModel model;
  for (int32_t i = 1; i <= tree.Nodes().Count(); ++i) {
    const NodeRef node = tree.Nodes().Item(i);
    model.order.push_back(ToUtf8(node->Key()));
    model.parentOf[ToUtf8(node->Key())] = node->Parent() ? ToUtf8(node->Parent()->Key()) : "";
  }
  return model;
}

struct RemovalCase {
  const char* name;
  Keys removed;      // by key, in this order
  bool readBetween;  // read every Index between removals
};

class IndexRenumbering : public ::testing::TestWithParam<RemovalCase> {};

TEST_P(IndexRenumbering, IndexIsTheCollectionOrderAfterRemovals) {
  const RemovalCase& c = GetParam();
  EventLogForm form;
  BuildTree(form.treItems, 4, 3);
  CollectionModel model = ModelOf(form.treItems);
  for (const std::string& key : c.removed) {
    form.treItems.Nodes().Remove(vd::automation::FromUtf8(key));
    model.Remove(key);
    if (c.readBetween) {
      ASSERT_EQ(KeysByIndex(form.treItems), model.order) << "after removing " << key;
    }
  }
  EXPECT_EQ(form.treItems.Nodes().Count(), static_cast<int32_t>(model.order.size()));
  // Each node's own Index agrees with the collection, as does lookup by key.
  for (size_t i = 0; i < model.order.size(); ++i) {
    const NodeRef node = form.treItems.Nodes().Item(vd::automation::FromUtf8(model.order[i]));
    EXPECT_EQ(node->Index(), static_cast<int32_t>(i + 1)) << model.order[i];
  }
  EXPECT_EQ(KeysByIndex(form.treItems), model.order);
}

INSTANTIATE_TEST_SUITE_P(
    Orders, IndexRenumbering,
    ::testing::Values(RemovalCase{"LastNode", {"4:3"}, false},
                      RemovalCase{"ChildrenHighestFirstReadBetween", {"2:3", "2:2", "2:1"}, true},
                      RemovalCase{"ChildrenLowestFirst", {"3:1", "3:2", "3:3"}, true},
                      RemovalCase{"ScatteredMiddleReadBetween", {"1:2", "4:1", "_Ds3", "2:2"}, true},
                      RemovalCase{"Everything", {"_Ds1", "_Ds2", "_Ds3", "_Ds4"}, true}),
    [](const ::testing::TestParamInfo<RemovalCase>& param) { return std::string(param.param.name); });

TEST(TreeNodes, NewNodesComeLastAfterRemovalsFromTheMiddle) {
  EventLogForm form;
  BuildTree(form.treItems, 3, 2);
  for (const char16_t* key : {u"2:2", u"2:1"}) form.treItems.Nodes().Remove(key);
  const NodeRef added = form.treItems.Nodes().Add(DsKey(2), tvwChild, u"2:1", u"Var1", 1);
  EXPECT_EQ(added->Index(), form.treItems.Nodes().Count());
  EXPECT_EQ(KeysByIndex(form.treItems), (Keys{"_Ds1", "_Ds2", "_Ds3", "1:1", "1:2", "3:1", "3:2", "2:1"}));
}

TEST(TreeNodes, HeldReferencesSurviveRemovalsAndRemovedOnesAreDetectable) {
  EventLogForm form;
  BuildTree(form.treItems, 2, 2);
  const NodeRef kept = form.treItems.Nodes().Item(u"2:2");
  const NodeRef gone = form.treItems.Nodes().Item(u"1:1");
  const NodeRef goneWithParent = form.treItems.Nodes().Item(u"1:2");
  form.treItems.Nodes().Remove(u"_Ds1");
  EXPECT_FALSE(kept->Removed());
  EXPECT_EQ(kept->Index(), 3);
  EXPECT_EQ(kept->Parent()->Key(), DsKey(2));
  for (const NodeRef& node : {gone, goneWithParent}) {
    EXPECT_TRUE(node->Removed());
    EXPECT_EQ(ErrorOf([&] { (void)node->Index(); }), err::kNodeRemoved);
    EXPECT_EQ(ErrorOf([&] { (void)node->Text(); }), err::kNodeRemoved);
    EXPECT_EQ(ErrorOf([&] { form.treItems.Nodes().Add(node, tvwNext, u"k", u"t"); }),
              vd::automation::err::kTreeElementNotFound);
  }
  EXPECT_EQ(form.treItems.Nodes().Find(u"1:1"), nullptr);
}

TEST(TreeNodes, KeysAreUniqueIgnoringCase) {
  const struct {
    const char* name;
    const char16_t* existing;
    const char16_t* added;
    int32_t error;
  } cases[] = {
      {"SameKey", u"_Plant3", u"_Plant3", vd::automation::err::kTreeKeyNotUnique},
      {"OtherCase", u"_Plant3", u"_PLANT3", vd::automation::err::kTreeKeyNotUnique},
      {"AccentedOtherCase", u"_K\u00FChlung1", u"_K\u00DCHLUNG1", vd::automation::err::kTreeKeyNotUnique},
      {"OtherKey", u"_Plant3", u"_Plant31", 0},
      {"NoKeys", u"", u"", 0},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    form.treItems.Nodes().Add(Variant(), tvwLast, c.existing, u"first");
    EXPECT_EQ(ErrorOf([&] { form.treItems.Nodes().Add(Variant(), tvwLast, c.added, u"second"); }), c.error) << c.name;
    EXPECT_EQ(form.treItems.Nodes().Count(), c.error == 0 ? 2 : 1) << c.name;
  }
}

TEST(TreeNodes, AKeyIsFreeAgainOnceItsNodeIsRemoved) {
  EventLogForm form;
  BuildTree(form.treItems, 2, 3);
  form.treItems.Nodes().Remove(DsKey(1));
  for (int j = 1; j <= 3; ++j) EXPECT_EQ(form.treItems.Nodes().Find(DsvKey(1, j)), nullptr);
  form.treItems.Nodes().Add(Variant(), tvwLast, DsvKey(1, 2), u"again");
  EXPECT_EQ(form.treItems.Nodes().Item(u"1:2")->Text(), u"again");
  EXPECT_EQ(form.treItems.Nodes().Item(u"2:3")->Text(), u"Var3");
}

TEST(TreeNodes, RelationshipsPlaceTheNewNode) {
  const struct {
    const char* name;
    Variant relative;
    int32_t relationship;
    std::vector<std::string> topLevel;
    std::vector<std::string> childrenOfB;
  } cases[] = {
      {"NoRelativeLast", Variant(), tvwLast, {"A", "B", "C", "N"}, {"b1", "b2"}},
      {"NoRelativeFirst", Variant(), tvwFirst, {"N", "A", "B", "C"}, {"b1", "b2"}},
      {"Child", Variant(u"B"), tvwChild, {"A", "B", "C"}, {"b1", "b2", "N"}},
      {"ChildByIndex", Variant(int32_t{2}), tvwChild, {"A", "B", "C"}, {"b1", "b2", "N"}},
      {"NextOfTopLevel", Variant(u"A"), tvwNext, {"A", "N", "B", "C"}, {"b1", "b2"}},
      {"PreviousOfTopLevel", Variant(u"B"), tvwPrevious, {"A", "N", "B", "C"}, {"b1", "b2"}},
      {"FirstSiblingOfChild", Variant(u"b2"), tvwFirst, {"A", "B", "C"}, {"N", "b1", "b2"}},
      {"LastSiblingOfChild", Variant(u"b1"), tvwLast, {"A", "B", "C"}, {"b1", "b2", "N"}},
      {"NextOfChild", Variant(u"b1"), tvwNext, {"A", "B", "C"}, {"b1", "N", "b2"}},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    Nodes& nodes = form.treItems.Nodes();
    for (const char16_t* key : {u"A", u"B", u"C"}) nodes.Add(Variant(), tvwLast, key, key);
    for (const char16_t* key : {u"b1", u"b2"}) nodes.Add(u"B", tvwChild, key, key);
    const NodeRef added = nodes.Add(c.relative, c.relationship, u"N", u"N");
    EXPECT_EQ(added->Index(), 6) << c.name;
    EXPECT_EQ(ChildTexts(form.treItems, nullptr), c.topLevel) << c.name;
    EXPECT_EQ(ChildTexts(form.treItems, nodes.Item(u"B")), c.childrenOfB) << c.name;
  }
}

TEST(TreeNodes, TheRelativeIsAKeyAnIndexANodeOrAVariant) {
  const struct {
    const char* name;
    std::function<NodeRef(TreeView&)> add;
  } cases[] = {
      {"KeyText", [](TreeView& t) { return t.Nodes().Add(u"_Ds2", tvwChild, u"new", u"n"); }},
      {"KeyString", [](TreeView& t) { return t.Nodes().Add(String(u"_DS2"), tvwChild, u"new", u"n"); }},
      {"Index", [](TreeView& t) { return t.Nodes().Add(2, tvwChild, u"new", u"n"); }},
      {"Node", [](TreeView& t) { return t.Nodes().Add(t.Nodes().Item(2), tvwChild, u"new", u"n"); }},
      {"VariantKey", [](TreeView& t) { return t.Nodes().Add(Variant(u"_Ds2"), tvwChild, u"new", u"n"); }},
      {"VariantDouble", [](TreeView& t) { return t.Nodes().Add(Variant(2.0), tvwChild, u"new", u"n"); }},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    BuildTree(form.treItems, 3, 1);
    const NodeRef added = c.add(form.treItems);
    ASSERT_TRUE(added->Parent()) << c.name;
    EXPECT_EQ(added->Parent()->Key(), DsKey(2)) << c.name;
    EXPECT_EQ(added->Parent()->LastSibling()->Key(), DsKey(3)) << c.name;
  }
}

TEST(TreeNodes, BadArgumentsRaiseTheControlsErrors) {
  const struct {
    const char* name;
    std::function<void(TreeView&)> call;
    int32_t error;
  } cases[] = {
      {"UnknownRelativeKey", [](TreeView& t) { t.Nodes().Add(u"_Missing1", tvwChild, u"k", u"t"); },
       vd::automation::err::kTreeElementNotFound},
      {"RelativeIndexTooHigh", [](TreeView& t) { t.Nodes().Add(int32_t{9}, tvwChild, u"k", u"t"); },
       vd::automation::err::kTreeIndexOutOfBounds},
      {"UnknownRelationship", [](TreeView& t) { t.Nodes().Add(u"_Ds1", 7, u"k", u"t"); },
       vd::automation::err::kInvalidProcedureCall},
      {"ItemZero", [](TreeView& t) { (void)t.Nodes().Item(0); }, vd::automation::err::kTreeIndexOutOfBounds},
      {"ItemPastCount", [](TreeView& t) { (void)t.Nodes().Item(t.Nodes().Count() + 1); },
       vd::automation::err::kTreeIndexOutOfBounds},
      {"ItemMissingKey", [](TreeView& t) { (void)t.Nodes().Item(u"nope"); }, vd::automation::err::kTreeElementNotFound},
      {"RemoveMissingKey", [](TreeView& t) { t.Nodes().Remove(u"nope"); }, vd::automation::err::kTreeElementNotFound},
      {"ImageOutsideTheList", [](TreeView& t) { t.Nodes().Add(Variant(), tvwLast, u"k", u"t", 4); },
       vd::automation::err::kTreeIndexOutOfBounds},
      {"RelativeOfAnotherKind", [](TreeView& t) { t.Nodes().Add(Variant(true), tvwChild, u"k", u"t"); },
       vd::automation::err::kTypeMismatch},
      {"RelativeNodeOfAnotherTree",
       [](TreeView& t) {
         EventLogForm other;
         t.Nodes().Add(other.treItems.Nodes().Add(Variant(), tvwLast, u"f", u"f"), tvwNext, u"k", u"t");
       },
       vd::automation::err::kTreeElementNotFound},
      {"ImageWithoutAList",
       [](TreeView& t) {
         t.SetImageList(nullptr);
         t.Nodes().Add(Variant(), tvwLast, u"k", u"t", 1);
       },
       err::kImageListNotInitialized},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    form.treItems.SetImageList(&form.imgNodes);
    BuildTree(form.treItems, 2, 1);
    const int32_t before = form.treItems.Nodes().Count();
    EXPECT_EQ(ErrorOf([&] { c.call(form.treItems); }), c.error) << c.name;
    EXPECT_EQ(form.treItems.Nodes().Count(), before) << c.name;
  }
}

TEST(TreeNodes, ClearEmptiesTheTreeAndDetachesHeldNodes) {
  EventLogForm form;
  BuildTree(form.treItems, 3, 2);
  const NodeRef held = form.treItems.Nodes().Item(u"2:1");
  held->SetSelected(true);
  form.treItems.Nodes().Clear();
  EXPECT_EQ(form.treItems.Nodes().Count(), 0);
  EXPECT_EQ(form.treItems.SelectedItem(), nullptr);
  EXPECT_TRUE(held->Removed());
  BuildTree(form.treItems, 1, 1);
  EXPECT_EQ(KeysByIndex(form.treItems), (Keys{"_Ds1", "1:1"}));
}

}  // namespace
}  // namespace vd::forms::test
