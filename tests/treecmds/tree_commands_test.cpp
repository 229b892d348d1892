// The tree commands as the user meets them: add, delete with its selection
// rules and in-use refusals, moves and the sort flags that follow them, the
// sort for good and in the view, expand all, and the buttons' tool tips.
#include <string>
#include <vector>

#include "platform/dv_reg.h"
#include "treecmds_harness.h"
#include "vd/toolkit/toolkit.h"

namespace vd::treecmds_test {
namespace {

using forms::vbExclamation;
using forms::vbOKOnly;

// The plant, and a fourth data source with a single variable nobody uses.
constexpr std::string_view kFourJson = R"({ "dataSources": [
  { "name": "Plant", "kind": "memory", "variables": [
      { "name": "Level", "type": "Double" }, { "name": "Flow", "type": "Float" },
      { "name": "Label", "type": "Text", "cols": 40 } ] },
  { "name": "Empty", "kind": "memory" },
  { "name": "Tank", "kind": "constant", "variables": [ { "name": "Limit", "type": "Float", "useCount": 1 } ] },
  { "name": "Spare", "kind": "memory", "variables": [ { "name": "Only", "type": "Long" } ] } ] })";

struct EditRun : Harness {
  EditRun() {
    plant = DisplayFromJson(kFourJson);
    dlg.InitDBForEdit(plant);
  }
};

// --- Delete ---

struct DeleteDsvCase {
  const char16_t* key;
  const char16_t* selectedAfter;
  std::vector<String> namesAfter;  // of the variable's data source
  int32_t ds;
};

TEST(DeleteVariable, SelectsThePreviousVariableTheNewFirstOrTheDataSource) {
  const std::vector<DeleteDsvCase> cases = {
      {u"1:1", u"Flow", {u"Flow", u"Label"}, 1},
      {u"1:2", u"Level", {u"Level", u"Label"}, 1},
      {u"1:3", u"Flow", {u"Level", u"Flow"}, 1},
      {u"4:1", u"Spare", {}, 4},
  };
  for (const DeleteDsvCase& c : cases) {
    SCOPED_TRACE(ToUtf8(c.key));
    EditRun h;
    h.user.SelectNode(h.dlg.treDataSources, c.key).Click(h.dlg.cmdDelete);
    h.user.RunAll();
    EXPECT_EQ(h.VarNames(c.ds), c.namesAfter);
    EXPECT_EQ(h.SelectedText(), c.selectedAfter);
    EXPECT_TRUE(h.dlg.IsModified());
    EXPECT_TRUE(h.ui.MessageBoxes().empty());
    const bool variableSelected = !c.namesAfter.empty();
    EXPECT_EQ(h.dlg.fraDsv.Visible(), variableSelected);
    EXPECT_EQ(h.dlg.fraDs.Visible(), !variableSelected);
    // The deleted variable is never the result; a variable shown since is.
    const toolkit::DsvRef result = h.dlg.GetSelectedDsv();
    EXPECT_EQ(result ? result->GetDsvName() : String(u"(none)"), variableSelected ? c.selectedAfter : u"(none)");
    // The data source node keeps exactly the remaining variables.
    EXPECT_EQ(h.Node(u"_" + h.DsNames()[static_cast<size_t>(c.ds - 1)] + automation::ToDecimal(c.ds))->Children(),
              static_cast<int32_t>(c.namesAfter.size()));
  }
}

TEST(DeleteVariable, ResetsTheResultOfASelectionRunWhenNoVariableIsShownAfter) {
  Harness h;
  h.plant = DisplayFromJson(kFourJson);
  h.dlg.InitDBForSelect(h.plant, 1, 500, 0, 0);
  h.user.SelectNode(h.dlg.treDataSources, u"4:1")
      .Click(h.dlg.dbEdit)
      .Check([&] { EXPECT_EQ(h.dlg.GetSelectedDsv()->GetDsvName(), u"Only"); })
      .Click(h.dlg.cmdDelete);
  h.user.RunAll();
  EXPECT_EQ(h.dlg.GetSelectedDsv(), nullptr);
  EXPECT_FALSE(h.dlg.dbOK.Enabled());  // a data source cannot be chosen
}

