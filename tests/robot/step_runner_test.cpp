#include "step_runner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "script_parser.h"

namespace vd::robot {
namespace {

class FakeClock final : public Clock {
 public:
  uint64_t Milliseconds() override { return now; }
  void Pause() override { now += 10; }
  uint64_t now = 0;
};

// A desktop whose steps become ready, act and settle as each line's plan says.
struct Plan {
  int looksUntilReady = 0;  // -1: never
  ActOutcome outcome = ActOutcome::kDone;
  int looksUntilSettled = 0;  // -1: never
  std::string seen = "nothing yet";
  bool hopeless = false;  // a settle that fails says at once that it will not come
};

class FakeDesktop final : public Desktop {
 public:
  Look Ready(const Step& step) override {
    const Plan& plan = plans[step.line];
    const int look = readyLooks[step.line]++;
    log.push_back("ready " + std::to_string(step.line));
    return {plan.looksUntilReady >= 0 && look >= plan.looksUntilReady, plan.seen};
  }
  ActResult Act(const Step& step) override {
    log.push_back("act " + std::to_string(step.line));
    return {plans[step.line].outcome, plans[step.line].outcome == ActOutcome::kDone ? "" : "it differs here"};
  }
  Look Settled(const Step& step) override {
    const Plan& plan = plans[step.line];
    const int look = settledLooks[step.line]++;
    return {plan.looksUntilSettled >= 0 && look >= plan.looksUntilSettled, "still busy", plan.hopeless};
  }
  void Rescue() override { log.push_back("rescue"); }

  std::map<int, Plan> plans;
  std::map<int, int> readyLooks;
  std::map<int, int> settledLooks;
  std::vector<std::string> log;
};

class StepRunnerTest : public ::testing::Test {
 protected:
  RunSummary Run(const std::string& script, uint32_t timeoutMs = 1000) {
    const ParsedScript parsed = ParseScript(script);
    EXPECT_TRUE(parsed.errors.empty());
    StepRunner runner(
        desktop, clock, [this](const std::string& line) { printed.push_back(line); }, timeoutMs);
    return runner.Run(parsed.steps);
  }
  [[nodiscard]] int Count(const std::string& entry) const {
    return static_cast<int>(std::count(desktop.log.begin(), desktop.log.end(), entry));
  }

