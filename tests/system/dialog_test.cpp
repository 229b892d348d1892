// The dialog: its modes and their layouts, load and unload, the tree built
// from a display, and what the user does to the tree.
#include <algorithm>
#include <vector>

#include "browser_harness.h"

namespace vd::system_test {
namespace {

struct ModeCase {
  int32_t mode;
  bool okAndEdit, closeAlone;
  const char16_t* closeCaption;
  int dsButtons;  // 1 enabled, 0 disabled, -1 left as they were
  bool expanded;
};

TEST(DialogMode, LaysOutButtonsAndPanelAsItsRowSays) {
  const ModeCase cases[] = {{kEdit, false, true, u"&Close", 1, true},
                            {kEditInSelect, true, false, u"&Close", 1, true},
                            {kSelectPanelOpen, true, false, u"&Close", 1, true},
                            {kSelect, true, false, u"&Close", -1, false},
                            {kPickAny, false, true, u"Stop", 0, false}};
  BrowserHarness h;
  h.dlg.InitDBForEdit(h.plant);
  for (const ModeCase& c : cases) {
    for (const int32_t from : {kPickAny, kEdit}) {  // command buttons disabled, then enabled
      h.inside.SetDialogMode(from);
      const bool before = h.dlg.cmdAddDs.Enabled();
      h.inside.SetDialogMode(c.mode);
      SCOPED_TRACE("mode " + std::to_string(c.mode) + " from " + std::to_string(from));
      EXPECT_EQ(h.inside.PreviousMode(), from);
      EXPECT_EQ(h.dlg.dbOK.Visible(), c.okAndEdit);
      EXPECT_EQ(h.dlg.dbEdit.Visible(), c.okAndEdit);
      EXPECT_EQ(h.dlg.dbClose.Left(), c.closeAlone ? h.inside.CloseLeftAlone() : h.inside.CloseLeftWithButtons());
      EXPECT_EQ(h.dlg.dbClose.Caption(), c.closeCaption);
      for (const forms::Control* b :
           std::vector<const forms::Control*>{&h.dlg.cmdAddDs, &h.dlg.cboDsAdd, &h.dlg.cmdAddDsv, &h.dlg.cmdDelete,
                                              &h.dlg.cmdMoveUp, &h.dlg.cmdMoveDown})
        EXPECT_EQ(b->Enabled(), c.dsButtons < 0 ? before : c.dsButtons == 1) << ToUtf8(b->Name());
      EXPECT_EQ(h.dlg.Width(), c.expanded ? h.inside.ExpandedWidth() : h.inside.CollapsedWidth());
      EXPECT_EQ(h.dlg.dbEdit.Caption(), c.expanded ? u"<< &Edit" : u"&Edit >>");
    }
  }
  // A mode outside the table is stored and changes nothing else.
  h.inside.SetDialogMode(kSelect);
  const float width = h.dlg.Width();
  for (const int32_t odd : {5, -1}) {
    h.inside.SetDialogMode(odd);
    EXPECT_EQ(h.inside.Mode(), odd);
    EXPECT_TRUE(h.dlg.dbOK.Visible() && h.dlg.dbEdit.Visible());
    EXPECT_EQ(h.dlg.Width(), width);
    EXPECT_EQ(h.dlg.dbClose.Caption(), u"&Close");
  }
}

TEST(DialogMode, StopInModeFourOnlyRestoresTheModeBefore) {
  BrowserHarness h;
  h.user.Check([&] { h.inside.SetDialogMode(kPickAny); })
      .Click(h.dlg.dbClose)
      .Check([&] {
        EXPECT_EQ(h.inside.Mode(), kEdit);
        EXPECT_TRUE(h.dlg.Visible());
        EXPECT_TRUE(h.dlg.cmdAddDs.Enabled());
        EXPECT_EQ(h.dlg.Width(), h.inside.ExpandedWidth());
      })
      .Click(h.dlg.dbClose);
  h.desk.EditDataSources(h.plant);
}

TEST(DataBrowserLifecycle, LoadShowsTheDataSourceFrameUnloadReleasesTheRun) {
  forms::testing::ScriptedUiServices ui;
  platform::testing::FakeRegistry registry;
  platform::testing::MemoryFileService files;
  platform::Services services{ui, registry, files};
  browser::frmDataBrowser dlg(services);
  const browser::DataBrowserInspector inside{dlg};
  std::weak_ptr<sample::MemoryDisplay> weak;
  {
    auto display = DisplayFromJson(kPlantJson);
    weak = display;
    dlg.InitDBForSelect(display, 1, 501, 0, 0);
  }
  EXPECT_TRUE(dlg.fraDs.Visible());
  for (const forms::Control* c : std::vector<const forms::Control*>{
           &dlg.fraDsv, &dlg.fraTelvaneDsSettings, &dlg.fraTelvaneDsvSettings, &dlg.ProgressBar1, &dlg.lblPercent})
    EXPECT_FALSE(c->Visible()) << ToUtf8(c->Name());
  EXPECT_EQ(dlg.treDataSources.ImageList(), &dlg.imgDsList);
  EXPECT_EQ(dlg.cboDsAdd.List(dlg.cboDsAdd.ListIndex()), u"File");  // the built-in kinds without a kinds file
  EXPECT_EQ(dlg.cboDsAdd.ItemData(2), toolkit::kind::kConstant);

  ASSERT_TRUE(dlg.treDataSources.UserSelectNode(dlg.treDataSources.Nodes().Item(u"1:1")));
  ASSERT_NE(dlg.GetSelectedDsv(), nullptr);
  dlg.Unload();
  EXPECT_EQ(dlg.GetSelectedDsv(), nullptr);
  EXPECT_TRUE(weak.expired());
  EXPECT_FALSE(inside.HasCustomDsClasses());

  dlg.MakeTopmost();
  EXPECT_EQ(ui.BroughtToFront(), std::vector<String>{u"frmDataBrowser"});
}

using automation::Variant;

struct NodeCase {
  const char16_t* key;
  int32_t index;
  const char16_t* text;
  int32_t image, expandedImage;
  const char16_t* parent;
  Variant tag;
};

TEST(TreeNodes, FollowTheKeyIndexTextImageAndTagScheme) {
  BrowserHarness h;
  h.dlg.InitDBForEdit(h.plant);
  const std::vector<NodeCase> cases = {{u"_Empty2", 2, u"Empty", 2, 3, u"", Variant()},
                                       {u"_Plant3", 3, u"Plant", 2, 3, u"", Variant()},
                                       {u"1:3", 6, u"Label", 1, 0, u"_Plant1", Variant(u"3")},
                                       {u"3:1", 7, u"Limit", 1, 0, u"_Plant3", Variant(u"1")}};
  ASSERT_EQ(h.dlg.treDataSources.Nodes().Count(), 7);
  EXPECT_EQ(h.inside.DsNodeCount(), 3);
  for (const NodeCase& c : cases) {
    const forms::NodeRef node = h.Node(c.key);
    SCOPED_TRACE(ToUtf8(c.key));
    EXPECT_EQ(node->Index(), c.index);
    EXPECT_EQ(node->Text(), c.text);
    EXPECT_EQ(node->Image(), c.image);
    EXPECT_EQ(node->ExpandedImage(), c.expandedImage);
    EXPECT_EQ(node->Parent() ? node->Parent()->Key() : String(), c.parent);
    EXPECT_EQ(node->Tag(), c.tag);
    EXPECT_EQ(node->Expanded(), c.index <= 3);  // expand all is ticked when the form loads
  }
  // The current data source is the selected node's, or its parent's.
  for (const auto& [key, ds] : std::vector<std::pair<String, int16_t>>{{u"_Empty2", 2}, {u"1:3", 1}, {u"3:1", 3}}) {
    h.Node(key)->SetSelected(true);
    EXPECT_EQ(h.inside.GetCurrentDsIndex(), ds);
  }

  h.dlg.chkExpandAll.SetValue(forms::vbUnchecked);
  h.dlg.InitDBForEdit(h.plant);
  EXPECT_FALSE(h.Node(u"_Plant3")->Expanded());
}

TEST(TreeNodes, KeysThatCollideRaiseTheTreesDuplicateKeyError) {
  // "A1" at position 1 and "A" at position 11 both give the key _A11.
  std::string json = R"({ "dataSources": [ { "name": "A1", "kind": "memory" })";
  for (int i = 2; i <= 10; ++i) json += R"(, { "name": "F", "kind": "memory" })";
  BrowserHarness h;
  auto display = DisplayFromJson(json + R"(, { "name": "A", "kind": "memory" } ] })");
  EXPECT_EQ(ErrorOf([&] { h.dlg.InitDBForEdit(display); }), automation::err::kTreeKeyNotUnique);
}

// --- The tree's events ---

class TreeEvents : public ::testing::Test {
 protected:
  void SetUp() override { h.dlg.InitDBForSelect(h.plant, 1, 501, 0, 0); }
  BrowserHarness h;
};

TEST_F(TreeEvents, ClicksFillThePanelOfTheNodeKindAndNameItInTheToolTips) {
  const std::tuple<const char16_t*, bool, const char16_t*> cases[] = {
      {u"_Empty2", false, u"Empty"}, {u"1:3", false, u"Label"}, {u"3:1", true, u"Limit"}};
  for (const auto& [key, ok, name] : cases) {
    ASSERT_TRUE(h.Click(key));
    const bool variable = key[0] != u'_';
    EXPECT_EQ(h.dlg.fraDsv.Visible(), variable);
    EXPECT_EQ(h.dlg.fraDs.Visible(), !variable);
    EXPECT_EQ(h.dlg.dbOK.Enabled(), ok) << ToUtf8(key);
    EXPECT_EQ(h.dlg.cmdDelete.ToolTipText(), u"Delete '" + String(name) + u"' ");
    EXPECT_EQ(h.dlg.cmdMoveUp.ToolTipText(), u"Move '" + String(name) + u"' up");
    EXPECT_EQ(h.dlg.cmdMoveDown.ToolTipText(), u"Move '" + String(name) + u"' down");
  }
  EXPECT_EQ(h.dlg.GetSelectedDsv(), Variable(h.plant, 3, 1));
}

TEST_F(TreeEvents, CollapsingTheSelectedNodeActsAsAClickAnotherNodeChangesNothing) {
  ASSERT_TRUE(h.Click(u"1:1"));
  ASSERT_TRUE(h.dlg.treDataSources.UserCollapse(h.Node(u"_Plant3")));
  EXPECT_TRUE(h.dlg.dbOK.Enabled());
  ASSERT_TRUE(h.dlg.treDataSources.UserCollapse(h.Node(u"_Plant1")));  // takes the selection from 1:1
  EXPECT_EQ(h.Selected(), u"_Plant1");
  EXPECT_TRUE(h.dlg.fraDs.Visible());
  EXPECT_FALSE(h.dlg.dbOK.Enabled());
}

TEST_F(TreeEvents, DoubleClickOnAFittingVariableEndsTheRunAsOkDoes) {
  h.user
      .DoubleClickNode(h.dlg.treDataSources, u"1:3")  // Text: refused
      .DoubleClickNode(h.dlg.treDataSources, u"_Plant1")
      .DoubleClickNode(h.dlg.treDataSources, u"")
      .Check([&] { EXPECT_TRUE(h.dlg.Visible()); })
      .DoubleClickNode(h.dlg.treDataSources, u"3:1");
  EXPECT_EQ(h.desk.SelectDataVar(h.plant, 1, 501, 0, 0), Variable(h.plant, 3, 1));
}

TEST_F(TreeEvents, InModeFourOnlyAVariableEndsThePickAndNothingIsFilled) {
  h.inside.SetDialogMode(kPickAny);
  ASSERT_TRUE(h.Click(u"_Empty2"));
  h.dlg.treDataSources.onDblClick();
  EXPECT_EQ(h.inside.Mode(), kPickAny);
  ASSERT_TRUE(h.Click(u"1:1"));
  EXPECT_EQ(h.inside.Mode(), kSelect);
  h.inside.SetDialogMode(kPickAny);
  h.dlg.treDataSources.onDblClick();
  EXPECT_EQ(h.inside.Mode(), kSelect);
  EXPECT_FALSE(h.dlg.fraDsv.Visible());
  EXPECT_EQ(h.dlg.GetSelectedDsv(), nullptr);
  EXPECT_EQ(h.dlg.cmdDelete.ToolTipText(), u"Delete 'Plant' ");
}

TEST_F(TreeEvents, MousePointerForbidsDataSourcesOnlyWhereAVariableIsPicked) {
  const std::tuple<int32_t, const char16_t*, int16_t> cases[] = {{kSelectPanelOpen, u"_Plant1", forms::vbDefault},
                                                                 {kSelect, u"_Empty2", forms::vbNoDrop},
                                                                 {kSelect, u"1:1", forms::vbDefault},
                                                                 {kSelect, u"", forms::vbDefault},
                                                                 {kPickAny, u"_Plant3", forms::vbNoDrop},
                                                                 {kPickAny, u"3:1", forms::vbDefault},
                                                                 {9, u"1:1", forms::vbNoDrop}};  // left as it was
  float x = 0;
  for (const auto& [mode, key, pointer] : cases) {
    h.dlg.treDataSources.SetMousePointer(mode == 9 ? pointer : pointer == 0 ? forms::vbNoDrop : forms::vbDefault);
    h.inside.SetDialogMode(mode);
    ASSERT_TRUE(h.dlg.treDataSources.UserMouseMove(0, 0, x += 15, 100, *key ? h.Node(key) : nullptr));
    EXPECT_EQ(h.dlg.treDataSources.MousePointer(), pointer) << "mode " << mode << " over " << ToUtf8(key);
  }
}

TEST_F(TreeEvents, ANodeWaitingForReselectionIsSelectedAtTheNextMoveOutsideModeFour) {
  h.dlg.chkExpandAll.SetValue(forms::vbUnchecked);
  h.dlg.InitDBForSelect(h.plant, 1, 501, 0, 0);
  h.inside.SetNodeToReselect(h.Node(u"3:1"));
  h.inside.SetDialogMode(kPickAny);
  ASSERT_TRUE(h.dlg.treDataSources.UserMouseMove(0, 0, 1, 1, nullptr));
  EXPECT_EQ(h.Selected(), u"_Plant1");
  h.inside.SetDialogMode(kSelect);
  ASSERT_TRUE(h.dlg.treDataSources.UserMouseMove(0, 0, 2, 2, nullptr));
  EXPECT_EQ(h.Selected(), u"3:1");
  EXPECT_TRUE(h.Node(u"3:1")->Displayed());
  EXPECT_TRUE(h.dlg.fraDs.Visible());  // selected from code: no panel follows
  ASSERT_TRUE(h.Click(u"1:1"));
  ASSERT_TRUE(h.dlg.treDataSources.UserMouseMove(0, 0, 3, 3, nullptr));  // the slot was emptied
  EXPECT_EQ(h.Selected(), u"1:1");
}

}  // namespace
}  // namespace vd::system_test