struct InUseCase {
  const char16_t* key;
  const char16_t* message;
};

TEST(Delete, RefusesWhatIsInUseWithItsMessageAndChangesNothing) {
  const std::vector<InUseCase> cases = {
      {u"3:1", u"The data variable \"Limit\" is in use."},
      {u"_Tank3", u"The data source \"Tank\" is in use."},
  };
  for (const InUseCase& c : cases) {
    SCOPED_TRACE(ToUtf8(c.key));
    EditRun h;
    h.dlg.SetCaption(u"Data  Selection ");  // the title is the caption as it stands
    h.ui.ExpectMessageBox(c.message, vbOKOnly + vbExclamation);
    h.user.SelectNode(h.dlg.treDataSources, c.key).Check([&] { h.inside.ClearModified(); }).Click(h.dlg.cmdDelete);
    h.user.RunAll();
    ASSERT_EQ(h.ui.MessageBoxes().size(), 1U);
    EXPECT_EQ(h.ui.MessageBoxes()[0].title, String(u"Data  Selection "));
    EXPECT_EQ(h.DsNames(), (std::vector<String>{u"Plant", u"Empty", u"Tank", u"Spare"}));
    EXPECT_EQ(h.VarNames(3), std::vector<String>{u"Limit"});
    EXPECT_EQ(h.dlg.treDataSources.Nodes().Count(), 9);
    EXPECT_EQ(h.dlg.treDataSources.SelectedItem()->Key(), c.key);
    EXPECT_FALSE(h.dlg.IsModified());
  }
}

TEST(DeleteDataSource, SelectsTheFirstNodeWhateverWasDeleted) {
  for (const char16_t* key : {u"_Empty2", u"_Spare4", u"_Plant1"}) {
    SCOPED_TRACE(ToUtf8(key));
    EditRun h;
    h.user.SelectNode(h.dlg.treDataSources, key).Click(h.dlg.cmdDelete);
    h.user.RunAll();
    EXPECT_EQ(h.DsNames().size(), 3U);
    EXPECT_EQ(h.dlg.treDataSources.SelectedItem()->Index(), 1);
    EXPECT_EQ(h.inside.DsNodeCount(), 3);
    EXPECT_EQ(h.inside.DsSortFlags().size(), 3U);
    EXPECT_EQ(h.dlg.txtDsName.Text(), h.DsNames()[0]);
    EXPECT_TRUE(h.dlg.IsModified());
  }
}

// --- Sort flags through view sort, move, add and delete ---

TEST(DsSortFlags, EachDataSourceKeepsItsOwnFlagThroughMoveAddAndDelete) {
  EditRun h;
  h.user.SelectNode(h.dlg.treDataSources, u"3:1").Tick(h.dlg.chkSort);
  h.user.RunAll();
  EXPECT_EQ(h.inside.DsSortFlags(), (std::vector<bool>{false, false, true, false}));

  // Tank moves up past Empty: the flags are exchanged with it.
  h.user.SelectNode(h.dlg.treDataSources, u"_Tank3").Click(h.dlg.cmdMoveUp);
  h.user.RunAll();
  EXPECT_EQ(h.DsNames(), (std::vector<String>{u"Plant", u"Tank", u"Empty", u"Spare"}));
  EXPECT_EQ(h.inside.DsSortFlags(), (std::vector<bool>{false, true, false, false}));
  EXPECT_EQ(h.SelectedText(), u"Tank");
  EXPECT_TRUE(h.Node(u"_Tank2")->Sorted());

  // A new data source comes last, unsorted, and is selected.
  h.user.Click(h.dlg.cmdAddDs);
  h.user.RunAll();
  EXPECT_EQ(h.inside.DsSortFlags(), (std::vector<bool>{false, true, false, false, false}));
  EXPECT_EQ(h.dlg.treDataSources.SelectedItem()->Index(), 5);

  // Deleting Plant shifts the following flags down by one.
  h.user.SelectNode(h.dlg.treDataSources, u"_Plant1").Click(h.dlg.cmdDelete);
  h.user.RunAll();
  EXPECT_EQ(h.inside.DsSortFlags(), (std::vector<bool>{true, false, false, false}));
  EXPECT_EQ(h.DsNames()[0], u"Tank");
  // The selection is Tank (node 1): its box shows its flag.
  EXPECT_EQ(h.dlg.chkSort.Value(), forms::vbChecked);
}

