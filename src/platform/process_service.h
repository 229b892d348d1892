#pragma once
// Starting programs and waiting for them, as the dialog does while the user
// edits a script file in a text editor. Windows answers with the shell and
// the kernel's process handles, tests with a fake.
#include <cstdint>
#include <memory>

#include "vd/automation/string.h"

namespace vd::platform {

using automation::String;
using automation::StringView;

enum class WaitResult : uint8_t {
  kEnded,     // the process has ended
  kTimedOut,  // still running when the time was up
  kFailed,    // the wait itself failed
};

// An open process; the handle is closed when this object goes.
class ProcessHandle {
 public:
  ProcessHandle() = default;
  ProcessHandle(const ProcessHandle&) = delete;
  ProcessHandle& operator=(const ProcessHandle&) = delete;
  virtual ~ProcessHandle() = default;

  // Waits at most this long for the process to end.
  virtual WaitResult Wait(uint32_t milliseconds) = 0;
};

class ProcessService {
 public:
  ProcessService() = default;
  ProcessService(const ProcessService&) = delete;
  ProcessService& operator=(const ProcessService&) = delete;
  virtual ~ProcessService() = default;

  // Starts program with its arguments through the platform's shell, in a
  // normal window. Answers the process's id, 0 when it could not be started.
  virtual uint32_t ShellStart(StringView program, StringView arguments) = 0;
  // Opens a process with the right to wait for it; nullptr when that fails
  // (a process that has ended already, say).
  virtual std::unique_ptr<ProcessHandle> OpenForWait(uint32_t processId) = 0;
  // Lets the running dialog's message loop handle what is waiting, once.
  virtual void DoEvents() = 0;
};

}  // namespace vd::platform
