// Opening and closing items while a handler changes the tree: once it has
// returned, the window shows each node open or closed as the form holds it,
// also for nodes that came, went or were opened and closed again meanwhile.
#include <functional>
#include <string>
#include <vector>

#include "dialog_test.h"
#include "vd/automation/string.h"

namespace vd::win32::views::testing {
namespace {

using vd::automation::String;
using vd::automation::ToDecimal;

// Every node that has children: whether the window shows it open as the form does.
std::vector<std::string> Mismatches(HWND tree, const SampleForm& form,
                                    const std::function<HTREEITEM(const String&)>& itemOf) {
  std::vector<std::string> wrong;
  for (int32_t i = 1; i <= form.treItems.Nodes().Count(); ++i) {
    const vd::forms::NodeRef node = form.treItems.Nodes().Item(i);
    if (node->Children() == 0) continue;
    const bool shown = (TreeItemState(tree, itemOf(node->Key())) & TVIS_EXPANDED) != 0;
    if (shown != node->Expanded()) wrong.push_back(Narrow(node->Key()));
  }
  return wrong;
}

TEST_F(DialogTest, ItemsOpenAndCloseAsTheFormHoldsThemOnceTheHandlerReturns) {
  script.Then("change in one handler", [&] {
    auto& nodes = form.treItems.Nodes();
    // A new data source, opened before its children come.
    nodes.Add({}, vd::forms::tvwLast, u"fresh", u"Fresh", 2)->SetExpanded(true);
    for (int j = 1; j <= 3; ++j) nodes.Add(u"fresh", vd::forms::tvwChild, u"fresh" + ToDecimal(j), u"F", 1);
    // One opened and removed before the handler ends.
    nodes.Add({}, vd::forms::tvwLast, u"gone", u"Gone", 2)->SetExpanded(true);
    nodes.Add(u"gone", vd::forms::tvwChild, u"gone1", u"G", 1);
    nodes.Remove(u"gone");
    // Source 1 closed, source 3 opened then closed again, source 4 opened.
    Node(SampleForm::DsKey(1))->SetExpanded(false);
    nodes.Add(SampleForm::DsKey(3), vd::forms::tvwChild, u"extra3", u"E", 1);
    Node(SampleForm::DsKey(3))->SetExpanded(true);
    Node(SampleForm::DsKey(3))->SetExpanded(false);
    nodes.Add(SampleForm::DsKey(4), vd::forms::tvwChild, u"extra4", u"E", 1);
    Node(SampleForm::DsKey(4))->SetExpanded(true);
  });
  script.Then("check", [&] {
    EXPECT_EQ(Mismatches(Tree(), form, [&](const String& key) { return Item(key); }), std::vector<std::string>{});
    EXPECT_NE(TreeItemState(Tree(), Item(u"fresh")) & TVIS_EXPANDED, 0u);
    EXPECT_EQ(TreeItemState(Tree(), Item(SampleForm::DsKey(3))) & TVIS_EXPANDED, 0u);
    EXPECT_EQ(SendMessageW(Tree(), TVM_GETCOUNT, 0, 0), form.treItems.Nodes().Count());
  });
  script.Then("rebuild after opening", [&] {
    Node(SampleForm::DsKey(5))->SetExpanded(true);
    form.treItems.Nodes().Add(SampleForm::DsKey(5), vd::forms::tvwChild, u"extra5", u"E", 1);
    form.BuildTree(6, 4);  // clears the tree while source 5 waits to open
  });
  script.Then("check again", [&] {
    EXPECT_EQ(Mismatches(Tree(), form, [&](const String& key) { return Item(key); }), std::vector<std::string>{});
    EXPECT_EQ(SendMessageW(Tree(), TVM_GETCOUNT, 0, 0), 6 + 6 * 4);
  });
  script.Run();
}

}  // namespace
}  // namespace vd::win32::views::testing
