// The script file combo of a generic signal: its list, creating a file from a
// template, editing the selected file, and the wait for the editor.
#include "scada/korl_files.h"
#include "scada_harness.h"

namespace vd::feature_test {
namespace {

using forms::vbExclamation;

constexpr char16_t kNewFile[] = u"C:\\kv\\apl\\PLANT\\PICT\\New.korl";
constexpr char16_t kCreate[] = u"Create and edit new file...";
constexpr char16_t kEdit[] = u"Edit selected file...";

struct ScriptFiles : KorlHarness, ::testing::Test {
  ScriptFiles() {
    disk.SetFile(String(kPict) + u"Level.korl", "level");
    disk.SetFile(String(kPict) + u"Pump.KORL", "pump");
    disk.SetFile(String(kPict) + u"notes.txt", "notes");
    disk.AddListedName(kPict, u".");
    disk.AddListedName(kPict, u"..");
  }
  bool Pick(const char16_t* entry) const { return dlg.cmbKorlFileSelect.UserPick(entry); }
  std::vector<String> List() const {
    std::vector<String> list;
    for (int32_t i = 0; i < dlg.cmbKorlFileSelect.ListCount(); ++i) list.push_back(dlg.cmbKorlFileSelect.List(i));
    return list;
  }
  String Shown() const { return dlg.cmbKorlFileSelect.Text(); }
};

TEST_F(ScriptFiles, ListHoldsTheCommandsThenTheApplicationsScriptFilesWithTheStoredOneSelected) {
  ShowLevel();
  EXPECT_EQ(List(), (std::vector<String>{kCreate, kEdit, u"Level.korl", u"Pump.KORL"}));
  EXPECT_EQ(dlg.cmbKorlFileSelect.ListIndex(), 2);
  EXPECT_FALSE(dlg.cmdTelvaneDsvApply.Enabled());
}

TEST_F(ScriptFiles, WithoutASystemOrApplicationNumberTheCommandsEndInAMessage) {
  dlg.SetCommunication(nullptr);
  ShowLevel();
  EXPECT_EQ(List(), (std::vector<String>{kCreate, kEdit}));
  ui.AnswerInputBox(u"New.korl");
  ui.ExpectMessageBox(u"Cannot create KORL file. Check the application definition at data source level.",
                      vbExclamation);
  ASSERT_TRUE(Pick(kCreate));
  ui.ExpectMessageBox(u"Cannot open KORL file. Check the application definition at data source level.", vbExclamation);
  ASSERT_TRUE(Pick(kEdit));
  EXPECT_EQ(ui.MessageBoxes().at(0).title, dlg.Caption());

  dlg.SetCommunication(sample.scada);
  Params(0)->ParamItem(2)->SetParamValue(toolkit::paramtype::kNumber, 0.0);
  Look(u"2:1");
  ShowLevel();
  ui.ExpectMessageBox(u"Application must be defined at data source level before KORL file can be created.",
                      vbExclamation);
  ASSERT_TRUE(Pick(kCreate));  // before a name is asked
  EXPECT_EQ(ui.InputBoxes().size(), 1u);
  EXPECT_EQ(Shown(), u"Level.korl");
  EXPECT_TRUE(disk.Log().empty());
  EXPECT_TRUE(processes.Log().empty());
}

TEST_F(ScriptFiles, BadNamesAreRefusedAndCreateNothing) {
  ShowLevel();
  for (const char16_t* name : {u"C:test.KORL", u"sub\\test.KORL", u"a.kor"}) {
    ui.AnswerInputBox(name);
    ui.ExpectMessageBox(u"File name extension must be .KORL, and it must not contain drive letter or path",
                        vbExclamation);
    ASSERT_TRUE(Pick(kCreate));
    EXPECT_EQ(Shown(), u"Level.korl") << ToUtf8(name);
  }
  EXPECT_EQ(ui.InputBoxes().at(0).prompt, u"Give file name. File will be located in PICT directory ");
  EXPECT_EQ(ui.InputBoxes().at(0).title, u"KORL file");
  ui.AnswerInputBox(u"");  // cancelled: no message at all
  ASSERT_TRUE(Pick(kCreate));
  EXPECT_EQ(ui.MessageBoxes().size(), 3u);
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
  EXPECT_EQ(Shown(), u"Level.korl");
  EXPECT_TRUE(processes.Log().empty());
  ui.AnswerInputBox(u"New.korl").AnswerMessageBox(forms::vbYes);
  ASSERT_TRUE(Pick(kCreate));
  EXPECT_NE(disk.Bytes(kNewFile), "mine");
  EXPECT_EQ(Shown(), u"New.korl");
}

TEST_F(ScriptFiles, NewFileComesFromTheApplicationTemplateThenTheInstallationsThenTheDefaultText) {
  const String appTemplate = String(kPict) + u"TEMPLATEforDataChange.korl";
  const String kvTemplate = u"C:\\kv\\prog\\graphicsEngine\\support\\TEMPLATEforDataChange.korl";
  disk.SetFile(appTemplate, "app template");
  disk.SetFile(kvTemplate, "installation template");
  ShowLevel();
  for (const char16_t* name : {u"one.korl", u"two.korl", u"three.korl"}) {
    ui.AnswerInputBox(name);
    ASSERT_TRUE(Pick(kCreate));
    disk.Remove(disk.Log().size() == 1 ? appTemplate : kvTemplate);
  }
  EXPECT_EQ(disk.Log(), (std::vector<String>{u"copy " + appTemplate + u" > " + String(kPict) + u"one.korl",
                                             u"copy " + kvTemplate + u" > " + String(kPict) + u"two.korl",
                                             u"write " + String(kPict) + u"three.korl"}));
  EXPECT_EQ(disk.Bytes(kPict + String(u"one.korl")), "app template");
  EXPECT_EQ(disk.Bytes(kPict + String(u"three.korl")), automation::ToUtf8(scada::DefaultKorlTemplate()));
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
  EXPECT_EQ(sample.scada->ScriptFileNotices(), (std::vector<String>{kNewFile}));
  EXPECT_EQ(Shown(), u"New.korl");
  EXPECT_EQ(Text(3, 5), u"Level.korl");  // stored on Apply, not before
  ASSERT_TRUE(dlg.cmdTelvaneDsvApply.UserClick());
  EXPECT_EQ(Text(3, 5), u"New.korl");
}

TEST_F(ScriptFiles, EditNeedsAFileThenOpensTheApplicationPathAndTheFile) {
  ShowLevel();
  ASSERT_TRUE(Pick(kEdit));
  EXPECT_EQ(processes.Log().front(), String(u"start Notepad|") + kAppPath + u"Level.korl");
  EXPECT_EQ(sample.scada->ScriptFileNotices(), (std::vector<String>{String(kAppPath) + u"Level.korl"}));
  EXPECT_EQ(Shown(), u"Level.korl");
  EXPECT_EQ(dlg.cmbKorlFileSelect.ListIndex(), -1);
  EXPECT_FALSE(dlg.cmdTelvaneDsvApply.Enabled());
  ASSERT_TRUE(dlg.cmbKorlFileSelect.UserType(u""));
  ui.ExpectMessageBox(u"No file selected", vbExclamation);
  ASSERT_TRUE(Pick(kEdit));
  EXPECT_EQ(Shown(), u"");
  ASSERT_TRUE(Pick(u"Pump.KORL"));
  ASSERT_TRUE(Pick(kEdit));
  EXPECT_EQ(processes.Log().at(processes.Log().size() - 4), String(u"start Notepad|") + kAppPath + u"Pump.KORL");
}

TEST_F(ScriptFiles, AnEditorThatCannotStartOrAFileThatCannotBeWrittenRaisesAndGivesTheDialogBack) {
  ShowLevel();
  processes.SetStartFails(true);
  EXPECT_EQ(ErrorOf([&] { Pick(kEdit); }), automation::err::kFileNotFound);
  EXPECT_TRUE(dlg.Enabled());
  EXPECT_EQ(ui.BroughtToFront().size(), 1u);
  EXPECT_EQ(Shown(), u"Level.korl");
  EXPECT_TRUE(sample.scada->ScriptFileNotices().empty());
  processes.SetStartFails(false);
  processes.SetOpenFails(true);  // ended before it could be opened: no wait
  ASSERT_TRUE(Pick(kEdit));
  EXPECT_EQ(processes.Log().back(), u"open 4711");
  EXPECT_EQ(sample.scada->ScriptFileNotices().size(), 1u);
  disk.SetWriteError(75);
  ui.AnswerInputBox(u"New.korl");
  EXPECT_EQ(ErrorOf([&] { Pick(kCreate); }), 75);
  EXPECT_EQ(processes.Log().back(), u"open 4711");  // no editor started
}

}  // namespace
}  // namespace vd::feature_test
