// Find: the walk over the tree in both directions without wrapping, the four
// comparison rules, the find dialog and its history, and the find keys.
#include <string>
#include <vector>

#include "harness.h"

namespace vd::feature_test {
namespace {

// Pre-order: Plant, Level, Flow, Label, Empty, Tank, LEVEL, Limit.
constexpr std::string_view kFindJson = R"({ "dataSources": [
  { "name": "Plant", "kind": "memory", "variables": [ { "name": "Level", "type": "Double" },
      { "name": "Flow", "type": "Float" }, { "name": "Label", "type": "Text", "cols": 40 } ] },
  { "name": "Empty", "kind": "memory" },
  { "name": "Tank", "kind": "memory", "variables": [ { "name": "LEVEL", "type": "Double" },
      { "name": "Limit", "type": "Float" } ] } ] })";

struct FindRun : Harness {
  browser::frmFindDialog& find = inside.FindDialog();
  FindRun() : Harness(kFindJson) {}
  // From the node with this key ("" for none), through the find dialog.
  void Search(const char16_t* start, const String& text, bool down, bool matchCase = false, bool wholeWord = false) {
    if (*start == u'\0') {
      dlg.treDataSources.SelectedItem()->SetSelected(false);
    } else {
      user.SelectNode(dlg.treDataSources, start);
    }
    user.Click(dlg.cmdFind)
        .Type(find.cboFindWhat, text)
        .Check([=, this] {
          find.chkMatchCase.SetValue(matchCase ? forms::vbChecked : forms::vbUnchecked);
          find.chkFindWholeWord.SetValue(wholeWord ? forms::vbChecked : forms::vbUnchecked);
          (down ? find.optDown : find.optUp).SetValue(true);
        })
        .Click(find.OKButton)
        .RunAll();
  }
  [[nodiscard]] String SelectedKey() const {
    const forms::NodeRef node = dlg.treDataSources.SelectedItem();
    return node ? node->Key() : String();
  }
};

TEST(FindNode, WalksFromTheSelectionWithoutTestingItOrWrapping) {
  const struct {
    const char16_t* start;
    const char16_t* text;
    bool down, matchCase, wholeWord;
    const char16_t* found;  // the key, nullptr: "Cannot find"
  } cases[] = {
      {u"", u"Plant", false, false, false, nullptr},  // nothing selected: node 1 is the start
      {u"", u"Level", true, false, false, u"1:1"},
      {u"3:2", u"Level", true, false, false, nullptr},  // no wrap at the end
      {u"_Plant1", u"Limit", false, false, false, nullptr},
      {u"1:3", u"Tank", true, false, false, u"_Tank3"},    // from a last child to the parent's next
      {u"_Tank3", u"Label", false, false, false, u"1:3"},  // up into the previous node's last child
      {u"1:1", u"Plant", false, false, false, u"_Plant1"},
      {u"_Plant1", u"lev", true, false, false, u"1:1"},
      {u"_Plant1", u"EVE", true, true, false, u"3:1"},
      {u"1:1", u"level", true, false, true, u"3:1"},
      {u"1:1", u"level", true, true, true, nullptr},
      {u"_Plant1", u"Lev", true, false, true, nullptr},  // the whole text, not a word in it
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(ToUtf8(c.start) + " " + ToUtf8(c.text) + (c.down ? " down" : " up"));
    FindRun h;
    if (c.found == nullptr)
      h.ui.ExpectMessageBox(u"Cannot find \"" + String(c.text) + u"\"", forms::vbOKOnly + forms::vbInformation);
    h.Search(c.start, c.text, c.down, c.matchCase, c.wholeWord);
    EXPECT_EQ(h.SelectedKey(), c.found != nullptr ? c.found : c.start);
    EXPECT_EQ(h.ui.MessageBoxes().size(), c.found != nullptr ? 0U : 1U);
    for (const auto& box : h.ui.MessageBoxes()) EXPECT_EQ(box.title, String(u"Data Selection"));
  }
}

// The form's own mouse pointer, each time it changes.
struct PointerLog final : forms::PropertyObserver {
  std::vector<int16_t> seen;
  void PropertyChanged(const forms::Change& c) override {
    if (c.control == nullptr && c.property == forms::Property::kMousePointer) seen.push_back(c.form->MousePointer());
  }
};