// --- Move ---

struct MoveCase {
  const char* label;
  const char16_t* key;
  bool up;
  std::vector<String> dsNames;
  std::vector<String> plantVars;
  const char16_t* selectedAfter;
  bool modified;
};
void PrintTo(const MoveCase& c, std::ostream* os) { *os << c.label; }

const std::vector<String> kDsOrder = {u"Plant", u"Empty", u"Tank", u"Spare"};
const std::vector<String> kVarOrder = {u"Level", u"Flow", u"Label"};

class Move : public ::testing::TestWithParam<MoveCase> {};

TEST_P(Move, OnlyWhatTheToolkitAllowsAndTheMovedItemStaysSelected) {
  const MoveCase& c = GetParam();
  EditRun h;
  // Showing a variable writes its fields back: start the count after it.
  h.user.SelectNode(h.dlg.treDataSources, c.key)
      .Check([&] { h.inside.ClearModified(); })
      .Click(c.up ? h.dlg.cmdMoveUp : h.dlg.cmdMoveDown);
  h.user.RunAll();
  EXPECT_EQ(h.DsNames(), c.dsNames);
  EXPECT_EQ(h.VarNames(1), c.plantVars);
  EXPECT_EQ(h.SelectedText(), c.selectedAfter);
  EXPECT_EQ(h.dlg.IsModified(), c.modified);
  EXPECT_TRUE(h.ui.MessageBoxes().empty());
  // The tree shows the display's order.
  const forms::NodeRef plantNode = h.Node(u"_" + h.DsNames()[0] + u"1");
  EXPECT_EQ(plantNode->Text(), c.dsNames[0]);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Move,
    ::testing::Values(
        MoveCase{"first data source up", u"_Plant1", true, kDsOrder, kVarOrder, u"Plant", false},
        MoveCase{"last data source down", u"_Spare4", false, kDsOrder, kVarOrder, u"Spare", false},
        MoveCase{"data source down", u"_Plant1", false, {u"Empty", u"Plant", u"Tank", u"Spare"}, {}, u"Plant", true},
        MoveCase{"first variable up", u"1:1", true, kDsOrder, kVarOrder, u"Level", false},
        MoveCase{"last variable down", u"1:3", false, kDsOrder, kVarOrder, u"Label", false},
        MoveCase{"variable down", u"1:1", false, kDsOrder, {u"Flow", u"Level", u"Label"}, u"Level", true},
        MoveCase{"variable up", u"1:3", true, kDsOrder, {u"Level", u"Label", u"Flow"}, u"Label", true}));

TEST(MoveVariable, TheMovedVariableIsSelectedAtItsNewPlace) {
  EditRun h;
  h.user.SelectNode(h.dlg.treDataSources, u"1:1").Click(h.dlg.cmdMoveDown).Click(h.dlg.cmdMoveDown);
  h.user.RunAll();
  EXPECT_EQ(h.VarNames(1), (std::vector<String>{u"Flow", u"Label", u"Level"}));
  EXPECT_EQ(h.dlg.treDataSources.SelectedItem()->Key(), u"1:3");
  EXPECT_EQ(h.dlg.txtDsvName.Text(), u"Level");
}

// --- Sort ---

