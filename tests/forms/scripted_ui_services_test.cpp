#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "event_log_form.h"
#include "vd/forms/testing/scripted_ui_services.h"

namespace vd::forms::test {
namespace {

using testing::ScriptedUiServices;

TEST(ScriptedUiServices, AnswersFromTheQueueInOrderAndRecordsEveryCall) {
  EventLogForm form;
  ScriptedUiServices ui;
  ui.AnswerMessageBox(vbNo).AnswerInputBox(u"new.KORL").AnswerOpenFile(u"C:\\data\\plant.dat").AnswerMessageBox();
  UiServices& services = ui;
  EXPECT_EQ(services.MsgBox(u"x.KORL already exists.\r\nDo you want to overwrite it?",
                            vbYesNo + vbExclamation + vbDefaultButton2, String(u"Data Selection")),
            vbNo);
  EXPECT_EQ(services.InputBox(u"Give file name. File will be located in PICT directory ", u"KORL file", u""),
            u"new.KORL");
  EXPECT_EQ(services.OpenFileDialog(&form, u"File Datasource Origin", u"Data Files (*.dat)|*.dat|", u"", 0x2A0024),
            u"C:\\data\\plant.dat");
  EXPECT_EQ(services.MsgBox(u"Unable to load applications", vbOKOnly, std::nullopt), vbOK);
  services.SetScreenMousePointer(vbHourglass);
  services.SetScreenMousePointer(vbDefault);
  services.BringToFront(form);
  services.RefreshNow(form.lblName);

  ASSERT_EQ(ui.MessageBoxes().size(), 2u);
  EXPECT_EQ(ui.MessageBoxes()[0].style, vbYesNo + vbExclamation + vbDefaultButton2);
  EXPECT_EQ(ui.MessageBoxes()[0].title, String(u"Data Selection"));
  EXPECT_EQ(ui.MessageBoxes()[1].text, u"Unable to load applications");
  EXPECT_FALSE(ui.MessageBoxes()[1].title.has_value());
  ASSERT_EQ(ui.InputBoxes().size(), 1u);
  EXPECT_EQ(ui.InputBoxes()[0].title, u"KORL file");
  ASSERT_EQ(ui.OpenFileCalls().size(), 1u);
  EXPECT_EQ(ui.OpenFileCalls()[0].owner, u"frmEvents");
  EXPECT_EQ(ui.OpenFileCalls()[0].flags, 0x2A0024u);
  EXPECT_EQ(ui.ScreenPointers(), (std::vector<int16_t>{vbHourglass, vbDefault}));
  EXPECT_EQ(ui.BroughtToFront(), std::vector<String>{u"frmEvents"});
  EXPECT_EQ(ui.Repainted(), std::vector<String>{u"lblName"});
  EXPECT_EQ(ui.PendingAnswers(), 0u);
}

TEST(ScriptedUiServices, AProgramRunsItsScriptedWorkBeforeTheWaitEnds) {
  ScriptedUiServices ui;
  bool edited = false;
  ui.AnswerStartProgram(true, [&] { edited = true; }).AnswerStartProgram(false, [&] { edited = false; });
  EXPECT_TRUE(ui.StartProgramAndWait(u"Notepad C:\\apl\\PICT\\a.korl"));
  EXPECT_TRUE(edited);
  EXPECT_FALSE(ui.StartProgramAndWait(u"Notepad b.korl"));
  EXPECT_TRUE(edited) << "a program that did not start ran no work";
  EXPECT_EQ(ui.StartedPrograms().size(), 2u);
}

TEST(ScriptedUiServices, FailsTheTestOnCallsItDidNotExpect) {
  const struct {
    const char* name;
    std::function<void(ScriptedUiServices&)> script;
    std::function<void(UiServices&)> call;
    const char* message;
  } cases[] = {
      {"NoAnswerLeft", [](ScriptedUiServices&) {},
       [](UiServices& ui) { ui.MsgBox(u"Cannot find \"x\"", vbInformation, std::nullopt); },
       "unexpected a message box: \"Cannot find \"x\"\""},
      {"OtherKind", [](ScriptedUiServices& ui) { ui.AnswerInputBox(u"a"); },
       [](UiServices& ui) { ui.MsgBox(u"No file selected", vbExclamation, std::nullopt); },
       "expected an input box, got a message box"},
      {"OtherText",
       [](ScriptedUiServices& ui) { ui.ExpectMessageBox(u"The data source \"A\" is in use.", vbExclamation); },
       [](UiServices& ui) { ui.MsgBox(u"The data source \"A\"  is in use.", vbExclamation, std::nullopt); },
       "message box text"},
      {"OtherStyle", [](ScriptedUiServices& ui) { ui.ExpectMessageBox(u"No file selected", vbExclamation); },
       [](UiServices& ui) { ui.MsgBox(u"No file selected", vbInformation, std::nullopt); }, "style of the message box"},
  };
  for (const auto& c : cases) {
    ScriptedUiServices ui;
    c.script(ui);
    SCOPED_TRACE(c.name);
    EXPECT_NONFATAL_FAILURE(c.call(ui), c.message);
  }
}

TEST(ScriptedUiServices, FailsTheTestWhenAnswersAreLeftOver) {
  EXPECT_NONFATAL_FAILURE(
      {
        ScriptedUiServices ui;
        ui.AnswerOpenFile(u"x.dat");
      },
      "1 scripted answer(s) never used; the first is for an open-file dialog");
}

TEST(ScriptedUiServices, UnexpectedCallsAnswerAsACancel) {
  ScriptedUiServices ui;
  String text = u"not empty";
  int32_t button = 0;
  EXPECT_NONFATAL_FAILURE(text = ui.InputBox(u"p", u"t", u"d"), "unexpected an input box");
  EXPECT_NONFATAL_FAILURE(button = ui.MsgBox(u"m", vbYesNo, std::nullopt), "unexpected a message box");
  EXPECT_EQ(text, u"");
  EXPECT_EQ(button, vbOK);
}

}  // namespace
}  // namespace vd::forms::test
