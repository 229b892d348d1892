// The script file combo of a generic signal: its list, creating a file from a
// template, editing the selected file, and the wait for the editor.
#include "korl_harness.h"
#include "scada/korl_files.h"
#include "vd/forms/constants.h"

namespace vd::system_test {
namespace {

using forms::vbExclamation;

constexpr char16_t kAppNumberMessage[] =
    u"Application must be defined at data source level before KORL file can be created.";
constexpr char16_t kNameMessage[] = u"File name extension must be .KORL, and it must not contain drive letter or path";
constexpr char16_t kPrompt[] = u"Give file name. File will be located in PICT directory ";
constexpr char16_t kNewFile[] = u"C:\\kv\\apl\\PLANT\\PICT\\New.korl";

struct ScriptFiles : KorlHarness, ::testing::Test {
  ScriptFiles() {
    disk.SetFile(String(kPict) + u"Level.korl", "level");
    disk.SetFile(String(kPict) + u"Pump.KORL", "pump");
    disk.SetFile(String(kPict) + u"notes.txt", "notes");
    disk.AddListedName(kPict, u".");
    disk.AddListedName(kPict, u"..");
  }
  bool Pick(const char16_t* entry) const { return dlg.cmbKorlFileSelect.UserPick(entry); }
};

TEST_F(ScriptFiles, ListHoldsTheCommandsThenTheApplicationsScriptFilesWithTheStoredOneSelected) {
  ShowLevel();
  EXPECT_EQ(ComboList(), (std::vector<String>{kCreate, kEdit, u"Level.korl", u"Pump.KORL"}));
  EXPECT_EQ(dlg.cmbKorlFileSelect.ListIndex(), 2);
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"Level.korl");
  EXPECT_FALSE(dlg.cmdTelvaneDsvApply.Enabled());
}

TEST_F(ScriptFiles, WithoutASystemOnlyTheCommandsAndBothEndInTheApplicationMessage) {
  dlg.SetCommunication(nullptr);
  ShowLevel();
  EXPECT_EQ(ComboList(), (std::vector<String>{kCreate, kEdit}));
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"Level.korl");
  ui.AnswerInputBox(u"New.korl");
  ui.ExpectMessageBox(u"Cannot create KORL file. Check the application definition at data source level.",
                      vbExclamation);
  ASSERT_TRUE(Pick(kCreate));
  ui.ExpectMessageBox(u"Cannot open KORL file. Check the application definition at data source level.", vbExclamation);
  ASSERT_TRUE(Pick(kEdit));
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"Level.korl");
  EXPECT_EQ(ui.MessageBoxes().at(0).title, dlg.Caption());
  EXPECT_TRUE(disk.Log().empty());
  EXPECT_TRUE(processes.Log().empty());
}

TEST_F(ScriptFiles, CreateChecksTheApplicationNumberBeforeAskingForAName) {
  Params(0)->ParamItem(2)->SetParamValue(toolkit::paramtype::kNumber, 0.0);
  ShowLevel();
  ui.ExpectMessageBox(kAppNumberMessage, vbExclamation);
  ASSERT_TRUE(Pick(kCreate));
  EXPECT_TRUE(ui.InputBoxes().empty());
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"Level.korl");
}

TEST_F(ScriptFiles, BadNamesAreRefusedAndCreateNothing) {
  ShowLevel();
  for (const char16_t* name : {u"C:test.KORL", u"sub\\test.KORL", u".KORL", u"test.txt", u"a.kor"}) {
    ui.AnswerInputBox(name);
    ui.ExpectMessageBox(kNameMessage, vbExclamation);
    ASSERT_TRUE(Pick(kCreate));
    EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"Level.korl") << ToUtf8(name);
  }
  const auto& asked = ui.InputBoxes().at(0);
  EXPECT_EQ(asked.prompt, kPrompt);
  EXPECT_EQ(asked.title, u"KORL file");
  ui.AnswerInputBox(u"");  // cancelled: no message at all
  ASSERT_TRUE(Pick(kCreate));
  EXPECT_EQ(ui.MessageBoxes().size(), 5u);
  EXPECT_TRUE(disk.Log().empty());
  EXPECT_TRUE(processes.Log().empty());
  EXPECT_FALSE(dlg.cmdTelvaneDsvApply.Enabled());
}

TEST_F(ScriptFiles, OverwriteQuestionNoLeavesFileAndComboYesCreatesAgain) {
  disk.SetFile(kNewFile, "mine");
  ShowLevel();
  ui.AnswerInputBox(u"New.korl");
  ui.ExpectMessageBox(String(kNewFile) + u" already exists.\r\nDo you want to overwrite it?",
                      forms::vbYesNo + vbExclamation + forms::vbDefaultButton2, forms::vbNo);
  ASSERT_TRUE(Pick(kCreate));
  EXPECT_EQ(disk.Bytes(kNewFile), "mine");
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"Level.korl");
  EXPECT_TRUE(processes.Log().empty());

  ui.AnswerInputBox(u"New.korl");
  ui.AnswerMessageBox(forms::vbYes);
  ASSERT_TRUE(Pick(kCreate));
  EXPECT_NE(disk.Bytes(kNewFile), "mine");
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"New.korl");
}

