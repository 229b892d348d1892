// With VD_WINVIEWS_SCREENSHOT set to a command (the run script gives one that
// captures the screen), the dialog is shown in a typical state and the command
// runs while the dialog stays on the screen, through StartProgramAndWait.
#include <cstdlib>

#include "dialog_test.h"
#include "views/wide_text.h"
#include "views/win32_ui_services.h"

namespace vd::win32::views::testing {
namespace {

TEST_F(DialogTest, ScreenshotOfTheDialog) {
  const char* command = std::getenv("VD_WINVIEWS_SCREENSHOT");
  if (command == nullptr || *command == '\0') GTEST_SKIP() << "VD_WINVIEWS_SCREENSHOT is not set";
  Win32UiServices ui(host);
  bool taken = false;
  script
      .Then("arrange",
            [&] {
              form.txtName.SetText(u"Level 3");
              form.chkExpandAll.SetValue(vd::forms::vbChecked);
              form.prgLoad.SetValue(60);
              Node(SampleForm::VarKey(1, 3))->SetSelected(true);
              SetFocus(Tree());
            })
      .Then("paint and capture", [&] {
        RedrawWindow(script.Dialog(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        taken = ui.StartProgramAndWait(vd::automation::FromUtf8(command));
      });
  script.Run();
  EXPECT_TRUE(taken);
}

}  // namespace
}  // namespace vd::win32::views::testing
