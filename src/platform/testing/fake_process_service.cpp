#include "platform/testing/fake_process_service.h"

#include "vd/automation/numeric.h"

namespace vd::platform::testing {

class FakeProcessService::Handle final : public ProcessHandle {
 public:
  explicit Handle(FakeProcessService& owner) : owner_(owner), pollsLeft_(owner.runningPolls_) { ++owner_.openHandles_; }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() override {
    --owner_.openHandles_;
    owner_.log_.emplace_back(u"close");
  }

  WaitResult Wait(uint32_t milliseconds) override {
    owner_.log_.push_back(u"wait " + automation::FormatGeneral(static_cast<double>(milliseconds)));
    if (owner_.waitFails_) return WaitResult::kFailed;
    if (pollsLeft_ <= 0) return WaitResult::kEnded;
    --pollsLeft_;
    return WaitResult::kTimedOut;
  }

 private:
  FakeProcessService& owner_;
  int32_t pollsLeft_;
};

uint32_t FakeProcessService::ShellStart(StringView program, StringView arguments) {
  log_.push_back(u"start " + String(program) + u"|" + String(arguments));
  return startFails_ ? 0 : kProcessId;
}

std::unique_ptr<ProcessHandle> FakeProcessService::OpenForWait(uint32_t processId) {
  log_.push_back(u"open " + automation::FormatGeneral(static_cast<double>(processId)));
  if (openFails_) return nullptr;
  return std::make_unique<Handle>(*this);
}

void FakeProcessService::DoEvents() {
  log_.emplace_back(u"events");
  if (onDoEvents) onDoEvents();
}

}  // namespace vd::platform::testing
