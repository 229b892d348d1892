// The Win32 views' tests under Wine (or Windows): GoogleTest, then one line
// "winviews: N passed, M failed" for the scripts that collect the results.
//
// "--wait-event NAME" makes the program a helper child instead: it waits for
// the named event (set by the parent while StartProgramAndWait pumps its
// messages) and exits 0, or 1 when the event never comes.
// "--robot-target" shows the sample form for the robot's own scenarios
// (tests/wine/robot/target*.robot): Apply asks a question in a message box,
// and the form's event log is printed, "target: " before each line, once the
// form is closed.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "sample_form.h"
#include "views/win32_modal_host.h"
#include "views/win32_ui_services.h"

namespace {

constexpr DWORD kChildPatienceMilliseconds = 30000;

int WaitForEvent(const char* name) {
  const std::wstring wide(name, name + std::strlen(name));
  const HANDLE event = OpenEventW(SYNCHRONIZE, FALSE, wide.c_str());
  if (event == nullptr) return 2;
  const DWORD waited = WaitForSingleObject(event, kChildPatienceMilliseconds);
  CloseHandle(event);
  return waited == WAIT_OBJECT_0 ? 0 : 1;
}

int RobotTarget() {
  vd::win32::views::Win32ModalHost host;
  vd::win32::views::Win32UiServices ui(host, u"Robot Target");
  vd::win32::views::testing::SampleForm form;
  form.SetModalHost(&host);
  form.applyAction = [&] {
    const int32_t answer = ui.MsgBox(u"Hello,\r\nrobot.", vd::forms::vbOKCancel, std::nullopt);
    form.log.push_back("answer:" + std::to_string(answer));
  };
  form.Show(true);
  for (const std::string& line : form.log) std::printf("target: %s\n", line.c_str());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::strcmp(argv[1], "--wait-event") == 0) return WaitForEvent(argv[2]);
  if (argc == 2 && std::strcmp(argv[1], "--robot-target") == 0) return RobotTarget();
  testing::InitGoogleTest(&argc, argv);
  const int result = RUN_ALL_TESTS();
  const testing::UnitTest& unit = *testing::UnitTest::GetInstance();
  std::printf("winviews: %d passed, %d failed\n", unit.successful_test_count(), unit.failed_test_count());
  std::fflush(stdout);
  return result;
}