TEST(FindNode, SelectsAndShowsTheNodeWithoutItsClickHandlingUnderTheHourglass) {
  FindRun h;
  PointerLog log;
  h.dlg.AddObserver(log);
  h.user.Tick(h.dlg.chkExpandAll, false).RunAll();
  h.Search(u"_Plant1", u"Limit", true);
  h.dlg.RemoveObserver(log);
  EXPECT_EQ(log.seen, (std::vector<int16_t>{forms::vbHourglass, forms::vbDefault}));
  EXPECT_EQ(h.SelectedKey(), u"3:2");
  EXPECT_TRUE(h.dlg.treDataSources.Nodes().Item(u"_Tank3")->Expanded());
  EXPECT_FALSE(h.dlg.treDataSources.Nodes().Item(u"_Plant1")->Expanded());
  EXPECT_EQ(h.dlg.txtDsName.Text(), u"Plant");  // the panel stays until the user clicks

  Harness empty(R"({ "dataSources": [] })");
  empty.ui.ExpectMessageBox(u"There are no objects to search.", forms::vbOKOnly);
  browser::frmFindDialog& find = empty.inside.FindDialog();
  empty.user.Click(empty.dlg.cmdFind).Type(find.cboFindWhat, u"x").Click(find.OKButton).RunAll();
}

TEST(FindDialog, OwnedHiddenAfterUseCancelUndoesTheEditAndTheHistoryKeepsAHundred) {
  FindRun h;
  h.user.Click(h.dlg.cmdFind)
      .Check([&] { EXPECT_TRUE(h.find.Owner() == &h.dlg && !h.find.OKButton.Enabled()); })
      .Type(h.find.cboFindWhat, u"Flow")
      .Click(h.find.OKButton)
      .Click(h.dlg.cmdFind)
      .Type(h.find.cboFindWhat, u"")
      .Check([&] { EXPECT_FALSE(h.find.OKButton.Enabled()); })
      .Type(h.find.cboFindWhat, u"Limit")
      .Click(h.find.CancelButton)
      .RunAll();
  EXPECT_TRUE(h.find.Cancelled && h.find.Loaded() && !h.find.Visible());
  EXPECT_EQ(h.find.cboFindWhat.Text(), u"Flow");
  EXPECT_EQ(h.SelectedKey(), u"1:2");  // no search after Cancel
  // "FLOW" differs in case: an entry of its own; "Flow" is known: nothing moves.
  for (int i = 1; i <= 101; ++i) {
    h.ui.AnswerMessageBox();  // "Cannot find"
    const String text = i == 1 ? u"FLOW" : i == 2 ? u"Flow" : u"q" + automation::ToDecimal(i);
    h.user.Click(h.dlg.cmdFind).Type(h.find.cboFindWhat, text).Click(h.find.OKButton).RunAll();
  }
  ASSERT_EQ(h.find.cboFindWhat.ListCount(), 100);
  EXPECT_EQ(h.find.cboFindWhat.List(0), u"FLOW");  // the 101st text pushed out the oldest
  EXPECT_EQ(h.find.cboFindWhat.List(99), u"q101");
  EXPECT_EQ(h.find.LastFindText, u"q101");
}

// F3 asks for a text while none is confirmed, then repeats the search from any
// control, Shift+F3 the other way; Ctrl+F opens the dialog, with Alt as well.
TEST(FindKeys, F3RepeatsShiftF3ReversesAndCtrlFOpensTheDialog) {
  FindRun h;
  h.user.KeyDown(h.dlg, forms::vbKeyF3).Check([&] { EXPECT_TRUE(h.find.ShownModally()); }).Click(h.find.CancelButton);
  h.Search(u"_Plant1", u"a", true, true);  // in Label and Tank, with case
  h.user.Focus(h.dlg.txtDsName)
      .KeyDown(h.dlg, forms::vbKeyF3)
      .Check([&] { EXPECT_EQ(h.SelectedKey(), u"_Tank3"); })
      .KeyDown(h.dlg, forms::vbKeyF3, forms::vbShiftMask)
      .Check([&] { EXPECT_EQ(h.SelectedKey(), u"1:3"); })
      .KeyDown(h.dlg, forms::vbKeyF, forms::vbCtrlMask | forms::vbAltMask)
      .Check([&] { EXPECT_TRUE(h.find.ShownModally()); })
      .Click(h.find.CancelButton)
      .KeyDown(h.dlg, 71, forms::vbCtrlMask)  // Ctrl+G: nothing
      .RunAll();
  EXPECT_TRUE(h.find.optDown.Value());  // the option itself is unchanged
  EXPECT_TRUE(h.ui.MessageBoxes().empty());
}

}  // namespace
}  // namespace vd::feature_test
