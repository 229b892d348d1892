#include "step_runner.h"

#include <cstring>
#include <utility>

namespace vd::robot {

StepRunner::StepRunner(Desktop& desktop, Clock& clock, std::function<void(const std::string&)> print,
                       uint32_t timeoutMs)
    : desktop_(desktop), clock_(clock), print_(std::move(print)), timeoutMs_(timeoutMs) {}

Look StepRunner::Await(const std::function<Look()>& look) {
  const uint64_t deadline = clock_.Milliseconds() + timeoutMs_;
  for (;;) {
    Look seen = look();
    if (seen.holds || seen.final) return seen;
    if (clock_.Milliseconds() >= deadline) {
      seen.seen += (seen.seen.empty() ? "" : ", ") + std::string("after ") + std::to_string(timeoutMs_) + " ms";
      return seen;
    }
    clock_.Pause();
  }
}

std::string StepRunner::RunStep(const Step& step, bool& stop) {
  if (step.kind == StepKind::kTimeout) {
    timeoutMs_ = step.milliseconds;
    return "";
  }
  const Look ready = Await([&] { return desktop_.Ready(step); });
  if (!ready.holds) {
    stop = !step.IsCheck();
    return ready.seen;
  }
  if (step.IsCheck()) return "";
  const ActResult acted = desktop_.Act(step);
  if (acted.outcome == ActOutcome::kFailed) {
    stop = true;
    return acted.seen.empty() ? "it could not act" : acted.seen;
  }
  const Look settled = Await([&] { return desktop_.Settled(step); });
  if (!settled.holds) {
    stop = true;
    return settled.seen;
  }
  if (acted.outcome == ActOutcome::kDiffers) return acted.seen.empty() ? "it differs" : acted.seen;
  return "";
}

RunSummary StepRunner::Run(const std::vector<Step>& steps) {
  RunSummary summary;
  for (size_t i = 0; i < steps.size(); ++i) {
    const Step& step = steps[i];
    bool stop = false;
    const std::string seen = RunStep(step, stop);
    const std::string head = "robot: line " + std::to_string(step.line) + ": " + step.source + ": ";
    if (seen.empty()) {
      ++summary.passed;
      print_(head + "ok");
      continue;
    }
    ++summary.failed;
    std::string failure = head;
    failure.append("FAILED (seen: ").append(seen).append(")");
    print_(failure);
    if (!stop) continue;
    summary.notRun = static_cast<int>(steps.size() - i - 1);
    print_("robot: stopped at line " + std::to_string(step.line) + "; " + std::to_string(summary.notRun) +
           " steps not run");
    desktop_.Rescue();
    break;
  }
  print_("robot: " + std::to_string(summary.passed) + " steps passed, " + std::to_string(summary.failed) + " failed");
  return summary;
}

std::string Quoted(const std::string& utf8) {
  constexpr char kEscaped[] = "\"\\\r\n\t";
  constexpr char kWritten[] = "\"\\rnt";  // each one's letter after a backslash
  std::string out = "\"";
  for (const char c : utf8) {
    const char* escaped = c == '\0' ? nullptr : std::strchr(kEscaped, c);
    if (escaped != nullptr) out += '\\';
    out += escaped != nullptr ? kWritten[escaped - kEscaped] : c;
  }
  return out + "\"";
}

}  // namespace vd::robot
