// Find: the find dialog and its history, the walk over the tree in both
// directions without wrapping, the four comparison rules, and the keys that
// reach the search from any control of the dialog.
#include <string>
#include <vector>

#include "treecmds_harness.h"

namespace vd::treecmds_test {
namespace {

using forms::vbInformation;
using forms::vbOKOnly;

// Pre-order: Plant, Level, Flow, Label, Empty, Tank, LEVEL, Limit.
constexpr std::string_view kFindJson = R"({ "dataSources": [
  { "name": "Plant", "kind": "memory", "variables": [
      { "name": "Level", "type": "Double" }, { "name": "Flow", "type": "Float" },
      { "name": "Label", "type": "Text", "cols": 40 } ] },
  { "name": "Empty", "kind": "memory" },
  { "name": "Tank", "kind": "memory", "variables": [
      { "name": "LEVEL", "type": "Double" }, { "name": "Limit", "type": "Float" } ] } ] })";

struct FindRun : Harness {
  browser::frmFindDialog& find = inside.FindDialog();

  FindRun() {
    plant = DisplayFromJson(kFindJson);
    dlg.InitDBForEdit(plant);
  }
  // Selects the start node ("" for none) and searches through the find dialog.
  void Search(const char16_t* start, const String& text, bool down, bool matchCase = false, bool wholeWord = false) {
    if (*start == u'\0') {
      dlg.treDataSources.SelectedItem()->SetSelected(false);
    } else {
      user.SelectNode(dlg.treDataSources, start);
    }
    user.Click(dlg.cmdFind)
        .Type(find.cboFindWhat, text)
        .Check([this, matchCase, wholeWord, down] {
          find.chkMatchCase.SetValue(matchCase ? forms::vbChecked : forms::vbUnchecked);
          find.chkFindWholeWord.SetValue(wholeWord ? forms::vbChecked : forms::vbUnchecked);
          (down ? find.optDown : find.optUp).SetValue(true);
        })
        .Click(find.OKButton);
    user.RunAll();
  }
};

struct SearchCase {
  const char* label;
  const char16_t* start;
  const char16_t* text;
  bool down;
  bool matchCase;
  bool wholeWord;
  const char16_t* foundKey;  // nullptr: "Cannot find"
};
void PrintTo(const SearchCase& c, std::ostream* os) { *os << c.label; }

class Search : public ::testing::TestWithParam<SearchCase> {};

TEST_P(Search, WalksFromTheSelectionWithoutTestingItOrWrapping) {
  const SearchCase& c = GetParam();
  FindRun h;
  if (c.foundKey == nullptr)
    h.ui.ExpectMessageBox(u"Cannot find \"" + String(c.text) + u"\"", vbOKOnly + vbInformation);
  h.Search(c.start, c.text, c.down, c.matchCase, c.wholeWord);
  const forms::NodeRef after = h.dlg.treDataSources.SelectedItem();
  if (c.foundKey == nullptr) {
    ASSERT_EQ(h.ui.MessageBoxes().size(), 1U);
    EXPECT_EQ(h.ui.MessageBoxes()[0].title, String(u"Data Selection"));
    EXPECT_EQ(after, *c.start == u'\0' ? nullptr : h.Node(c.start));
  } else {
    EXPECT_TRUE(h.ui.MessageBoxes().empty());
    ASSERT_NE(after, nullptr);
    EXPECT_EQ(after->Key(), c.foundKey);
  }
  EXPECT_EQ(h.dlg.MousePointer(), forms::vbDefault);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Search,
    ::testing::Values(SearchCase{"up from nothing: node 1 is the start", u"", u"Plant", false, false, false, nullptr},
                      SearchCase{"down from nothing: starts after node 1", u"", u"Level", true, false, false, u"1:1"},
                      SearchCase{"up from node 1", u"_Plant1", u"Plant", false, false, false, nullptr},
                      SearchCase{"down from the last node: no wrap", u"3:2", u"Level", true, false, false, nullptr},
                      SearchCase{"up from the first node: no wrap", u"_Plant1", u"Limit", false, false, false, nullptr},
                      SearchCase{"down into the next data source", u"_Plant1", u"Limit", true, false, false, u"3:2"},
                      SearchCase{"down from a last child", u"1:3", u"Tank", true, false, false, u"_Tank3"},
                      SearchCase{"up across data sources", u"3:2", u"Flow", false, false, false, u"1:2"},
                      SearchCase{"up into the last child", u"_Tank3", u"Label", false, false, false, u"1:3"},
                      SearchCase{"up from a first child", u"1:1", u"Plant", false, false, false, u"_Plant1"},
                      SearchCase{"part, any case", u"_Plant1", u"lev", true, false, false, u"1:1"},
                      SearchCase{"part, with case", u"_Plant1", u"EVE", true, true, false, u"3:1"},
                      SearchCase{"whole text, any case", u"1:1", u"level", true, false, true, u"3:1"},
                      SearchCase{"whole text, with case", u"1:1", u"level", true, true, true, nullptr},
                      SearchCase{"whole text is not a word", u"_Plant1", u"Lev", true, false, true, nullptr}));