TEST(SortForGood, OrdersByUpperCasedNameKeepingEqualNamesInOrder) {
  Harness h;
  h.plant = DisplayFromJson(R"({ "dataSources": [ { "name": "S", "kind": "memory", "variables": [
      { "name": "b", "type": "Long" }, { "name": "A", "type": "Long" }, { "name": "_x", "type": "Long" },
      { "name": "B2", "type": "Long" }, { "name": "a1", "type": "Long" } ] } ] })");
  h.dlg.InitDBForEdit(h.plant);
  h.user.SelectNode(h.dlg.treDataSources, u"1:1").Click(h.dlg.cmdSort);
  h.user.RunAll();
  // "_" (95) sorts after the letters once they are upper case (65..90).
  EXPECT_EQ(h.VarNames(1), (std::vector<String>{u"A", u"a1", u"b", u"B2", u"_x"}));
  EXPECT_EQ(h.NodeTexts(), (std::vector<String>{u"S", u"A", u"a1", u"b", u"B2", u"_x"}));
  EXPECT_EQ(h.dlg.treDataSources.SelectedItem()->Index(), 1);
  EXPECT_TRUE(h.dlg.IsModified());
}

TEST(SortForGood, MarksTheDisplayModifiedEvenWithoutVariables) {
  EditRun h;
  h.user.SelectNode(h.dlg.treDataSources, u"_Empty2").Click(h.dlg.cmdSort);
  h.user.RunAll();
  EXPECT_TRUE(h.dlg.IsModified());
  EXPECT_EQ(h.SelectedText(), u"Empty");
  EXPECT_EQ(h.DsNames(), kDsOrder);
}

TEST(SortInView, SortsTheTreeOnlyAndLocksTheMovesOfThatDataSource) {
  EditRun h;
  h.user.SelectNode(h.dlg.treDataSources, u"1:1").Tick(h.dlg.chkSort);
  h.user.RunAll();
  EXPECT_EQ(h.VarNames(1), kVarOrder);  // the display is not touched
  std::vector<String> shown;
  for (forms::NodeRef n = h.Node(u"_Plant1")->Child(); n; n = n->Next()) shown.push_back(n->Text());
  EXPECT_EQ(shown, (std::vector<String>{u"Flow", u"Label", u"Level"}));
  EXPECT_EQ(h.SelectedText(), u"Level");
  EXPECT_FALSE(h.dlg.cmdMoveUp.Enabled());
  EXPECT_FALSE(h.dlg.cmdMoveDown.Enabled());

  // Another variable of the same data source: still locked. Another data source's: free.
  h.user.SelectNode(h.dlg.treDataSources, u"1:2")
      .Check([&] { EXPECT_FALSE(h.dlg.cmdMoveUp.Enabled() || h.dlg.cmdMoveDown.Enabled()); })
      .SelectNode(h.dlg.treDataSources, u"4:1")
      .Check([&] { EXPECT_TRUE(h.dlg.cmdMoveUp.Enabled() && h.dlg.cmdMoveDown.Enabled()); })
      .SelectNode(h.dlg.treDataSources, u"1:3")
      .Tick(h.dlg.chkSort, false);
  h.user.RunAll();
  shown.clear();
  for (forms::NodeRef n = h.Node(u"_Plant1")->Child(); n; n = n->Next()) shown.push_back(n->Text());
  EXPECT_EQ(shown, kVarOrder);
  EXPECT_EQ(h.SelectedText(), u"Label");
  EXPECT_TRUE(h.dlg.cmdMoveUp.Enabled());
  EXPECT_EQ(h.inside.DsSortFlags(), (std::vector<bool>{false, false, false, false}));
}

// --- Expand all ---

