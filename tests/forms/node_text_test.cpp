// The text a new node gets: copied from what the caller keeps, or taken over
// from a String the caller hands over; either way the node shows that text
// and a sorted parent places it by that text. A node that Add refuses leaves
// no trace.
#include <gtest/gtest.h>

#include <functional>

#include "tree_fixture.h"
#include "vd/automation/error.h"

namespace vd::forms::test {
namespace {

using vd::automation::AutomationError;
using vd::automation::StringView;
using Texts = std::vector<std::string>;

int32_t ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const AutomationError& e) {
    return e.Number();
  }
  return 0;
}

enum class Handing { kLiteral, kKept, kHandedOver, kView };

// Adds a child of parentKey with the text handed in the given way; answers
// what the caller holds afterwards (the kept String must be untouched).
String AddChild(TreeView& tree, const String& parentKey, const String& key, const String& text, Handing how) {
  String callers = text;
  switch (how) {
    case Handing::kLiteral:
      tree.Nodes().Add(parentKey, tvwChild, key, callers.c_str());
      break;
    case Handing::kKept:
      tree.Nodes().Add(parentKey, tvwChild, key, callers);
      break;
    case Handing::kHandedOver:
      tree.Nodes().Add(parentKey, tvwChild, key, std::move(callers));
      return text;  // the caller gave it away
    case Handing::kView:
      tree.Nodes().Add(parentKey, tvwChild, key, StringView(callers));
      break;
  }
  return callers;
}

struct SortedCase {
  const char* name;
  Handing how;
};

class SortedParent : public ::testing::TestWithParam<SortedCase> {};

TEST_P(SortedParent, PlacesEachNewChildByItsText) {
  EventLogForm form;
  TreeView& tree = form.treItems;
  tree.Nodes().Add(Variant(), tvwLast, u"root", u"Root");
  tree.Nodes().Item(u"root")->SetSorted(true);
  const std::vector<String> texts = {u"PT0001_03", u"LT0001_01", u"XV0001_05", u"FT0001_02", u"AT0001_08"};
  int k = 0;
  for (const String& text : texts) {
    const String held = AddChild(tree, u"root", u"k" + vd::automation::ToDecimal(++k), text, GetParam().how);
    EXPECT_EQ(held, text);
  }
  EXPECT_EQ(ChildTexts(tree, tree.Nodes().Item(u"root")),
            (Texts{"AT0001_08", "FT0001_02", "LT0001_01", "PT0001_03", "XV0001_05"}));
  // Collection order is the order of adding, whatever the sorted places.
  EXPECT_EQ(KeysByIndex(tree), (std::vector<std::string>{"root", "k1", "k2", "k3", "k4", "k5"}));
  EXPECT_EQ(tree.Nodes().Item(u"k3")->Text(), u"XV0001_05");
}

INSTANTIATE_TEST_SUITE_P(NodeText, SortedParent,
                         ::testing::Values(SortedCase{"literal", Handing::kLiteral}, SortedCase{"kept", Handing::kKept},
                                           SortedCase{"handed_over", Handing::kHandedOver},
                                           SortedCase{"view", Handing::kView}),
                         [](const auto& param) { return std::string(param.param.name); });

TEST(NodeText, ARefusedNodeLeavesTheTreeAsItWas) {
  EventLogForm form;
  TreeView& tree = form.treItems;
  BuildTree(tree, 2, 3);
  const auto keysBefore = KeysByIndex(tree);
  const auto textsBefore = ChildTexts(tree, tree.Nodes().Item(DsKey(2)));

  String duplicate = u"Duplicate";
  EXPECT_EQ(ErrorOf([&] { tree.Nodes().Add(DsKey(2), tvwChild, DsvKey(1, 2), std::move(duplicate)); }), 35602);
  EXPECT_EQ(ErrorOf([&] { tree.Nodes().Add(DsKey(2), tvwChild, u"fresh", String(u"No such image"), 9999); }), 35600);
  EXPECT_EQ(ErrorOf([&] { tree.Nodes().Add(u"nowhere", tvwChild, u"fresh", String(u"No parent")); }), 35601);

  EXPECT_EQ(KeysByIndex(tree), keysBefore);
  EXPECT_EQ(ChildTexts(tree, tree.Nodes().Item(DsKey(2))), textsBefore);
  EXPECT_EQ(tree.Nodes().Item(DsvKey(1, 2))->Text(), u"Var2");
  EXPECT_EQ(tree.Nodes().Find(u"fresh"), nullptr);
  // The refused key is free for the next node, which comes last.
  const NodeRef added = tree.Nodes().Add(DsKey(2), tvwChild, u"fresh", String(u"Taken"));
  EXPECT_EQ(added->Index(), static_cast<int32_t>(keysBefore.size()) + 1);
  EXPECT_EQ(tree.Nodes().Item(u"FRESH")->Text(), u"Taken");
  EXPECT_EQ(ChildTexts(tree, tree.Nodes().Item(DsKey(2))), (Texts{"Var1", "Var2", "Var3", "Taken"}));
}

}  // namespace
}  // namespace vd::forms::test
