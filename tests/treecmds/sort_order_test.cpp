// Sort for good over names that differ only in case, which the in-memory
// toolkit does not allow: its variables are shown under other names by a
// decorator that also keeps the order and counts the exchanges itself.
#include <memory>
#include <vector>

#include "treecmds_harness.h"
#include "vd/toolkit/toolkit.h"

namespace vd::treecmds_test {
namespace {

using toolkit::DsRef;
using toolkit::DsvRef;

class RenamedDsvList;

// A variable of the display under another name; its moves are the list's.
class RenamedDsv final : public toolkit::Dsv {
 public:
  RenamedDsv(DsvRef inner, String name, RenamedDsvList& list)
      : inner_(std::move(inner)), name_(std::move(name)), list_(list) {}
  String GetDsvName() override { return name_; }
  void SetDsvName(const String& name) override { name_ = name; }
  int32_t GetDsvType() override { return inner_->GetDsvType(); }
  void SetDsvType(int32_t type) override { inner_->SetDsvType(type); }
  int32_t GetDsvShape() override { return inner_->GetDsvShape(); }
  int32_t GetDsvRows() override { return inner_->GetDsvRows(); }
  void SetDsvRows(int32_t rows) override { inner_->SetDsvRows(rows); }
  int32_t GetDsvCols() override { return inner_->GetDsvCols(); }
  void SetDsvCols(int32_t cols) override { inner_->SetDsvCols(cols); }
  int32_t GetDsvScope() override { return inner_->GetDsvScope(); }
  void SetDsvScope(int32_t scope) override { inner_->SetDsvScope(scope); }
  double GetDsvValue() override { return inner_->GetDsvValue(); }
  void SetDsvValue(double value) override { inner_->SetDsvValue(value); }
  DsRef GetDsvParent() override { return inner_->GetDsvParent(); }
  int32_t GetDsvUseCount() override { return inner_->GetDsvUseCount(); }
  bool RemoveDsv() override { return false; }
  bool DsvMoveUp() override;
  bool DsvMoveDown() override;
  toolkit::CustomDsvRef AsCustom() override { return inner_->AsCustom(); }

 private:
  DsvRef inner_;
  String name_;
  RenamedDsvList& list_;
};

class RenamedDsvList final : public toolkit::DsvList {
 public:
  int32_t DsvCount() override { return static_cast<int32_t>(items.size()); }
  DsvRef DsvItem(int32_t index) override { return items.at(static_cast<size_t>(index - 1)); }
  DsvRef AddDsv() override { return nullptr; }

  bool Move(const RenamedDsv* dsv, int step) {
    size_t i = 0;
    while (items[i].get() != dsv) ++i;
    const auto j = static_cast<ptrdiff_t>(i) + step;
    if (j < 0 || j >= static_cast<ptrdiff_t>(items.size())) return false;
    std::swap(items[i], items[static_cast<size_t>(j)]);
    ++moves;
    return true;
  }
  [[nodiscard]] std::vector<String> Names() const {
    std::vector<String> names;
    for (const auto& dsv : items) names.push_back(dsv->GetDsvName());
    return names;
  }

  std::vector<std::shared_ptr<RenamedDsv>> items;
  int moves = 0;
};

bool RenamedDsv::DsvMoveUp() { return list_.Move(this, -1); }
bool RenamedDsv::DsvMoveDown() { return list_.Move(this, +1); }

// The display's data source 1 with its variables renamed, as the only data source.
class RenamedDs final : public toolkit::Ds, public toolkit::DsList, public toolkit::Display {
 public:
  RenamedDs(DsRef inner, const std::vector<String>& names) : inner_(std::move(inner)) {
    const toolkit::DsvListRef vars = inner_->GetDsVars();
    for (size_t i = 0; i < names.size(); ++i)
      list->items.push_back(std::make_shared<RenamedDsv>(vars->DsvItem(static_cast<int32_t>(i) + 1), names[i], *list));
  }
  // Ds
  String GetDsName() override { return inner_->GetDsName(); }
  void SetDsName(const String& name) override { inner_->SetDsName(name); }
  int32_t GetDsType() override { return inner_->GetDsType(); }
  toolkit::DsvListRef GetDsVars() override { return list; }
  bool RemoveDs() override { return false; }
  bool DsMoveUp() override { return false; }
  bool DsMoveDown() override { return false; }
  bool GetDsAscii() override { return inner_->GetDsAscii(); }
  void SetDsAscii(bool ascii) override { inner_->SetDsAscii(ascii); }
  toolkit::CustomDsRef AsCustom() override { return inner_->AsCustom(); }
  // DsList
  int32_t DsCount() override { return 1; }
  DsRef DsItem(int32_t index) override { return index == 1 ? self.lock() : nullptr; }
  DsRef AddDs(int32_t /*kind*/, const String& /*creationText*/) override { return nullptr; }
  // Display
  toolkit::DsListRef GetDataSources() override { return self.lock(); }

  std::shared_ptr<RenamedDsvList> list = std::make_shared<RenamedDsvList>();
  std::weak_ptr<RenamedDs> self;

 private:
  DsRef inner_;
};

std::shared_ptr<RenamedDs> Renamed(const std::vector<String>& names) {
  std::string json = R"({ "dataSources": [ { "name": "S", "kind": "memory", "variables": [ )";
  for (size_t i = 0; i < names.size(); ++i)
    json += (i > 0 ? ", " : "") + std::string(R"({ "name": "v)") + std::to_string(i) + R"(", "type": "Long" })";
  const auto display = DisplayFromJson(json + "] } ] }");
  auto renamed = std::make_shared<RenamedDs>(display->DataSources()->Item(1), names);
  renamed->self = renamed;
  return renamed;
}

struct SortCase {
  std::vector<String> before;
  std::vector<String> after;
  int moves;  // one exchange per pair in the wrong order
};

TEST(SortForGood, IgnoresCaseAndKeepsEqualNamesInTheirOrderOneExchangeAtATime) {
  const std::vector<SortCase> cases = {
      {{u"b", u"A", u"a"}, {u"A", u"a", u"b"}, 2},
      {{u"a", u"b", u"A"}, {u"a", u"A", u"b"}, 1},
      {{u"Zeta", u"alpha", u"ALPHA", u"Beta"}, {u"alpha", u"ALPHA", u"Beta", u"Zeta"}, 3},
      {{u"x2", u"X10", u"x1"}, {u"x1", u"X10", u"x2"}, 3},  // character by character: "1" < "2"
      {{u"a", u"b"}, {u"a", u"b"}, 0},
  };
  for (const SortCase& c : cases) {
    SCOPED_TRACE(ToUtf8(c.before[0]) + "...");
    Harness h;
    const auto display = Renamed(c.before);
    h.dlg.InitDBForEdit(display);
    h.user.SelectNode(h.dlg.treDataSources, u"1:2").Click(h.dlg.cmdSort);
    h.user.RunAll();
    EXPECT_EQ(display->list->Names(), c.after);
    EXPECT_EQ(display->list->moves, c.moves);
    // The tree is rebuilt from the new order, the data source selected.
    std::vector<String> shown;
    for (forms::NodeRef n = h.Node(u"_S1")->Child(); n; n = n->Next()) shown.push_back(n->Text());
    EXPECT_EQ(shown, c.after);
    EXPECT_EQ(h.SelectedText(), u"S");
    EXPECT_TRUE(h.dlg.IsModified());
  }
}

}  // namespace
}  // namespace vd::treecmds_test