struct MatchCase {
  const char16_t* nodeText;
  const char16_t* text;
  bool matchCase;
  bool wholeWord;
  bool matches;
};

TEST(NodeMatches, FollowsTheFourRules) {
  const std::vector<MatchCase> cases = {
      {u"Level1", u"Lev", false, false, true},    {u"Level1", u"Lev", false, true, false},
      {u"LEVEL", u"level", false, true, true},    {u"LEVEL", u"level", true, true, false},
      {u"Level", u"Level", true, true, true},     {u"xLevelx", u"Level", true, false, true},
      {u"xLevelx", u"level", true, false, false}, {u"xLevelx", u"LEVEL", false, false, true},
      {u"Level", u"Level ", false, true, false},  {u"Lev", u"Level", false, false, false},
  };
  forms::Form form(u"f");
  forms::TreeView tree(form, u"tree");
  for (const MatchCase& c : cases) {
    SCOPED_TRACE(ToUtf8(c.nodeText) + " / " + ToUtf8(c.text));
    tree.Nodes().Clear();
    const forms::NodeRef node = tree.Nodes().Add({}, forms::tvwLast, u"k", c.nodeText);
    EXPECT_EQ(browser::DataBrowserInspector::NodeMatches(node, c.text, c.matchCase, c.wholeWord), c.matches);
  }
}

TEST(FindNode, AFoundNodeIsMadeVisibleAndSelectedWithoutItsClickHandling) {
  FindRun h;
  h.user.Tick(h.dlg.chkExpandAll, false);
  h.Search(u"_Plant1", u"Limit", true);
  ASSERT_EQ(h.dlg.treDataSources.SelectedItem()->Key(), u"3:2");
  EXPECT_TRUE(h.Node(u"_Tank3")->Expanded());
  EXPECT_FALSE(h.Node(u"_Plant1")->Expanded());
  // The panel still shows the data source that was clicked.
  EXPECT_TRUE(h.dlg.fraDs.Visible());
  EXPECT_FALSE(h.dlg.fraDsv.Visible());
  EXPECT_EQ(h.dlg.txtDsName.Text(), u"Plant");
  EXPECT_EQ(h.dlg.cmdDelete.ToolTipText(), u"Delete 'Plant' ");
}

// The form's mouse pointer, each time it changes.
struct PointerLog final : forms::PropertyObserver {
  forms::Form& form;
  std::vector<int16_t> pointers;
  explicit PointerLog(forms::Form& observed) : form(observed) { form.AddObserver(*this); }
  PointerLog(const PointerLog&) = delete;
  PointerLog& operator=(const PointerLog&) = delete;
  ~PointerLog() override { form.RemoveObserver(*this); }
  void PropertyChanged(const forms::Change& change) override {
    if (change.control == nullptr && change.property == forms::Property::kMousePointer)
      pointers.push_back(form.MousePointer());
  }
};

