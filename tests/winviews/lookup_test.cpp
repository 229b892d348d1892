// What a robot in another process uses to find the controls by name: window
// ids from creation order, the name property, and the tree's answers.
#include "dialog_test.h"
#include "vd/automation/text.h"
#include "views/control_lookup.h"
#include "views/wide_text.h"

namespace vd::win32::views::testing {
namespace {

TEST_F(DialogTest, EveryWindowIsNamedAndNumberedByCreationOrder) {
  script.Then("check", [&] {
    EXPECT_EQ(FindFormWindow(u"FRMSAMPLE"), script.Dialog());
    EXPECT_EQ(Narrow(PublishedName(script.Dialog())), "frmSample");
    const auto& all = form.AllControls();
    for (size_t i = 0; i < all.size(); ++i) {
      const HWND window = Win(*all[i]);
      if (window == nullptr) continue;  // the image list
      SCOPED_TRACE(Narrow(all[i]->Name()));
      EXPECT_EQ(GetDlgCtrlID(window), kFirstControlId + static_cast<int>(i));
      EXPECT_EQ(PublishedName(window), all[i]->Name());
      EXPECT_EQ(FindControlWindow(script.Dialog(), vd::automation::UCase(all[i]->Name())), window);
    }
    EXPECT_EQ(FindControlWindow(script.Dialog(), u"noSuchControl"), nullptr);
  });
  script.Run();
  EXPECT_EQ(FindFormWindow(u"frmSample"), nullptr) << "gone with the dialog";
}

TEST_F(DialogTest, TreeAnswersNodesByKeyTheirPointsAndTheSelection) {
  script
      .Then("find and click",
            [&] {
              EXPECT_EQ(FindTreeNode(Tree(), u"2:7"), Item(u"2:7"));
              EXPECT_EQ(FindTreeNode(Tree(), u"no such key"), nullptr);
              EXPECT_EQ(Narrow(SelectedNodeKey(Tree())), "");
              POINT hidden{};
              EXPECT_FALSE(NodeClickPoint(Tree(), FindTreeNode(Tree(), u"3:1"), hidden))
                  << "its data source is collapsed";
              // Far down the list: the answer scrolls it into view.
              POINT at{};
              ASSERT_TRUE(NodeClickPoint(Tree(), FindTreeNode(Tree(), u"2:30"), at));
              RECT client{};
              GetClientRect(Tree(), &client);
              EXPECT_TRUE(PtInRect(&client, at));
              PostMouseClick(Tree(), at);
            })
      .Then("check", [&] {
        EXPECT_EQ(Narrow(SelectedNodeKey(Tree())), "2:30");
        EXPECT_EQ(form.Count("treItems.NodeClick:2:30"), 1u);
      });
  script.Run();
}

}  // namespace
}  // namespace vd::win32::views::testing
