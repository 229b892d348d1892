// The mapping frame of a SCADA variable: what a fill shows, what an edit
// stores and when, Undo, Validate and the item id box.
#include "scada_harness.h"

namespace vd::feature_test {
namespace {

using forms::vbExclamation;
using forms::vbInformation;

TEST(Mapping, FillShowsTheStoredMappingAndTheSignalTypesControls) {
  const struct {
    const char16_t* key;
    const char16_t* reference;
    int32_t listIndex;
    bool swap01, swaps, varInfo, korl;
  } cases[] = {
      {u"2:1", u"P101:POV10", 0, true, true, false, false}, {u"2:2", u"P101:POV11", 1, false, false, true, false},
      {u"2:3", u"LT1:POV1", 2, false, false, false, true},  {u"2:4", u"", 0, false, true, false, false},
      {u"2:5", u"WD1:BOV", 0, false, true, false, false},   {u"2:6", u"P101:POV10", -1, false, true, false, false}};
  ScadaHarness h;
  for (const auto& c : cases) {
    SCOPED_TRACE(ToUtf8(c.key));
    h.Look(c.key);
    const auto& d = h.dlg;
    EXPECT_EQ(d.txtTelvaneObjectReference.Text(), c.reference);
    EXPECT_EQ(d.cboTelvaneSignalType.ListIndex(), c.listIndex);
    EXPECT_EQ(d.optTelvaneSwap01.Value(), c.swap01);
    EXPECT_EQ(d.frmTelvaneSwapValues.Visible(), c.swaps);
    EXPECT_EQ(d.txtVarInfo.Visible() && d.lblVarInfo.Visible(), c.varInfo);
    EXPECT_EQ(d.cmbKorlFileSelect.Visible() && d.lblKorlFileSelect.Visible(), c.korl);
    EXPECT_EQ(d.optTelvaneSwap12.Enabled(), c.listIndex == 0);
    EXPECT_FALSE(d.cmdTelvaneDsvApply.Enabled() || d.cmdTelvaneDsvUndo.Enabled());
    EXPECT_TRUE(!c.varInfo || d.txtVarInfo.Text() == u"3,5,7");
  }
}

TEST(Mapping, ControlsThatApplyAtOnceStoreTheCodeAndTheOthersWait) {
  ScadaHarness h;
  h.Look(u"2:1");
  ASSERT_TRUE(h.dlg.optTelvaneSwap12.UserClick());
  EXPECT_EQ(automation::CLng(h.Param(1, 3)), 32);
  EXPECT_TRUE(h.dlg.IsModified());
  ASSERT_TRUE(h.dlg.txtTelvaneObjectReference.UserType(u"p101:pov10"));  // same but for case
  EXPECT_FALSE(h.dlg.cmdTelvaneDsvApply.Enabled());
  ASSERT_TRUE(h.dlg.txtTelvaneObjectReference.UserType(u"p102:pov10"));
  EXPECT_TRUE(h.dlg.cmdTelvaneDsvApply.Enabled() && h.dlg.cmdTelvaneDsvUndo.Enabled());
  EXPECT_EQ(h.Text(1, 2), u"\\\\APL\\1\\P\\P101\\10:OV");
  ASSERT_TRUE(h.dlg.cboTelvaneSignalType.UserPick(u"Status color"));  // the focus leaves: applied first
  EXPECT_EQ(h.Text(1, 2), u"\\\\APL\\1\\P\\P102\\10:OV");
  EXPECT_EQ(h.dlg.txtTelvaneObjectReference.Text(), u"P102:POV10");
  EXPECT_EQ(automation::CLng(h.Param(1, 3)), 33);
  ASSERT_TRUE(h.dlg.txtVarInfo.UserTypeKeys(u"4,"));
  EXPECT_EQ(h.Text(1, 4), u"4,");  // every keystroke is stored
  h.Look(u"2:6");                  // a type without a list entry keeps its code
  ASSERT_TRUE(h.dlg.txtTelvaneObjectReference.UserType(u"P9:POV"));
  ASSERT_TRUE(h.dlg.cboTelvaneSignalType.UserFocus());  // leaving the box applies
  EXPECT_EQ(automation::CLng(h.Param(6, 3)), 5);
  EXPECT_EQ(h.Text(6, 2), u"\\\\APL\\1\\P\\P9:OV");
}

TEST(Mapping, ABadReferenceStoresOnlyTheScriptFileAndUndoShowsTheStoredOne) {
  ScadaHarness h;
  h.Look(u"2:3");
  ASSERT_TRUE(h.dlg.cmbKorlFileSelect.UserType(u"New.korl"));
  EXPECT_EQ(h.Text(3, 5), u"Level.korl");
  ASSERT_TRUE(h.dlg.txtTelvaneObjectReference.UserType(u"lt1"));
  ASSERT_TRUE(h.dlg.cmdTelvaneDsvApply.UserClick());
  EXPECT_EQ(h.Text(3, 2), u"\\\\APL\\1\\P\\LT1\\1:OV");
  EXPECT_EQ(h.Text(3, 5), u"New.korl");
  EXPECT_EQ(h.dlg.txtTelvaneObjectReference.Text(), u"LT1");
  ASSERT_TRUE(h.dlg.cmdTelvaneDsvUndo.UserClick());
  EXPECT_EQ(h.dlg.txtTelvaneObjectReference.Text(), u"LT1:POV1");
  EXPECT_FALSE(h.dlg.cmdTelvaneDsvUndo.Enabled());
  EXPECT_TRUE(h.ui.MessageBoxes().empty());
}

// Validate and a click on the reference's label answer in their own words and store nothing.
TEST(Mapping, ValidateAndTheLabelAnswerInTheirOwnWordsAndStoreNothing) {
  const std::tuple<bool, const char16_t*, const char16_t*, int32_t> cases[] = {
      {false, u"p101:pov10", u"Object reference \"P101:POV10\" is valid.\r\n\r\nCurrent value: \"1\"", forms::vbOKOnly},
      {false, u"LT1:POV1", u"Object reference \"LT1:POV1\" is valid.\r\n\r\nCurrent value: \"<vector>\"",
       forms::vbOKOnly},
      {false, u"X:POV",
       u"Could not validate object reference \"X:POV\".\r\n\r\nGenerated OPC itemid: \\\\APL\\1\\P\\X:OV",
       vbExclamation},
      {false, u"STA:", u"Invalid object reference: \"STA:\"", vbExclamation},
      {true, u"A:SOV3", u"Current itemID: \t\\\\APL\\1\\S\\A:OV(3)\r\nStored itemID: \t\\\\APL\\1\\P\\P101\\10:OV",
       vbInformation},
      {true, u"a", u"Invalid object reference: \"a\"", vbInformation}};
  ScadaHarness h;
  h.Look(u"2:1");
  for (const auto& [label, reference, text, style] : cases) {
    h.ui.ExpectMessageBox(text, style);
    h.dlg.txtTelvaneObjectReference.SetText(reference);
    ASSERT_TRUE(label ? h.dlg.lblObjectReference.UserClick() : h.dlg.cmdTelvaneDsvValidate.UserClick());
    EXPECT_EQ(h.ui.MessageBoxes().back().title, h.dlg.Caption());
  }
  h.sample.scada->SetSystemDown(true);  // raises on every call
  h.ui.ExpectMessageBox(std::get<2>(cases[2]), vbExclamation);
  h.dlg.txtTelvaneObjectReference.SetText(u"X:POV");
  ASSERT_TRUE(h.dlg.cmdTelvaneDsvValidate.UserClick());
  EXPECT_EQ(h.Text(1, 2), u"\\\\APL\\1\\P\\P101\\10:OV");
}

}  // namespace
}  // namespace vd::feature_test