TEST(FindNode, ShowsTheHourglassWhileItSearchesFoundOrNot) {
  FindRun h;
  const PointerLog log(h.dlg);
  h.Search(u"_Plant1", u"Limit", true);
  EXPECT_EQ(log.pointers, (std::vector<int16_t>{forms::vbHourglass, forms::vbDefault}));
  h.ui.AnswerMessageBox();
  h.Search(u"_Plant1", u"none", true);
  EXPECT_EQ(log.pointers.size(), 4U);
  EXPECT_EQ(h.dlg.MousePointer(), forms::vbDefault);
}

TEST(FindNode, AnEmptyTreeHasNothingToSearch) {
  Harness h;
  h.dlg.InitDBForEdit(DisplayFromJson(R"({ "dataSources": [] })"));
  h.ui.ExpectMessageBox(u"There are no objects to search.", vbOKOnly);
  browser::frmFindDialog& find = h.inside.FindDialog();
  h.user.Click(h.dlg.cmdFind).Type(find.cboFindWhat, u"x").Click(find.OKButton);
  h.user.RunAll();
  EXPECT_EQ(h.ui.MessageBoxes().size(), 1U);
}

// --- The find dialog ---

TEST(FindDialog, IsOwnedByTheBrowserAndOnlyHiddenAfterUse) {
  FindRun h;
  h.user.Click(h.dlg.cmdFind)
      .Check([&] {
        EXPECT_TRUE(h.find.ShownModally());
        EXPECT_EQ(h.find.Owner(), &h.dlg);
        EXPECT_EQ(h.find.Caption(), u"Find source/variable");
        EXPECT_FALSE(h.find.OKButton.Enabled());  // nothing typed yet
      })
      .Type(h.find.cboFindWhat, u"a")
      .Check([&] { EXPECT_TRUE(h.find.OKButton.Enabled()); })
      .Type(h.find.cboFindWhat, u"")
      .Check([&] { EXPECT_FALSE(h.find.OKButton.Enabled()); })
      .Click(h.find.CancelButton);
  h.user.RunAll();
  EXPECT_TRUE(h.find.Cancelled);
  EXPECT_TRUE(h.find.Loaded());
  EXPECT_FALSE(h.find.Visible());
  EXPECT_EQ(&h.inside.FindDialog(), &h.find);
}

TEST(FindDialog, CancelRestoresTheLastConfirmedTextAndDoesNotSearch) {
  FindRun h;
  h.Search(u"_Plant1", u"Flow", true);
  ASSERT_EQ(h.dlg.treDataSources.SelectedItem()->Key(), u"1:2");
  EXPECT_FALSE(h.find.Cancelled);
  h.user.SelectNode(h.dlg.treDataSources, u"_Plant1")
      .Click(h.dlg.cmdFind)
      .Check([&] { EXPECT_EQ(h.find.cboFindWhat.Text(), u"Flow"); })
      .Type(h.find.cboFindWhat, u"Limit")
      .Click(h.find.CancelButton);
  h.user.RunAll();
  EXPECT_TRUE(h.find.Cancelled);
  EXPECT_EQ(h.find.cboFindWhat.Text(), u"Flow");
  EXPECT_EQ(h.find.LastFindText, u"Flow");
  EXPECT_EQ(h.dlg.treDataSources.SelectedItem()->Key(), u"_Plant1");
  EXPECT_TRUE(h.ui.MessageBoxes().empty());
}

