#include "win32/services/windows_processes.h"

#include <windows.h>

#include <shellapi.h>

#include <string>

#include "win32/com/unique_handle.h"

namespace vd::win32::services {
namespace {

std::wstring Wide(vd::platform::StringView text) { return {text.begin(), text.end()}; }

// Owns one process handle; closes it when it goes.
class WindowsProcessHandle final : public vd::platform::ProcessHandle {
 public:
  explicit WindowsProcessHandle(HANDLE process) : process_(process) {}

  vd::platform::WaitResult Wait(uint32_t milliseconds) override {
    switch (WaitForSingleObject(process_.Get(), milliseconds)) {
      case WAIT_TIMEOUT:
        return vd::platform::WaitResult::kTimedOut;
      case WAIT_OBJECT_0:
        return vd::platform::WaitResult::kEnded;
      default:
        return vd::platform::WaitResult::kFailed;
    }
  }

 private:
  KernelHandle process_;
};

}  // namespace

uint32_t WindowsProcesses::ShellStart(vd::platform::StringView program, vd::platform::StringView arguments) {
  const std::wstring file = Wide(program);
  const std::wstring parameters = Wide(arguments);
  SHELLEXECUTEINFOW start{};
  start.cbSize = sizeof(start);
  start.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_NOASYNC;
  start.lpVerb = L"open";
  start.lpFile = file.c_str();
  start.lpParameters = parameters.empty() ? nullptr : parameters.c_str();
  start.nShow = SW_SHOWNORMAL;
  if (!ShellExecuteExW(&start) || start.hProcess == nullptr) return 0;
  // The caller opens the process again by its id, with only the right to wait.
  const KernelHandle started(start.hProcess);
  return GetProcessId(started.Get());
}

std::unique_ptr<vd::platform::ProcessHandle> WindowsProcesses::OpenForWait(uint32_t processId) {
  HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, processId);
  if (process == nullptr) return nullptr;
  return std::make_unique<WindowsProcessHandle>(process);
}

void WindowsProcesses::DoEvents() {
  if (doEvents_) doEvents_();
}

}  // namespace vd::win32::services
