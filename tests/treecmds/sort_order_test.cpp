// Sort for good: by name ignoring case, code by code, names equal but for case
// kept in their order; the tree is rebuilt from the new order.
#include <vector>

#include "harness.h"

namespace vd::feature_test {
namespace {

TEST(SortForGood, IgnoresCaseKeepsEqualNamesInOrderAndRebuildsTheTree) {
  const std::vector<std::vector<String>> cases[] = {
      {{u"b", u"A", u"a"}, {u"A", u"a", u"b"}},
      {{u"Zeta", u"alpha", u"ALPHA", u"Beta"}, {u"alpha", u"ALPHA", u"Beta", u"Zeta"}},
      {{u"x2", u"X10", u"x1", u"_x"}, {u"x1", u"X10", u"x2", u"_x"}},  // "_" after "X"
      {{}, {}},                                                        // modified all the same
  };
  for (const auto& c : cases) {
    Harness h(R"({ "dataSources": [ { "name": "S", "kind": "memory" } ] })");
    // The file refuses names equal but for case; the toolkit takes them.
    const auto vars = h.sample.display->DataSources()->Item(1)->GetDsVars();
    for (const String& name : c[0]) vars->AddDsv()->SetDsvName(name);
    h.dlg.InitDBForEdit(h.sample.display);
    h.user.SelectNode(h.dlg.treDataSources, u"_S1").Click(h.dlg.cmdSort).RunAll();
    std::vector<String> shown;
    for (forms::NodeRef n = h.dlg.treDataSources.Nodes().Item(u"_S1")->Child(); n; n = n->Next()) {
      shown.push_back(n->Text());
    }
    EXPECT_EQ(h.Names(1), c[1]);
    EXPECT_EQ(shown, c[1]);
    EXPECT_EQ(h.SelectedText(), u"S");
    EXPECT_TRUE(h.dlg.IsModified());
  }
}

}  // namespace
}  // namespace vd::feature_test
