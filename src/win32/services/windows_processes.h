#pragma once
// Starting programs through the shell (ShellExecuteEx) and waiting on them
// with the kernel's process handles. The message loop turn between polls is
// the host's: the dialog's modal loop hands it in.
#include <functional>

#include "platform/process_service.h"

namespace vd::win32::services {

class WindowsProcesses final : public vd::platform::ProcessService {
 public:
  // doEvents dispatches the messages waiting now; none: nothing is dispatched.
  explicit WindowsProcesses(std::function<void()> doEvents = {}) : doEvents_(std::move(doEvents)) {}

  uint32_t ShellStart(vd::platform::StringView program, vd::platform::StringView arguments) override;
  std::unique_ptr<vd::platform::ProcessHandle> OpenForWait(uint32_t processId) override;
  void DoEvents() override;

 private:
  std::function<void()> doEvents_;
};

}  // namespace vd::win32::services