TEST(ExpandAll, ExpandsOrCollapsesEveryNodeButNotWhileTheTreeIsFilled) {
  EditRun h;
  const auto expandedCount = [&] {
    int count = 0;
    for (int32_t i = 1; i <= h.dlg.treDataSources.Nodes().Count(); ++i)
      count += h.dlg.treDataSources.Nodes().Item(i)->Expanded() ? 1 : 0;
    return count;
  };
  EXPECT_EQ(expandedCount(), 4);  // ticked at load: the data source nodes
  h.user.Tick(h.dlg.chkExpandAll, false);
  h.user.RunAll();
  EXPECT_EQ(expandedCount(), 0);

  h.inside.SetPanelFilling(true);
  h.user.Tick(h.dlg.chkExpandAll);
  h.user.RunAll();
  EXPECT_EQ(expandedCount(), 0);

  h.inside.SetPanelFilling(false);
  h.user.Tick(h.dlg.chkExpandAll, false).Tick(h.dlg.chkExpandAll);
  h.user.RunAll();
  EXPECT_EQ(expandedCount(), 9);  // variable nodes as well
}

// --- Tool tips ---

struct TipCase {
  const char16_t* key;
  const char16_t* deleteTip;
  const char16_t* upTip;
  const char16_t* downTip;
};

TEST(ToolTips, NameTheSelectionWithTheirExactBlanks) {
  const std::vector<TipCase> cases = {
      {u"1:2", u"Delete 'Flow' ", u"Move 'Flow' up", u"Move 'Flow' down"},
      {u"_Empty2", u"Delete 'Empty' ", u"Move 'Empty' up", u"Move 'Empty' down"},
  };
  EditRun h;
  for (const TipCase& c : cases) {
    SCOPED_TRACE(ToUtf8(c.key));
    h.user.SelectNode(h.dlg.treDataSources, c.key);
    h.user.RunAll();
    EXPECT_EQ(h.dlg.cmdDelete.ToolTipText(), c.deleteTip);
    EXPECT_EQ(h.dlg.cmdMoveUp.ToolTipText(), c.upTip);
    EXPECT_EQ(h.dlg.cmdMoveDown.ToolTipText(), c.downTip);
  }
}

TEST(ToolTips, WithoutASelectionKeepOneBlankForTheName) {
  Harness h;
  h.dlg.InitDBForEdit(DisplayFromJson(R"({ "dataSources": [] })"));
  EXPECT_EQ(h.dlg.cmdDelete.ToolTipText(), u"Delete ");
  EXPECT_EQ(h.dlg.cmdMoveUp.ToolTipText(), u"Move up");
  EXPECT_EQ(h.dlg.cmdMoveDown.ToolTipText(), u"Move down");
}

// --- Add ---

// A data source list that records what it is asked to add. Kind 5 is added as
// a memory data source unless its text is "Refused"; a custom class "Named.X"
// gets a name of the toolkit's own.
class RecordingDsList final : public toolkit::DsList {
 public:
  explicit RecordingDsList(toolkit::DsListRef inner) : inner_(std::move(inner)) {}
  int32_t DsCount() override { return inner_->DsCount(); }
  toolkit::DsRef DsItem(int32_t index) override { return inner_->DsItem(index); }
  toolkit::DsRef AddDs(int32_t kind, const String& creationText) override {
    adds.emplace_back(kind, creationText);
    if (kind == 5) return creationText == u"Refused" ? nullptr : inner_->AddDs(toolkit::kind::kMemory, u"");
    toolkit::DsRef ds = inner_->AddDs(kind, creationText);
    if (ds && creationText.starts_with(u"Named.")) ds->SetDsName(u"named1");
    return ds;
  }
  std::vector<std::pair<int32_t, String>> adds;

 private:
  toolkit::DsListRef inner_;
};

class RecordingDisplay final : public toolkit::Display {
 public:
  explicit RecordingDisplay(const toolkit::DisplayRef& inner)
      : list(std::make_shared<RecordingDsList>(inner->GetDataSources())) {}
  toolkit::DsListRef GetDataSources() override { return list; }
  std::shared_ptr<RecordingDsList> list;
};

struct AddCase {
  const char16_t* entry;
  int32_t kind;
  const char16_t* creationText;
  const char16_t* nameAfter;  // nullptr: refused
};

