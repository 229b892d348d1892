// The tree's window follows the form's nodes: order, texts, images,
// expansion, selection; rebuilds run with redraw off.
#include <string>
#include <vector>

#include "dialog_test.h"
#include "vd/automation/string.h"

namespace vd::win32::views::testing {
namespace {

using vd::forms::NodeRef;

// The texts of the items under parent (nullptr: top level), in window order.
std::vector<std::string> ItemTexts(HWND tree, HTREEITEM parent) {
  std::vector<std::string> texts;
  for (HTREEITEM item = TreeChild(tree, parent); item != nullptr; item = TreeNext(tree, item))
    texts.push_back(Narrow(TreeItemText(tree, item)));
  return texts;
}

// The texts of the nodes under parent (nullptr: top level), in the form's order.
std::vector<std::string> NodeTexts(const SampleForm& form, const NodeRef& parent) {
  std::vector<std::string> texts;
  NodeRef node = parent ? parent->Child() : form.treItems.Nodes().Item(1)->FirstSibling();
  for (; node; node = node->Next()) texts.push_back(Narrow(node->Text()));
  return texts;
}

TEST_F(DialogTest, TreeShowsEveryNodeInTheFormsOrder) {
  script.Then("check", [&] {
    EXPECT_EQ(SendMessageW(Tree(), TVM_GETCOUNT, 0, 0), form.treItems.Nodes().Count());
    EXPECT_EQ(ItemTexts(Tree(), nullptr), NodeTexts(form, nullptr));
    for (int i = 1; i <= SampleForm::kDataSources; ++i)
      EXPECT_EQ(ItemTexts(Tree(), Item(SampleForm::DsKey(i))), NodeTexts(form, Node(SampleForm::DsKey(i)))) << i;
  });
  script.Run();
}

TEST_F(DialogTest, DataSourcesExpandedBeforeTheirVariablesCameShowExpanded) {
  script.Then("check", [&] {
    for (int i = 1; i <= SampleForm::kDataSources; ++i) {
      const bool expanded = (TreeItemState(Tree(), Item(SampleForm::DsKey(i))) & TVIS_EXPANDED) != 0;
      EXPECT_EQ(expanded, Node(SampleForm::DsKey(i))->Expanded()) << i;
    }
  });
  script.Run();
}

TEST_F(DialogTest, ImagesFollowTheNodesAndTheirExpansion) {
  script.Then("collapse source 1", [&] { Node(SampleForm::DsKey(1))->SetExpanded(false); }).Then("check", [&] {
    EXPECT_EQ(TreeItemImage(Tree(), Item(SampleForm::DsKey(1))), 1);  // image 2, closed
    EXPECT_EQ(TreeItemImage(Tree(), Item(SampleForm::DsKey(2))), 2);  // expanded image 3
    EXPECT_EQ(TreeItemImage(Tree(), Item(SampleForm::VarKey(2, 1))), 0);
    Node(SampleForm::VarKey(2, 1))->SetImage(2);
    EXPECT_EQ(TreeItemImage(Tree(), Item(SampleForm::VarKey(2, 1))), 1);
    EXPECT_NE(SendMessageW(Tree(), TVM_GETIMAGELIST, TVSIL_NORMAL, 0), 0);
  });
  script.Run();
}

TEST_F(DialogTest, NodesAddedRemovedAndRenamedFromCodeShowAtOnce) {
  script.Then("change and check", [&] {
    const String ds3 = SampleForm::DsKey(3);
    form.treItems.Nodes().Add(ds3, vd::forms::tvwChild, u"new", u"Added last", 1);
    form.treItems.Nodes().Add(SampleForm::VarKey(3, 1), vd::forms::tvwFirst, u"first", u"Added first", 1);
    form.treItems.Nodes().Add(SampleForm::VarKey(3, 5), vd::forms::tvwNext, u"middle", u"Added middle", 1);
    form.treItems.Nodes().Remove(SampleForm::DsKey(4));
    Node(SampleForm::VarKey(3, 2))->SetText(u"Renamed");
    EXPECT_EQ(SendMessageW(Tree(), TVM_GETCOUNT, 0, 0), form.treItems.Nodes().Count());
    EXPECT_EQ(ItemTexts(Tree(), Item(ds3)), NodeTexts(form, Node(ds3)));
    EXPECT_EQ(ItemTexts(Tree(), nullptr), NodeTexts(form, nullptr));
    EXPECT_EQ(Narrow(TreeItemText(Tree(), Item(SampleForm::VarKey(3, 2)))), "Renamed");
  });
  script.Run();
}

TEST_F(DialogTest, SortedChildrenTakeTheFormsOrder) {
  script.Then("sort and check", [&] {
    const NodeRef ds1 = Node(SampleForm::DsKey(1));
    Node(SampleForm::VarKey(1, 3))->SetText(u"aardvark");
    Node(SampleForm::VarKey(1, 7))->SetText(u"Zebra");
    ds1->SetSorted(true);
    EXPECT_EQ(ItemTexts(Tree(), Item(SampleForm::DsKey(1))), NodeTexts(form, ds1));
    EXPECT_EQ(ItemTexts(Tree(), Item(SampleForm::DsKey(1))).front(), "aardvark");
    Node(SampleForm::VarKey(1, 3))->SetText(u"zz top");  // renamed under a sorted parent: moves
    EXPECT_EQ(ItemTexts(Tree(), Item(SampleForm::DsKey(1))), NodeTexts(form, ds1));
    EXPECT_EQ(ItemTexts(Tree(), Item(SampleForm::DsKey(1))).back(), "zz top");
  });
  script.Run();
}

TEST_F(DialogTest, SelectionFromCodeShowsAndRaisesNoNodeClick) {
  script.Then("select", [&] {
    Node(SampleForm::VarKey(5, 4))->SetSelected(true);  // expands source 5
    EXPECT_EQ(TreeSelection(Tree()), Item(SampleForm::VarKey(5, 4)));
    EXPECT_NE(TreeItemState(Tree(), Item(SampleForm::DsKey(5))) & TVIS_EXPANDED, 0u);
    form.treItems.SetSelectedItem(nullptr);
    EXPECT_EQ(TreeSelection(Tree()), nullptr);
    EXPECT_TRUE(form.Events({"treItems.NodeClick", "treItems.Click"}).empty());
  });
  script.Run();
}

TEST_F(DialogTest, RemovingTheSelectedNodeSelectsWhatTheFormSelects) {
  script.Then("remove", [&] {
    Node(SampleForm::VarKey(1, 30))->SetSelected(true);
    form.treItems.Nodes().Remove(SampleForm::VarKey(1, 30));
    ASSERT_TRUE(form.treItems.SelectedItem());
    EXPECT_EQ(TreeSelection(Tree()), Item(form.treItems.SelectedItem()->Key()));
    form.treItems.Nodes().Remove(SampleForm::DsKey(1));
    EXPECT_EQ(TreeSelection(Tree()), Item(form.treItems.SelectedItem()->Key()));
    EXPECT_TRUE(form.Events({"treItems.NodeClick"}).empty());
  });
  script.Run();
}

TEST_F(DialogTest, RebuildRunsWithRedrawOffUntilTheHandlerReturns) {
  bool suspendedInside = false;
  script.Then("rebuild", [&] {
    form.BuildTree(20, 40);
    suspendedInside = script.View().TreeOf(form.treItems)->RedrawSuspended();
  });
  script.Then("check", [&] {
    EXPECT_TRUE(suspendedInside);
    EXPECT_FALSE(script.View().TreeOf(form.treItems)->RedrawSuspended());
    EXPECT_EQ(SendMessageW(Tree(), TVM_GETCOUNT, 0, 0), 20 + 20 * 40);
    EXPECT_EQ(script.View().TreeOf(form.treItems)->ItemCount(), static_cast<size_t>(20 + 20 * 40));
  });
  script.Run();
}

}  // namespace
}  // namespace vd::win32::views::testing