TEST_F(ScriptFiles, NewFileComesFromTheApplicationTemplateThenTheInstallationsThenTheDefaultText) {
  const String appTemplate = String(kPict) + u"TEMPLATEforDataChange.korl";
  const String kvTemplate = u"C:\\kv\\prog\\graphicsEngine\\support\\TEMPLATEforDataChange.korl";
  disk.SetFile(appTemplate, "app template");
  disk.SetFile(kvTemplate, "installation template");
  ShowLevel();
  ui.AnswerInputBox(u"one.korl");
  ASSERT_TRUE(Pick(kCreate));
  disk.Remove(appTemplate);
  ui.AnswerInputBox(u"two.korl");
  ASSERT_TRUE(Pick(kCreate));
  disk.Remove(kvTemplate);
  ui.AnswerInputBox(u"three.korl");
  ASSERT_TRUE(Pick(kCreate));
  EXPECT_EQ(disk.Log(), (std::vector<String>{u"copy " + appTemplate + u" > " + String(kPict) + u"one.korl",
                                             u"copy " + kvTemplate + u" > " + String(kPict) + u"two.korl",
                                             u"write " + String(kPict) + u"three.korl"}));
  EXPECT_EQ(disk.Bytes(kPict + String(u"one.korl")), "app template");
  EXPECT_EQ(disk.Bytes(kPict + String(u"two.korl")), "installation template");
  const std::string written = disk.Bytes(kPict + String(u"three.korl"));
  EXPECT_EQ(written.size(), scada::DefaultKorlTemplate().size());  // one byte per character
  EXPECT_EQ(written.substr(0, 33), "; Script file template location\r\n");
  EXPECT_EQ(written.substr(written.size() - 24), "#RETURN %L_INPUT.VALUE\r\n");
}

TEST_F(ScriptFiles, CreateOpensTheEditorWithTheDialogDisabledThenTellsTheSystem) {
  ShowLevel();
  std::vector<bool> enabledWhileEditing;
  processes.SetRunningPolls(2);
  processes.onDoEvents = [&] { enabledWhileEditing.push_back(dlg.Enabled()); };
  ui.AnswerInputBox(u"New.korl");
  ASSERT_TRUE(Pick(kCreate));
  EXPECT_EQ(processes.Log(), (std::vector<String>{u"start Notepad|" + String(kNewFile), u"open 4711", u"wait 10",
                                                  u"events", u"wait 10", u"events", u"wait 10", u"close"}));
  EXPECT_EQ(enabledWhileEditing, (std::vector<bool>{false, false}));
  EXPECT_EQ(processes.OpenHandles(), 0);
  EXPECT_TRUE(dlg.Enabled());
  EXPECT_EQ(ui.BroughtToFront(), (std::vector<String>{u"frmDataBrowser"}));
  EXPECT_EQ(scada.scada->ScriptFileNotices(), (std::vector<String>{kNewFile}));
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"New.korl");
  EXPECT_TRUE(dlg.cmdTelvaneDsvApply.Enabled());
  EXPECT_EQ(Text(3, 5), u"Level.korl");  // stored on Apply, not before
  dlg.cmdTelvaneDsvApply.UserClick();    // the combo's LostFocus applies already
  EXPECT_EQ(Text(3, 5), u"New.korl");
}

TEST_F(ScriptFiles, EditNeedsAFileThenOpensTheApplicationPathAndTheFile) {
  ShowLevel();
  ASSERT_TRUE(Pick(kEdit));
  EXPECT_EQ(processes.Log().front(), String(u"start Notepad|") + kAppPath + u"Level.korl");
  EXPECT_EQ(scada.scada->ScriptFileNotices(), (std::vector<String>{String(kAppPath) + u"Level.korl"}));
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"Level.korl");
  EXPECT_EQ(dlg.cmbKorlFileSelect.ListIndex(), -1);
  EXPECT_FALSE(dlg.cmdTelvaneDsvApply.Enabled());

  ASSERT_TRUE(dlg.cmbKorlFileSelect.UserType(u""));
  ui.ExpectMessageBox(u"No file selected", vbExclamation);
  ASSERT_TRUE(Pick(kEdit));
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"");
  ASSERT_TRUE(Pick(u"Pump.KORL"));
  ASSERT_TRUE(Pick(kEdit));
  EXPECT_EQ(processes.Log().at(processes.Log().size() - 4), String(u"start Notepad|") + kAppPath + u"Pump.KORL");
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"Pump.KORL");
}

TEST_F(ScriptFiles, AnEditorThatCannotStartRaisesAndGivesTheDialogBack) {
  ShowLevel();
  processes.SetStartFails(true);
  EXPECT_EQ(ErrorOf([&] { Pick(kEdit); }), automation::err::kFileNotFound);
  EXPECT_TRUE(dlg.Enabled());
  EXPECT_EQ(ui.BroughtToFront().size(), 1u);
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"Level.korl");
  EXPECT_TRUE(scada.scada->ScriptFileNotices().empty());

  processes.SetStartFails(false);
  processes.SetOpenFails(true);  // ended before it could be opened: no wait
  ASSERT_TRUE(Pick(kEdit));
  EXPECT_EQ(processes.Log().back(), u"open 4711");
  EXPECT_EQ(scada.scada->ScriptFileNotices().size(), 1u);
}

TEST_F(ScriptFiles, AFileThatCannotBeWrittenRaisesAndNoEditorStarts) {
  ShowLevel();
  disk.SetWriteError(75);
  ui.AnswerInputBox(u"New.korl");
  EXPECT_EQ(ErrorOf([&] { Pick(kCreate); }), 75);
  EXPECT_TRUE(processes.Log().empty());
  EXPECT_EQ(dlg.cmbKorlFileSelect.Text(), u"Level.korl");
}

}  // namespace
}  // namespace vd::system_test