TEST(AddDataSource, PassesTheKindAndCreationTextAndSelectsTheNewLastDataSource) {
  const std::vector<AddCase> cases = {
      {u"Disk", 2, u"", u"file5.dat"},
      {u"Ram", 6, u"", u"memory5"},
      {u"Alarms", 105, u"Acme.Alarm", u"Alarms.custom"},
      {u"Own", 105, u"Named.Own", u"named1"},
      {u"Calc", 5, u"Calc", u"memory5"},
      {u"Refused", 5, u"Refused", nullptr},
  };
  for (const AddCase& c : cases) {
    SCOPED_TRACE(ToUtf8(c.entry));
    Harness h;
    platform::DvReg::ResetDvHomeForTesting();
    h.registry.SetValue(platform::reg::kHkeyLocalMachine, "Software\\DataViews\\DVtools\\2.6", "DVhome",
                        {platform::reg::kRegSz, "D:\\DV"});
    h.files.SetFile(u"D:\\DV\\etc\\CustomDs.dat",
                    "Disk DVDefault.File\r\nRam DVDefault.Memory\r\nAlarms Acme.Alarm\r\nOwn Named.Own\r\n");
    h.plant = DisplayFromJson(kFourJson);
    auto display = std::make_shared<RecordingDisplay>(h.plant);
    h.dlg.InitDBForEdit(display);
    for (const char16_t* kind5 : {u"Calc", u"Refused"}) {
      h.dlg.cboDsAdd.AddItem(kind5);
      h.dlg.cboDsAdd.SetItemData(h.dlg.cboDsAdd.NewIndex(), 5);
    }
    h.user.SelectNode(h.dlg.treDataSources, u"1:2")
        .Pick(h.dlg.cboDsAdd, c.entry)
        .Check([&] { h.inside.ClearModified(); })
        .Click(h.dlg.cmdAddDs);
    h.user.RunAll();
    platform::DvReg::ResetDvHomeForTesting();

    ASSERT_EQ(display->list->adds.size(), 1U);
    EXPECT_EQ(display->list->adds[0].first, c.kind);
    EXPECT_EQ(display->list->adds[0].second, c.creationText);
    if (c.nameAfter == nullptr) {
      EXPECT_EQ(h.DsNames().size(), 4U);
      EXPECT_EQ(h.SelectedText(), u"Flow");
      EXPECT_FALSE(h.dlg.IsModified());
      EXPECT_EQ(h.inside.DsSortFlags().size(), 4U);
      continue;
    }
    EXPECT_EQ(h.DsNames().back(), c.nameAfter);
    EXPECT_EQ(h.inside.DsNodeCount(), 5);
    EXPECT_EQ(h.dlg.treDataSources.SelectedItem()->Index(), 5);
    EXPECT_EQ(h.SelectedText(), c.nameAfter);
    EXPECT_EQ(h.dlg.txtDsName.Text(), c.nameAfter);
    EXPECT_TRUE(h.dlg.IsModified());
    EXPECT_EQ(h.inside.DsSortFlags().size(), 5U);
  }
}

TEST(AddVariable, AppendsToTheSelectionsDataSourceAndShowsTheNewVariable) {
  for (const char16_t* key : {u"_Empty2", u"1:2"}) {
    SCOPED_TRACE(ToUtf8(key));
    EditRun h;
    const int32_t ds = key[0] == u'_' ? 2 : 1;
    const size_t before = h.VarNames(ds).size();
    h.user.SelectNode(h.dlg.treDataSources, key).Click(h.dlg.cmdAddDsv);
    h.user.RunAll();
    ASSERT_EQ(h.VarNames(ds).size(), before + 1);
    EXPECT_EQ(h.SelectedText(), h.VarNames(ds).back());
    EXPECT_EQ(h.dlg.treDataSources.SelectedItem()->Key(),
              automation::ToDecimal(ds) + u":" + automation::ToDecimal(static_cast<int32_t>(before + 1)));
    EXPECT_TRUE(h.dlg.fraDsv.Visible());
    EXPECT_TRUE(h.dlg.IsModified());
  }
}

}  // namespace
}  // namespace vd::treecmds_test
