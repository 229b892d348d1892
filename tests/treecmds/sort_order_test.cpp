// Sort for good over names that differ only in case, which the in-memory
// toolkit refuses: one data source of bare variables that have a name and a
// place, and count the exchanges.
#include <memory>
#include <vector>

#include "treecmds_harness.h"

namespace vd::treecmds_test {
namespace {

struct Names;

struct NamedDsv final : toolkit::Dsv {
  NamedDsv(String n, Names& l) : name(std::move(n)), list(l) {}
  String GetDsvName() override { return name; }
  void SetDsvName(const String& n) override { name = n; }
  int32_t GetDsvType() override { return toolkit::dsvtype::kLong; }
  void SetDsvType(int32_t /*type*/) override {}
  int32_t GetDsvShape() override { return 1; }
  int32_t GetDsvRows() override { return 1; }
  void SetDsvRows(int32_t /*rows*/) override {}
  int32_t GetDsvCols() override { return 1; }
  void SetDsvCols(int32_t /*cols*/) override {}
  int32_t GetDsvScope() override { return 1; }
  void SetDsvScope(int32_t /*scope*/) override {}
  double GetDsvValue() override { return 0; }
  void SetDsvValue(double /*value*/) override {}
  toolkit::DsRef GetDsvParent() override { return nullptr; }
  int32_t GetDsvUseCount() override { return 0; }
  bool RemoveDsv() override { return false; }
  bool DsvMoveUp() override;
  bool DsvMoveDown() override { return false; }
  toolkit::CustomDsvRef AsCustom() override { return nullptr; }
  String name;
  Names& list;
};

// The display, its one data source and that data source's variables.
struct Names final : toolkit::Display, toolkit::DsList, toolkit::Ds, toolkit::DsvList {
  std::vector<std::shared_ptr<NamedDsv>> items;
  int moves = 0;
  toolkit::DsListRef GetDataSources() override { return {toolkit::DsListRef(), this}; }
  int32_t DsCount() override { return 1; }
  toolkit::DsRef DsItem(int32_t /*index*/) override { return {toolkit::DsRef(), this}; }
  toolkit::DsRef AddDs(int32_t /*kind*/, const String& /*text*/) override { return nullptr; }
  String GetDsName() override { return u"S"; }
  void SetDsName(const String& /*name*/) override {}
  int32_t GetDsType() override { return toolkit::kind::kMemory; }
  toolkit::DsvListRef GetDsVars() override { return {toolkit::DsvListRef(), this}; }
  bool RemoveDs() override { return false; }
  bool DsMoveUp() override { return false; }
  bool DsMoveDown() override { return false; }
  bool GetDsAscii() override { return false; }
  void SetDsAscii(bool /*ascii*/) override {}
  toolkit::CustomDsRef AsCustom() override { return nullptr; }
  int32_t DsvCount() override { return static_cast<int32_t>(items.size()); }
  toolkit::DsvRef DsvItem(int32_t index) override { return items.at(static_cast<size_t>(index - 1)); }
  toolkit::DsvRef AddDsv() override { return nullptr; }
  [[nodiscard]] std::vector<String> Order() const {
    std::vector<String> order;
    for (const auto& v : items) order.push_back(v->name);
    return order;
  }
};

bool NamedDsv::DsvMoveUp() {
  auto at = std::find_if(list.items.begin(), list.items.end(), [this](const auto& v) { return v.get() == this; });
  if (at == list.items.begin()) return false;
  std::iter_swap(at, at - 1);
  ++list.moves;
  return true;
}

struct SortCase {
  std::vector<String> before, after;
  int moves;  // one exchange per pair in the wrong order
};

TEST(SortForGood, IgnoresCaseKeepsEqualNamesInOrderAndExchangesOneAtATime) {
  for (const SortCase& c : std::vector<SortCase>{
           {{u"b", u"A", u"a"}, {u"A", u"a", u"b"}, 2},
           {{u"a", u"b", u"A"}, {u"a", u"A", u"b"}, 1},
           {{u"Zeta", u"alpha", u"ALPHA", u"Beta"}, {u"alpha", u"ALPHA", u"Beta", u"Zeta"}, 3},
           {{u"x2", u"X10", u"x1", u"_x"}, {u"x1", u"X10", u"x2", u"_x"}, 3},  // code by code; "_" after "X"
           {{}, {}, 0},                                                        // modified all the same
       }) {
    SCOPED_TRACE(c.before.empty() ? "none" : ToUtf8(c.before[0]) + "...");
    Harness h;
    auto names = std::make_shared<Names>();
    for (const String& name : c.before) names->items.push_back(std::make_shared<NamedDsv>(name, *names));
    h.dlg.InitDBForEdit(names);
    h.user.Click(h.dlg.cmdSort).RunAll();
    EXPECT_EQ(names->Order(), c.after);
    EXPECT_EQ(names->moves, c.moves);
    EXPECT_EQ(h.Shown(u"_S1"), c.after);  // rebuilt from the new order
    EXPECT_EQ(h.SelectedText(), u"S");
    EXPECT_TRUE(h.dlg.IsModified());
  }
}

}  // namespace
}  // namespace vd::treecmds_test
