// The tree built from a display: keys, indexes, texts, images, expansion,
// rebuilding one data source, the sort flags, and the 16-bit counts.
#include <vector>

#include "browser_harness.h"

namespace vd::system_test {
namespace {

using automation::Variant;

std::vector<String> ChildKeys(const forms::NodeRef& node) {
  std::vector<String> keys;
  for (forms::NodeRef child = node->Child(); child; child = child->Next()) keys.push_back(child->Key());
  return keys;
}

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

TEST(TreeNodes, ADisplayWithoutDataSourcesGivesAnEmptyTree) {
  BrowserHarness h;
  h.dlg.InitDBForSelect(DisplayFromJson(R"({ "dataSources": [] })"), 1, 501, 0, 0);
  EXPECT_EQ(h.dlg.treDataSources.Nodes().Count(), 0);
  EXPECT_EQ(h.dlg.treDataSources.SelectedItem(), nullptr);
  EXPECT_EQ(h.inside.GetCurrentDsIndex(), -1);
  EXPECT_FALSE(h.dlg.fraDs.Visible());
  EXPECT_FALSE(h.dlg.cmdDelete.Enabled());
  EXPECT_EQ(h.dlg.cmdDelete.ToolTipText(), u"Delete ");
  EXPECT_EQ(h.dlg.cmdMoveDown.ToolTipText(), u"Move down");
}

TEST(TreeNodes, KeysThatCollideRaiseTheTreesDuplicateKeyError) {
  // "A1" at position 1 and "A" at position 11 both give the key _A11.
  std::string json = R"({ "dataSources": [ { "name": "A1", "kind": "memory" })";
  for (int i = 2; i <= 10; ++i) json += R"(, { "name": "F", "kind": "memory" })";
  BrowserHarness h;
  auto display = DisplayFromJson(json + R"(, { "name": "A", "kind": "memory" } ] })");
  EXPECT_EQ(ErrorOf([&] { h.dlg.InitDBForEdit(display); }), automation::err::kTreeKeyNotUnique);
}

TEST(TreeRebuild, SelectsTheRequestedDataSourceOrNodeOne) {
  BrowserHarness h;
  h.dlg.InitDBForEdit(h.plant);
  const std::vector<std::pair<std::optional<int16_t>, String>> cases = {
      {std::nullopt, u"_Plant1"}, {3, u"_Plant3"}, {0, u"_Plant1"}, {4, u"_Plant1"}};
  for (const auto& [request, key] : cases) {
    h.Node(u"3:1")->SetSelected(true);
    h.inside.RebuildTree(request);
    EXPECT_EQ(h.Selected(), key);
    EXPECT_TRUE(h.dlg.fraDs.Visible());
    EXPECT_FALSE(h.inside.PanelFilling());
  }
}

TEST(TreeRebuild, OneDataSourceFollowsItsVariablesAndLeavesTheOthersAlone) {
  BrowserHarness h;
  h.dlg.InitDBForEdit(h.plant);
  auto vars = h.plant->DataSources()->Item(1)->Variables();
  vars->Add()->SetDsvName(u"Pressure");
  ASSERT_TRUE(vars->Item(2)->RemoveDsv());
  h.Node(u"1:2")->SetSelected(true);
  h.inside.RebuildDsvNodes(1);
  EXPECT_EQ(ChildKeys(h.Node(u"_Plant1")), (std::vector<String>{u"1:1", u"1:2", u"1:3"}));
  EXPECT_EQ(h.Node(u"1:3")->Text(), u"Pressure");
  EXPECT_EQ(h.Selected(), u"_Plant1");  // the selected variable went with the old nodes
  // Data sources keep 1..3; the rebuilt variables now come after 3:1.
  EXPECT_EQ(h.Node(u"3:1")->Index(), 4);
  EXPECT_EQ(h.Node(u"1:1")->Index(), 5);
  h.Node(u"1:3")->SetSelected(true);
  EXPECT_EQ(h.inside.GetCurrentDsIndex(), 1);

  h.inside.RebuildDsvNodes(1, 2);
  EXPECT_EQ(h.Selected(), u"1:2");
  EXPECT_TRUE(h.dlg.fraDsv.Visible());
  EXPECT_EQ(h.dlg.GetSelectedDsv(), vars->Item(2));

  h.inside.SetDialogMode(kSelect);
  h.Node(u"_Plant3")->SetSelected(true);
  h.inside.RebuildDsvNodes(2, 1);  // no variables: the panel of the selected data source
  EXPECT_EQ(h.dlg.txtDsName.Text(), u"Plant");
  EXPECT_TRUE(h.dlg.fraDs.Visible());
  EXPECT_FALSE(h.dlg.dbOK.Enabled());
}

TEST(DsSortFlags, GrowEachRunNeverShrinkAndSortTheirDataSourcesVariables) {
  BrowserHarness h;
  h.dlg.InitDBForEdit(h.plant);
  automation::Collection<bool>& flags = h.inside.DsSortFlags();
  ASSERT_EQ(flags.Count(), 3);
  flags.AddAfter(1, true);  // as the view sort sets a flag
  flags.Remove(1);
  h.Node(u"_Plant3")->SetSorted(true);
  h.inside.RebuildDsvNodes(3);
  EXPECT_FALSE(h.Node(u"_Plant3")->Sorted());
  h.inside.RebuildDsvNodes(1);
  EXPECT_TRUE(h.Node(u"_Plant1")->Sorted());
  EXPECT_EQ(ChildKeys(h.Node(u"_Plant1")), (std::vector<String>{u"1:2", u"1:3", u"1:1"}));  // Flow, Label, Level

  // A later run on another display appends behind and reads flag 1 from the first run.
  h.dlg.InitDBForSelect(DisplayFromJson(R"({ "dataSources": [ { "name": "Only", "kind": "memory",
      "variables": [ { "name": "b" }, { "name": "A" } ] } ] })"),
                        1, 501, 0, 0);
  EXPECT_EQ(flags.Count(), 4);
  EXPECT_FALSE(flags.Item(4));
  EXPECT_EQ(h.Node(u"_Only1")->Child()->Text(), u"A");
}

}  // namespace
}  // namespace vd::system_test
