#pragma once
// A process service for tests: a started program "runs" for a set number of
// polls, each poll's message loop turn calls a hook (the user's work in the
// program, or a look at the dialog meanwhile), and every call is logged.
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/process_service.h"

namespace vd::platform::testing {

class FakeProcessService final : public ProcessService {
 public:
  static constexpr uint32_t kProcessId = 4711;

  // The program runs for this many timed-out waits, then ends.
  void SetRunningPolls(int32_t polls) { runningPolls_ = polls; }
  void SetStartFails(bool fails) { startFails_ = fails; }
  void SetOpenFails(bool fails) { openFails_ = fails; }
  void SetWaitFails(bool fails) { waitFails_ = fails; }
  // Called at every message loop turn.
  std::function<void()> onDoEvents;

  uint32_t ShellStart(StringView program, StringView arguments) override;
  std::unique_ptr<ProcessHandle> OpenForWait(uint32_t processId) override;
  void DoEvents() override;

  // "start <program>|<arguments>", "open <id>", "wait <ms>", "events",
  // "close", in order.
  [[nodiscard]] const std::vector<String>& Log() const { return log_; }
  [[nodiscard]] int32_t OpenHandles() const { return openHandles_; }

 private:
  class Handle;
  int32_t runningPolls_ = 0;
  bool startFails_ = false;
  bool openFails_ = false;
  bool waitFails_ = false;
  int32_t openHandles_ = 0;
  std::vector<String> log_;
};

}  // namespace vd::platform::testing