  FakeClock clock;
  FakeDesktop desktop;
  std::vector<std::string> printed;
};

TEST_F(StepRunnerTest, PollsUntilReadyThenActsOnceAndAwaitsTheEffect) {
  desktop.plans[1] = {3, ActOutcome::kDone, 2};
  const RunSummary summary = Run("click dbOK");
  EXPECT_EQ(Count("ready 1"), 4);
  EXPECT_EQ(Count("act 1"), 1);
  EXPECT_EQ(desktop.settledLooks[1], 3);
  EXPECT_EQ(summary.passed, 1);
  EXPECT_EQ(summary.failed, 0);
  EXPECT_TRUE(summary.Succeeded());
  ASSERT_EQ(printed.size(), 2u);
  EXPECT_EQ(printed[0], "robot: line 1: click dbOK: ok");
  EXPECT_EQ(printed[1], "robot: 1 steps passed, 0 failed");
}

TEST_F(StepRunnerTest, ACheckIsAwaitedButNeverActs) {
  desktop.plans[1] = {5};
  Run("check dbOK enabled");
  EXPECT_EQ(Count("ready 1"), 6);
  EXPECT_EQ(Count("act 1"), 0);
  EXPECT_EQ(desktop.settledLooks.count(1), 0u);
}

TEST_F(StepRunnerTest, AFailedCheckIsReportedWithWhatWasSeenAndTheScriptGoesOn) {
  desktop.plans[2] = {-1, ActOutcome::kDone, 0, "disabled"};
  const RunSummary summary = Run("wait form f\ncheck dbOK enabled\nclick dbClose", 200);
  EXPECT_EQ(summary.passed, 2);
  EXPECT_EQ(summary.failed, 1);
  EXPECT_EQ(summary.notRun, 0);
  EXPECT_FALSE(summary.Succeeded());
  EXPECT_EQ(Count("act 3"), 1);
  EXPECT_EQ(Count("rescue"), 0);
  ASSERT_EQ(printed.size(), 4u);
  EXPECT_EQ(printed[1], "robot: line 2: check dbOK enabled: FAILED (seen: disabled, after 200 ms)");
  EXPECT_EQ(printed[3], "robot: 2 steps passed, 1 failed");
}

TEST_F(StepRunnerTest, TheWaitIsBoundedByTheTimeout) {
  desktop.plans[1] = {-1};
  Run("check dbOK enabled", 200);
  // One look at the start and one after each 10 ms pause up to the deadline.
  EXPECT_EQ(Count("ready 1"), 21);
  EXPECT_EQ(clock.now, 200u);
}

TEST_F(StepRunnerTest, AnActionThatNeverGetsReadyStopsTheScriptAndRescues) {
  desktop.plans[2] = {-1, ActOutcome::kDone, 0, "no window"};
  const RunSummary summary = Run("wait form f\nclick dbOK\ncheck a enabled\nclick b", 100);
  EXPECT_EQ(summary.passed, 1);
  EXPECT_EQ(summary.failed, 1);
  EXPECT_EQ(summary.notRun, 2);
  EXPECT_EQ(Count("ready 3"), 0);
  EXPECT_EQ(desktop.log.back(), "rescue");
  ASSERT_EQ(printed.size(), 4u);
  EXPECT_EQ(printed[1], "robot: line 2: click dbOK: FAILED (seen: no window, after 100 ms)");
  EXPECT_EQ(printed[2], "robot: stopped at line 2; 2 steps not run");
  EXPECT_EQ(printed[3], "robot: 1 steps passed, 1 failed");
}

TEST_F(StepRunnerTest, AnActionThatCannotActStopsTheScript) {
  desktop.plans[1] = {0, ActOutcome::kFailed};
  const RunSummary summary = Run("click dbOK\nclick dbClose");
  EXPECT_EQ(summary.failed, 1);
  EXPECT_EQ(summary.notRun, 1);
  EXPECT_EQ(desktop.settledLooks.count(1), 0u) << "no effect is awaited when nothing was done";
  EXPECT_EQ(printed[0], "robot: line 1: click dbOK: FAILED (seen: it differs here)");
}

TEST_F(StepRunnerTest, AnEffectThatNeverComesStopsTheScript) {
  desktop.plans[1] = {0, ActOutcome::kDone, -1};
  const RunSummary summary = Run("click node 1:1\nclick dbOK", 50);
  EXPECT_EQ(summary.failed, 1);
  EXPECT_EQ(summary.notRun, 1);
  EXPECT_EQ(printed[0], "robot: line 1: click node 1:1: FAILED (seen: still busy, after 50 ms)");
}

TEST_F(StepRunnerTest, AnEffectThatCannotComeEndsTheWaitAtOnce) {
  desktop.plans[1] = {0, ActOutcome::kDone, -1, "nothing yet", true};
  const RunSummary summary = Run("type txtDsvCols \"5\"\nclick dbOK", 1000);
  EXPECT_EQ(desktop.settledLooks[1], 1);
  EXPECT_EQ(clock.now, 0u);
  EXPECT_EQ(summary.notRun, 1);
  EXPECT_EQ(printed[0], "robot: line 1: type txtDsvCols \"5\": FAILED (seen: still busy)");
}

TEST_F(StepRunnerTest, AnActionThatMetSomethingElseIsCountedButTheScriptGoesOn) {
  desktop.plans[1] = {0, ActOutcome::kDiffers, 0};
  const RunSummary summary = Run("answer msgbox \"x\" button OK\nclick dbClose");
  EXPECT_EQ(summary.passed, 1);
  EXPECT_EQ(summary.failed, 1);
  EXPECT_EQ(summary.notRun, 0);
  EXPECT_EQ(desktop.settledLooks[1], 1) << "the box it answered is still awaited to go";
  EXPECT_EQ(Count("act 2"), 1);
  EXPECT_EQ(printed[0], "robot: line 1: answer msgbox \"x\" button OK: FAILED (seen: it differs here)");
}

TEST_F(StepRunnerTest, TimeoutChangesTheBoundOfLaterSteps) {
  desktop.plans[2] = {-1};
  desktop.plans[4] = {-1};
  Run("timeout 30\ncheck a enabled\ntimeout 70\ncheck b enabled", 1000);
  EXPECT_EQ(Count("ready 2"), 4);
  EXPECT_EQ(Count("ready 4"), 8);
  EXPECT_EQ(Count("ready 1"), 0) << "the desktop is not asked about a timeout";
}

TEST(Quoted, WritesEscapesOut) {
  EXPECT_EQ(Quoted("a\r\nb"), "\"a\\r\\nb\"");
  EXPECT_EQ(Quoted("say \"x\" \\ \t"), "\"say \\\"x\\\" \\\\ \\t\"");
  EXPECT_EQ(Quoted(""), "\"\"");
}

}  // namespace
}  // namespace vd::robot
