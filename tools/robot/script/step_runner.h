#pragma once
// Runs a robot script's steps against a desktop, each with a bounded wait:
// a step is first awaited (its control shown, its message box up, or for a
// check the expected state), then done once, then its effect is awaited.
// Prints one line per step and a summary:
//   robot: line 7: click dbOK: ok
//   robot: line 9: check dbOK enabled: FAILED (seen: disabled, after 20000 ms)
//   robot: 11 steps passed, 1 failed
// A failed check is counted and the script goes on; a failed action stops it:
// the desktop is asked to rescue the program under test (close its message
// boxes and its form, so that it can end) and the steps left are not run.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "robot_step.h"

namespace vd::robot {

// What a look at the desktop found: whether the step's condition holds, and
// what was there instead (for the report).
struct Look {
  bool holds = false;
  std::string seen;
  bool final = false;  // it does not hold and will not: waiting longer is no use
};

enum class ActOutcome {
  kDone,     // the step acted
  kDiffers,  // it acted, but what it met differs from what the step expects (counted, the script goes on)
  kFailed,   // it could not act
};
struct ActResult {
  ActOutcome outcome = ActOutcome::kDone;
  std::string seen;
};

// The program under test, as the robot sees and drives it.
class Desktop {
 public:
  virtual ~Desktop() = default;
  // Whether the step can act now; for a check, whether it holds. Polled.
  virtual Look Ready(const Step& step) = 0;
  // Acts once (nothing for a check).
  virtual ActResult Act(const Step& step) = 0;
  // Whether the action's effect has come about. Polled.
  virtual Look Settled(const Step& step) = 0;
  // After a failed action: leaves the program under test able to end.
  virtual void Rescue() = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual uint64_t Milliseconds() = 0;
  // A short pause between two looks at the desktop.
  virtual void Pause() = 0;
};

struct RunSummary {
  int passed = 0;
  int failed = 0;
  int notRun = 0;
  [[nodiscard]] bool Succeeded() const { return failed == 0 && notRun == 0; }
};

class StepRunner {
 public:
  StepRunner(Desktop& desktop, Clock& clock, std::function<void(const std::string&)> print, uint32_t timeoutMs);
  RunSummary Run(const std::vector<Step>& steps);

 private:
  // "" when the step passed, else what was seen; stop is set when the script must end.
  std::string RunStep(const Step& step, bool& stop);
  // Polls look until it holds or the time is up.
  Look Await(const std::function<Look()>& look);

  Desktop& desktop_;
  Clock& clock_;
  std::function<void(const std::string&)> print_;
  uint32_t timeoutMs_;
};

// The text of a window, quoted for a report: "a\r\nb" shows as "a\r\nb" with the escapes written out.
std::string Quoted(const std::string& utf8);

}  // namespace vd::robot
