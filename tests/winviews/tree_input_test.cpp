// The user's mouse and keys on the tree's window reach the tree's entry
// points: Collapse, MouseMove (the node under it: the form's HitTest) and its
// pointer (NodeClick, DblClick and arrow keys: the robot's target run).
#include <string>
#include <vector>

#include "dialog_test.h"
#include "views/control_lookup.h"

namespace vd::win32::views::testing {
namespace {

using Log = std::vector<std::string>;
const std::vector<std::string> kTreeEvents{"treItems.NodeClick", "treItems.Click", "treItems.DblClick",
                                           "treItems.Collapse", "treItems.Expand"};

TEST_F(DialogTest, MinusSignCollapsesTheNodeAndTakesTheSelectionFromBelowIt) {
  POINT minus{};
  script.Then("select a variable", [&] { Node(SampleForm::VarKey(2, 3))->SetSelected(true); })
      .Then("click the minus sign",
            [&] {
              ASSERT_TRUE(TreeButtonPoint(Tree(), Item(SampleForm::DsKey(2)), minus));
              PostMouseClick(Tree(), minus);
            })
      .Then("check", [&] {
        EXPECT_FALSE(Node(SampleForm::DsKey(2))->Expanded());
        EXPECT_EQ(TreeItemState(Tree(), Item(SampleForm::DsKey(2))) & TVIS_EXPANDED, 0u);
        EXPECT_EQ(form.treItems.SelectedItem()->Key(), SampleForm::DsKey(2));
        EXPECT_EQ(TreeSelection(Tree()), Item(SampleForm::DsKey(2)));
        EXPECT_EQ(form.Events(kTreeEvents), Log{"treItems.Collapse:_Source2"});
        EXPECT_EQ(TreeItemImage(Tree(), Item(SampleForm::DsKey(2))), 1);  // the closed picture again
      });
  script.Run();
}

TEST_F(DialogTest, LeftArrowOnAnExpandedNodeCollapsesIt) {
  script
      .Then("select and press",
            [&] {
              Node(SampleForm::DsKey(1))->SetSelected(true);
              SetFocus(Tree());
              PostKey(Tree(), VK_LEFT);
            })
      .Then("check", [&] {
        EXPECT_FALSE(Node(SampleForm::DsKey(1))->Expanded());
        EXPECT_EQ(form.Events(kTreeEvents), Log{"treItems.Collapse:_Source1"});
      });
  script.Run();
}

TEST_F(DialogTest, MouseMoveNamesTheNodeUnderItAndShowsTheTreesPointer) {
  const HCURSOR noDrop = LoadCursorW(nullptr, IDC_NO);
  script.Then("move over a data source", [&] { PostMouseMove(Tree(), NodePoint(SampleForm::DsKey(1))); })
      .Then("check the pointer",
            [&] {
              EXPECT_EQ(form.Events({"treItems.MouseMove"}), Log{"treItems.MouseMove:0:0:_Source1"});
              EXPECT_EQ(form.treItems.MousePointer(), vd::forms::vbNoDrop);
              SendMessageW(Tree(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Tree()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
              EXPECT_EQ(GetCursor(), noDrop);
            })
      .Then("move over a variable", [&] { PostMouseMove(Tree(), NodePoint(SampleForm::VarKey(1, 1))); })
      .Then("check again",
            [&] {
              EXPECT_EQ(form.Events({"treItems.MouseMove"}).back(), "treItems.MouseMove:0:0:1:1");
              EXPECT_EQ(form.treItems.MousePointer(), vd::forms::vbDefault);
              SendMessageW(Tree(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Tree()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
              EXPECT_NE(GetCursor(), noDrop);
            })
      .Then("move where there is no node",
            [&] {
              RECT client{};
              GetClientRect(Tree(), &client);
              PostMouseMove(Tree(), {client.right - 5, client.bottom - 5});
            })
      .Then("check nothing", [&] { EXPECT_EQ(form.Events({"treItems.MouseMove"}).back(), "treItems.MouseMove:0:0:"); });
  script.Run();
}

}  // namespace
}  // namespace vd::win32::views::testing