TEST(FindDialog, HistoryKeepsOneEntryPerTextAndAtMostAHundred) {
  FindRun h;
  const auto confirm = [&](const String& text) {
    h.ui.AnswerMessageBox();  // nothing matches: "Cannot find"
    h.user.Click(h.dlg.cmdFind).Type(h.find.cboFindWhat, text).Click(h.find.OKButton);
    h.user.RunAll();
  };
  confirm(u"q1");
  confirm(u"Q1");  // differs in case: a second entry
  confirm(u"q1");
  ASSERT_EQ(h.find.cboFindWhat.ListCount(), 2);
  EXPECT_EQ(h.find.cboFindWhat.List(0), u"q1");
  EXPECT_EQ(h.find.cboFindWhat.List(1), u"Q1");

  for (int i = 2; i <= 100; ++i) confirm(u"q" + automation::ToDecimal(i));
  ASSERT_EQ(h.find.cboFindWhat.ListCount(), 100);
  EXPECT_EQ(h.find.cboFindWhat.List(0), u"Q1");  // the 101st text pushed out the oldest
  EXPECT_EQ(h.find.cboFindWhat.List(99), u"q100");
  confirm(u"q50");  // known already: nothing moves
  EXPECT_EQ(h.find.cboFindWhat.List(0), u"Q1");
  EXPECT_EQ(h.find.cboFindWhat.List(49), u"q50");
  EXPECT_EQ(h.find.LastFindText, u"q50");
}

// --- Keys ---

TEST(FindKeys, F3RepeatsTheLastSearchAndShiftF3GoesTheOtherWay) {
  FindRun h;
  h.Search(u"_Plant1", u"a", true, true);  // in Label and Tank, with case
  ASSERT_EQ(h.dlg.treDataSources.SelectedItem()->Key(), u"1:3");
  // F3 from a text box of the panel, then Shift+F3 from the tree.
  h.user.SelectNode(h.dlg.treDataSources, u"1:3")
      .Focus(h.dlg.txtDsvName)
      .KeyDown(h.dlg, forms::vbKeyF3)
      .Check([&] { EXPECT_EQ(h.dlg.treDataSources.SelectedItem()->Key(), u"_Tank3"); })
      .Focus(h.dlg.treDataSources)
      .KeyDown(h.dlg, forms::vbKeyF3, forms::vbShiftMask)
      .Check([&] { EXPECT_EQ(h.dlg.treDataSources.SelectedItem()->Key(), u"1:3"); });
  h.user.RunAll();
  EXPECT_TRUE(h.find.optDown.Value());  // the option itself is unchanged
  EXPECT_FALSE(h.find.optUp.Value());
  EXPECT_TRUE(h.ui.MessageBoxes().empty());
}

TEST(FindKeys, F3BeforeAnySearchOpensTheDialog) {
  Harness h;
  h.dlg.InitDBForEdit(h.plant);
  h.user.Focus(h.dlg.treDataSources)
      .KeyDown(h.dlg, forms::vbKeyF3)
      .Check([&] { EXPECT_TRUE(h.inside.FindDialog().ShownModally()); })
      .Click(h.inside.FindDialog().CancelButton);
  h.user.RunAll();
  EXPECT_FALSE(h.inside.FindDialog().Visible());
}

struct KeyCase {
  int16_t keyCode;
  int16_t shift;
  bool opens;
};

TEST(FindKeys, CtrlFOpensTheDialogWhicheverControlHasTheFocus) {
  const std::vector<KeyCase> cases = {
      {forms::vbKeyF, forms::vbCtrlMask, true},
      {forms::vbKeyF, forms::vbCtrlMask | forms::vbShiftMask, true},
      {forms::vbKeyF, forms::vbCtrlMask | forms::vbAltMask, true},
      {forms::vbKeyF, 0, false},
      {forms::vbKeyF, forms::vbShiftMask, false},
      {71, forms::vbCtrlMask, false},
  };
  for (const KeyCase& c : cases) {
    SCOPED_TRACE(std::to_string(c.keyCode) + "/" + std::to_string(c.shift));
    Harness h;
    h.dlg.InitDBForEdit(h.plant);
    for (forms::Control* focus : std::vector<forms::Control*>{&h.dlg.treDataSources, &h.dlg.txtDsName}) {
      h.user.Focus(*focus).KeyDown(h.dlg, c.keyCode, c.shift);
      if (c.opens) {
        h.user.Check([&] { EXPECT_TRUE(h.inside.FindDialog().ShownModally()); })
            .Click(h.inside.FindDialog().CancelButton);
      }
      h.user.RunAll();
      EXPECT_EQ(h.inside.FindDialogCreated(), c.opens);
    }
  }
}

}  // namespace
}  // namespace vd::treecmds_test
