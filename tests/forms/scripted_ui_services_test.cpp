#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "event_log_form.h"
#include "vd/forms/testing/scripted_ui_services.h"

namespace vd::forms::test {
namespace {

using testing::ScriptedUiServices;

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

}  // namespace
}  // namespace vd::forms::test
