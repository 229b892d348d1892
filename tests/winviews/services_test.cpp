// The Windows UI services, called from the form's handlers while its dialog is shown.
#include <atomic>
#include <string>

#include "dialog_test.h"
#include "views/control_lookup.h"
#include "views/cursors.h"
#include "views/input_box.h"
#include "views/wide_text.h"
#include "views/win32_ui_services.h"

namespace vd::win32::views::testing {
namespace {

using vd::forms::vbExclamation;
using vd::forms::vbQuestion;
using vd::forms::vbYesNo;

class ServicesTest : public DialogTest {
 protected:
  Win32UiServices ui{host};
};

TEST_F(ServicesTest, MessageBoxIsOwnedByTheDialogWithItsTitleTextAndAnswer) {
  int32_t answer = 0;
  HWND box = nullptr;
  form.applyAction = [&] { answer = ui.MsgBox(u"Delete 'Level'?", vbYesNo + vbQuestion, String(u"Data Selection")); };
  script.Then("click", [&] { PostClick(Win(form.cmdApply)); })
      .WaitFor("the box", [&] { return (box = FindOwnedDialog(script.Dialog())) != nullptr; })
      .Then("check and answer Yes",
            [&] {
              EXPECT_EQ(Narrow(WindowText(box)), "Data Selection");
              EXPECT_EQ(Narrow(MessageBoxText(box)), "Delete 'Level'?");
              EXPECT_EQ(MessageBoxIcon(box), LoadIconW(nullptr, IDI_QUESTION));
              EXPECT_NE(GetDlgItem(box, IDYES), nullptr);
              EXPECT_NE(GetDlgItem(box, IDNO), nullptr);
              PostMessageW(box, WM_COMMAND, MAKEWPARAM(IDYES, BN_CLICKED), 0);
            })
      .WaitFor("the answer", [&] { return answer != 0; });
  script.Run();
  EXPECT_EQ(answer, vd::forms::vbYes);
}

TEST_F(ServicesTest, MessageBoxWithoutTitleShowsTheApplicationsName) {
  HWND box = nullptr;
  form.applyAction = [&] { ui.MsgBox(u"Done", vbExclamation, std::nullopt); };
  script.Then("click", [&] { PostClick(Win(form.cmdApply)); })
      .WaitFor("the box", [&] { return (box = FindOwnedDialog(script.Dialog())) != nullptr; })
      .Then("check and close",
            [&] {
              EXPECT_EQ(Narrow(WindowText(box)), "vd_winviews_tests");
              EXPECT_EQ(Narrow(ui.ApplicationTitle()), "vd_winviews_tests");
              PostMessageW(box, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
            })
      .WaitFor("the box to go", [&] { return !IsWindow(box); });
  script.Run();
}

// OK with a name typed: the KORL file scenario (korl_create.robot).
TEST_F(ServicesTest, InputBoxCancelledAnswersNothing) {
  String answer = u"(not answered)";
  HWND box = nullptr;
  form.applyAction = [&] { answer = ui.InputBox(u"New name of the data source:", u"Rename", u"Plant"); };
  script.Then("click", [&] { PostClick(Win(form.cmdApply)); })
      .WaitFor("the input box", [&] { return (box = FindFormWindow(kInputBoxFormName)) != nullptr; })
      .Then("type and press",
            [&] {
              EXPECT_EQ(Narrow(WindowText(box)), "Rename");
              EXPECT_EQ(Narrow(WindowText(GetDlgItem(box, kInputBoxPromptId))), "New name of the data source:");
              EXPECT_EQ(Narrow(WindowText(GetDlgItem(box, kInputBoxTextId))), "Plant");
              EXPECT_EQ(GetFocus(), GetDlgItem(box, kInputBoxTextId));
              SetWindowTextW(GetDlgItem(box, kInputBoxTextId), L"Tank 2");
              PostClick(GetDlgItem(box, IDCANCEL));
            })
      .WaitFor("the box to go", [&] { return !IsWindow(box); });
  script.Run();
  EXPECT_EQ(Narrow(answer), "");
}

TEST_F(ServicesTest, StartProgramAndWaitServesTheMessageLoopUntilTheProgramEnds) {
  // The child waits for an event that only a message handled during the wait sets.
  const wchar_t* eventName = L"VdWinViewsStartProgramTest";
  const HANDLE release = CreateEventW(nullptr, TRUE, FALSE, eventName);
  ASSERT_NE(release, nullptr);
  bool started = false;
  bool releasedDuringWait = false;
  wchar_t self[MAX_PATH];
  GetModuleFileNameW(nullptr, self, MAX_PATH);
  String command(u"\"");  // built in steps: GCC 12 misreads a chain of + here (-Wrestrict)
  command += FromWide(self);
  command += u"\" --wait-event VdWinViewsStartProgramTest";
  form.applyAction = [&] {
    // Posted now, handled only by the loop that runs while the program runs.
    form.txtName.onChange = [&] {
      releasedDuringWait = true;
      SetEvent(release);
    };
    PostChars(Win(form.txtName), u"x");
    started = ui.StartProgramAndWait(command);
    form.txtName.onChange = nullptr;
    EXPECT_EQ(WaitForSingleObject(release, 0), WAIT_OBJECT_0);
  };
  script.Then("click", [&] { PostClick(Win(form.cmdApply)); });
  script.Run();
  CloseHandle(release);
  EXPECT_TRUE(started);
  EXPECT_TRUE(releasedDuringWait);
}

TEST_F(ServicesTest, StartProgramThatCannotStartAnswersFalse) {
  EXPECT_FALSE(ui.StartProgramAndWait(u"no-such-program-here.exe /x"));
}

TEST_F(ServicesTest, BringToFrontLeavesTheDialogShownAndNotTopmost) {
  script.Then("bring", [&] {
    ui.BringToFront(form);
    EXPECT_TRUE(IsWindowVisible(script.Dialog()));
    EXPECT_EQ(GetWindowLongPtrW(script.Dialog(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
  });
  script.Run();
}

TEST_F(ServicesTest, ScreenPointerOverridesEveryWindowUntilReset) {
  const HCURSOR hourglass = LoadCursorW(nullptr, IDC_WAIT);
  script
      .Then("hourglass",
            [&] {
              form.treItems.SetMousePointer(vd::forms::vbNoDrop);
              ui.SetScreenMousePointer(vd::forms::vbHourglass);
              EXPECT_EQ(GetCursor(), hourglass);
              SendMessageW(Tree(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Tree()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
              EXPECT_EQ(GetCursor(), hourglass);
            })
      .Then("default", [&] {
        ui.SetScreenMousePointer(vd::forms::vbDefault);
        SendMessageW(Tree(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Tree()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        EXPECT_EQ(GetCursor(), CursorFor(vd::forms::vbNoDrop));
      });
  script.Run();
}

TEST_F(ServicesTest, RefreshNowDrawsATreeBeingRebuiltAtOnce) {
  script.Then("rebuild and refresh", [&] {
    form.BuildTree(3, 3);
    ASSERT_TRUE(script.View().TreeOf(form.treItems)->RedrawSuspended());
    ui.RefreshNow(form.treItems);
    EXPECT_FALSE(script.View().TreeOf(form.treItems)->RedrawSuspended());
    RECT dirty{};
    EXPECT_FALSE(GetUpdateRect(Tree(), &dirty, FALSE)) << "painted";
  });
  script.Run();
}

TEST_F(ServicesTest, OpenFileDialogGoesToTheHandlerWithTheFormsWindow) {
  std::string asked;
  ui.SetOpenFileHandler([&](HWND owner, StringView title, StringView filter, StringView ext, uint32_t flags) {
    EXPECT_EQ(owner, script.Dialog());
    asked =
        Narrow(String(title)) + "|" + Narrow(String(filter)) + "|" + Narrow(String(ext)) + "|" + std::to_string(flags);
    return String(u"C:\\data\\plant.dat");
  });
  String chosen;
  script.Then("ask",
              [&] { chosen = ui.OpenFileDialog(&form, u"Data file", u"Data Files (*.dat)|*.dat|", u"dat", 0x2A1024); });
  script.Run();
  EXPECT_EQ(asked, "Data file|Data Files (*.dat)|*.dat||dat|" + std::to_string(0x2A1024));
  EXPECT_EQ(Narrow(chosen), "C:\\data\\plant.dat");
}

}  // namespace
}  // namespace vd::win32::views::testing
