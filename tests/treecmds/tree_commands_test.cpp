// The tree commands as the user meets them: delete and its selection rules and
// refusals, the sort flags, expand all, add (moves, and deletes of a middle or
// last variable: the Windows scenarios).
#include <vector>

#include "harness.h"
#include "platform/dv_reg.h"

namespace vd::feature_test {
namespace {

using V = std::vector<String>;

TEST(Delete, SelectsThePreviousOrNewFirstVariableOrNodeOneAndRefusesWhatIsInUse) {
  const struct {
    const char16_t* key;
    const char16_t* refusal;  // the message, nullptr when deleted
    const char16_t* selectedAfter;
    int32_t ds;  // whose names follow (0: the data sources)
    V namesAfter;
  } cases[] = {
      {u"1:1", nullptr, u"Flow", 1, {u"Flow", u"Label"}},
      {u"4:1", nullptr, u"Spare", 4, {}},
      {u"_Plant1", nullptr, u"Empty", 0, {u"Empty", u"Tank", u"Spare"}},
      {u"3:1", u"The data variable \"Limit\" is in use.", u"Limit", 3, {u"Limit"}},
      {u"_Tank3", u"The data source \"Tank\" is in use.", u"Tank", 0, {u"Plant", u"Empty", u"Tank", u"Spare"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(ToUtf8(c.key));
    Harness h(kPlantJson);
    h.dlg.SetCaption(u"Data  Selection ");  // the title is the caption as it stands
    if (c.refusal != nullptr) h.ui.ExpectMessageBox(c.refusal, forms::vbOKOnly + forms::vbExclamation);
    // Showing a variable writes its fields back: count from the delete on.
    h.user.SelectNode(h.dlg.treDataSources, c.key).Check([&] { h.inside.ClearModified(); }).Click(h.dlg.cmdDelete);
    h.user.RunAll();
    EXPECT_EQ(h.Names(c.ds), c.namesAfter);
    EXPECT_EQ(h.SelectedText(), c.selectedAfter);
    EXPECT_EQ(h.dlg.IsModified(), c.refusal == nullptr);
    for (const auto& box : h.ui.MessageBoxes()) EXPECT_EQ(box.title, String(u"Data  Selection "));
    EXPECT_EQ(h.inside.DsSortFlags().size(), h.Names(0).size());
    // The panel of what is selected now; the deleted variable is never the result.
    const bool variable = h.dlg.treDataSources.SelectedItem()->Parent() != nullptr;
    EXPECT_EQ(h.dlg.fraDsv.Visible(), variable);
    const toolkit::DsvRef result = h.dlg.GetSelectedDsv();
    EXPECT_EQ(result ? result->GetDsvName() : u"(none)", variable ? c.selectedAfter : u"(none)");
  }
}

TEST(DsSortFlags, EachDataSourceKeepsItsOwnFlagThroughViewSortMoveAddAndDelete) {
  Harness h(kPlantJson);
  const auto step = [&](const char16_t* key, forms::Control& button, const std::vector<bool>& flags, V order) {
    SCOPED_TRACE(ToUtf8(key));
    if (*key != u'\0') h.user.SelectNode(h.dlg.treDataSources, key);
    h.user.Click(button).RunAll();
    EXPECT_EQ(h.inside.DsSortFlags(), flags);
    EXPECT_EQ(h.Names(0), order);
  };
  step(u"3:1", h.dlg.chkSort, {false, false, true, false}, {u"Plant", u"Empty", u"Tank", u"Spare"});
  step(u"_Tank3", h.dlg.cmdMoveUp, {false, true, false, false}, {u"Plant", u"Tank", u"Empty", u"Spare"});
  EXPECT_TRUE(h.dlg.treDataSources.Nodes().Item(u"_Tank2")->Sorted());
  EXPECT_EQ(h.dlg.cmdMoveDown.ToolTipText(), u"Move 'Tank' down");
  step(u"", h.dlg.cmdAddDs, {false, true, false, false, false}, {u"Plant", u"Tank", u"Empty", u"Spare", u"file5.dat"});
  EXPECT_EQ(h.dlg.treDataSources.SelectedItem()->Index(), 5);  // the new, last data source
  step(u"_Plant1", h.dlg.cmdDelete, {true, false, false, false}, {u"Tank", u"Empty", u"Spare", u"file5.dat"});
  EXPECT_EQ(h.dlg.chkSort.Value(), forms::vbChecked);  // node 1, Tank, is view-sorted
}

TEST(ExpandAll, TogglesEveryNodeButNotWhileTheTreeIsFilled) {
  Harness h(kPlantJson);
  const auto expanded = [&] {
    int count = 0;
    for (int32_t i = 1; i <= h.dlg.treDataSources.Nodes().Count(); ++i)
      count += h.dlg.treDataSources.Nodes().Item(i)->Expanded() ? 1 : 0;
    return count;
  };
  h.user.Tick(h.dlg.chkExpandAll, false).RunAll();
  EXPECT_EQ(expanded(), 0);
  h.inside.SetPanelFilling(true);
  h.user.Tick(h.dlg.chkExpandAll).RunAll();
  EXPECT_EQ(expanded(), 0);
  h.inside.SetPanelFilling(false);
  h.user.Tick(h.dlg.chkExpandAll, false).Tick(h.dlg.chkExpandAll).RunAll();
  EXPECT_EQ(expanded(), 9);  // variable nodes as well
}

// Records what it is asked to add. Kind 5 adds a memory data source unless its
// text is "Refused"; a custom class "Named.X" gets a name of the toolkit's own.
struct RecordingDsList final : toolkit::DsList, toolkit::Display {
  toolkit::DsListRef inner;
  std::vector<std::pair<int32_t, String>> adds;
  int32_t DsCount() override { return inner->DsCount(); }
  toolkit::DsRef DsItem(int32_t index) override { return inner->DsItem(index); }
  toolkit::DsRef AddDs(int32_t kind, const String& text) override {
    adds.emplace_back(kind, text);
    if (kind == 5) return text == u"Refused" ? nullptr : inner->AddDs(toolkit::kind::kMemory, u"");
    toolkit::DsRef ds = inner->AddDs(kind, text);
    if (ds && text.starts_with(u"Named.")) ds->SetDsName(u"named1");
    return ds;
  }
  toolkit::DsListRef GetDataSources() override { return {std::shared_ptr<RecordingDsList>(), this}; }
};

TEST(AddDataSource, PassesKindAndCreationTextAndSelectsTheNewLastDataSource) {
  const struct {
    const char16_t* entry;
    int32_t kind;
    const char16_t* text;
    const char16_t* name;  // nullptr: refused
  } cases[] = {{u"Disk", 2, u"", u"file5.dat"},
               {u"Alarms", 105, u"Acme.Alarm", u"Alarms.custom"},
               {u"Own", 105, u"Named.Own", u"named1"},
               {u"Calc", 5, u"Calc", u"memory5"},
               {u"Refused", 5, u"Refused", nullptr}};
  for (const auto& c : cases) {
    SCOPED_TRACE(ToUtf8(c.entry));
    Harness h(kPlantJson);
    h.registry.SetValue(platform::reg::kHkeyLocalMachine, "Software\\DataViews\\DVtools\\2.6", "DVhome",
                        {platform::reg::kRegSz, "D:\\DV"});
    h.files.SetFile(u"D:\\DV\\etc\\CustomDs.dat", "Disk DVDefault.File\nAlarms Acme.Alarm\nOwn Named.Own\n");
    platform::DvReg::ResetDvHomeForTesting();  // the first run found no toolkit home
    auto recording = std::make_shared<RecordingDsList>();
    recording->inner = h.sample.display->GetDataSources();
    h.dlg.InitDBForEdit(toolkit::DisplayRef(recording, recording.get()));
    for (const char16_t* kind5 : {u"Calc", u"Refused"}) {
      h.dlg.cboDsAdd.AddItem(kind5);
      h.dlg.cboDsAdd.SetItemData(h.dlg.cboDsAdd.NewIndex(), 5);
    }
    h.user.SelectNode(h.dlg.treDataSources, u"1:2")
        .Pick(h.dlg.cboDsAdd, c.entry)
        .Check([&] { h.inside.ClearModified(); })
        .RunAll();
    const size_t flags = h.inside.DsSortFlags().size();  // every run adds its own
    h.user.Click(h.dlg.cmdAddDs).RunAll();
    platform::DvReg::ResetDvHomeForTesting();
    EXPECT_EQ(recording->adds, (std::vector<std::pair<int32_t, String>>{{c.kind, c.text}}));
    EXPECT_EQ(h.SelectedText(), c.name != nullptr ? c.name : u"Flow");
    EXPECT_EQ(h.Names(0).size(), c.name != nullptr ? 5U : 4U);
    EXPECT_EQ(h.inside.DsSortFlags().size(), flags + (c.name != nullptr ? 1 : 0));
    EXPECT_EQ(h.dlg.IsModified(), c.name != nullptr);
    EXPECT_TRUE(c.name == nullptr || h.dlg.txtDsName.Text() == c.name);
  }
}

}  // namespace
}  // namespace vd::feature_test
