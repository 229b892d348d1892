// The Win32 views' tests under Wine (or Windows).
//
// "--wait-event NAME" makes the program a helper child instead: it waits for
// the named event (set by the parent while StartProgramAndWait pumps its
// messages) and exits 0, or 1 when the event never comes.
// "--robot-target" shows the sample form for the robot's own scenarios
// (tests/wine/robot/target*.robot): Apply asks a question in a message box,
// and the form's event log but the tree's mouse moves is printed, "target: "
// before each line, once the form is closed.
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
  // Where the pointer passes over the tree depends on the screen, not on the robot's steps.
  for (const std::string& line : form.log)
    if (line.rfind("treItems.MouseMove", 0) != 0) std::printf("target: %s\n", line.c_str());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::strcmp(argv[1], "--wait-event") == 0) return WaitForEvent(argv[2]);
  if (argc == 2 && std::strcmp(argv[1], "--robot-target") == 0) return RobotTarget();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
