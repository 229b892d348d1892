// The robot's step that closes the editor a dialog started.
#include <gtest/gtest.h>

#include "script_parser.h"

namespace vd::robot {
namespace {

TEST(CloseWindowStep, NamesAWindowClassAndIsAnAction) {
  const ParsedScript script = ParseScript("close window Notepad\nclose window \"Two Words\"  # the class\n");
  ASSERT_TRUE(script.errors.empty());
  ASSERT_EQ(script.steps.size(), 2u);
  EXPECT_EQ(script.steps[0].kind, StepKind::kCloseWindow);
  EXPECT_EQ(script.steps[0].target, u"Notepad");
  EXPECT_EQ(script.steps[1].target, u"Two Words");
  EXPECT_FALSE(script.steps[0].IsCheck());
}

TEST(CloseWindowStep, RefusesAMissingOrExtraWordButLeavesTheFormsCloseAlone) {
  EXPECT_EQ(ParseScript("close").steps.at(0).kind, StepKind::kClose);
  for (const char* line : {"close window", "close Notepad", "close window Notepad now", "close \"window\" X"}) {
    const ParsedScript script = ParseScript(line);
    EXPECT_EQ(script.errors.size(), 1u) << line;
    EXPECT_TRUE(script.steps.empty()) << line;
  }
}

}  // namespace
}  // namespace vd::robot
