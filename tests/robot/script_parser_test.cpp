#include "script_parser.h"

#include <gtest/gtest.h>

#include "vd/automation/string.h"

namespace vd::robot {
namespace {

using vd::automation::ToUtf8;

Step OnlyStep(const std::string& line) {
  const ParsedScript script = ParseScript(line);
  EXPECT_TRUE(script.errors.empty()) << line << ": " << (script.errors.empty() ? "" : script.errors[0]);
  EXPECT_EQ(script.steps.size(), 1u) << line;
  return script.steps.empty() ? Step{} : script.steps[0];
}

struct TargetCase {
  const char* line;
  StepKind kind;
  const char* target;
  const char* text;
};

class StepWithTarget : public ::testing::TestWithParam<TargetCase> {};

TEST_P(StepWithTarget, ReadsKindTargetAndText) {
  const Step step = OnlyStep(GetParam().line);
  EXPECT_EQ(step.kind, GetParam().kind) << GetParam().line;
  EXPECT_EQ(ToUtf8(step.target), GetParam().target) << GetParam().line;
  EXPECT_EQ(ToUtf8(step.text), GetParam().text) << GetParam().line;
}

INSTANTIATE_TEST_SUITE_P(
    Steps, StepWithTarget,
    ::testing::Values(
        TargetCase{"wait form frmDataBrowser", StepKind::kWaitForm, "frmDataBrowser", ""},
        TargetCase{"wait gone", StepKind::kWaitGone, "", ""}, TargetCase{"close", StepKind::kClose, "", ""},
        TargetCase{"click dbOK", StepKind::kClick, "dbOK", ""},
        TargetCase{"click node \"_Plant_Constants4\"", StepKind::kClickNode, "_Plant_Constants4", ""},
        TargetCase{"click node 4:1", StepKind::kClickNode, "4:1", ""},
        TargetCase{"dblclick node \"1:2\"", StepKind::kDoubleClickNode, "1:2", ""},
        TargetCase{"type txtDsvCols \"abc\"", StepKind::kType, "txtDsvCols", "abc"},
        TargetCase{"type txtDsvName \"\"", StepKind::kType, "txtDsvName", ""},
        TargetCase{"pick cboDsvType \"Text\"", StepKind::kPick, "cboDsvType", "Text"},
        TargetCase{"pick cboDsvType Text", StepKind::kPick, "cboDsvType", "Text"},
        TargetCase{"screenshot \"build/artifacts/a b.bmp\"", StepKind::kScreenshot, "build/artifacts/a b.bmp", ""},
        TargetCase{"check caption \"Data Selection for Dynamics\"", StepKind::kCheckCaption, "",
                   "Data Selection for Dynamics"},
        TargetCase{"check txtDsvCols text \"5\"", StepKind::kCheckText, "txtDsvCols", "5"},
        TargetCase{"check dbClose caption \"&Close\"", StepKind::kCheckText, "dbClose", "&Close"},
        TargetCase{"check cboDsvType items \"Float|Text\"", StepKind::kCheckItems, "cboDsvType", "Float|Text"},
        TargetCase{"check node \"1:2\" text \"Level 2\"", StepKind::kCheckNodeText, "1:2", "Level 2"},
        TargetCase{"check no msgbox", StepKind::kCheckNoMessageBox, "", ""}));

TEST(ScriptParser, ScreenshotPathWithBlanksMustBeQuoted) {
  // A bare path ends at the first blank, and the word after it is one too many.
  const ParsedScript script = ParseScript("screenshot build/artifacts/a b.bmp");
  EXPECT_TRUE(script.steps.empty());
  ASSERT_EQ(script.errors.size(), 1u);
  EXPECT_NE(script.errors[0].find("screenshot PATH"), std::string::npos) << script.errors[0];
}

struct StateCase {
  const char* word;
  ControlState state;
};

class ControlStateWord : public ::testing::TestWithParam<StateCase> {};

TEST_P(ControlStateWord, NamesTheState) {
  const Step step = OnlyStep(std::string("check fraDsv ") + GetParam().word);
  EXPECT_EQ(step.kind, StepKind::kCheckState);
  EXPECT_EQ(ToUtf8(step.target), "fraDsv");
  EXPECT_EQ(step.controlState, GetParam().state) << GetParam().word;
}

INSTANTIATE_TEST_SUITE_P(
    States, ControlStateWord,
    ::testing::Values(StateCase{"enabled", ControlState::kEnabled}, StateCase{"disabled", ControlState::kDisabled},
                      StateCase{"visible", ControlState::kVisible}, StateCase{"hidden", ControlState::kHidden},
                      StateCase{"checked", ControlState::kChecked}, StateCase{"unchecked", ControlState::kUnchecked},
                      StateCase{"focused", ControlState::kFocused}));

TEST(ScriptParser, NodeStates) {
  EXPECT_EQ(OnlyStep("check node 1:2 selected").nodeState, NodeState::kSelected);
  EXPECT_EQ(OnlyStep("check node 1:2 present").nodeState, NodeState::kPresent);
  const Step absent = OnlyStep("check node \"_Scratch9\" absent");
  EXPECT_EQ(absent.kind, StepKind::kCheckNodeState);
  EXPECT_EQ(absent.nodeState, NodeState::kAbsent);
  EXPECT_EQ(ToUtf8(absent.target), "_Scratch9");
}

TEST(ScriptParser, KeysWithModifiers) {
  const Step plain = OnlyStep("key TAB");
  EXPECT_EQ(plain.kind, StepKind::kKey);
  EXPECT_EQ(plain.key.virtualKey, 0x09);
  EXPECT_FALSE(plain.key.shift || plain.key.ctrl || plain.key.alt);
  const Step shifted = OnlyStep("key F3 shift");
  EXPECT_EQ(shifted.key.virtualKey, 0x72);
  EXPECT_TRUE(shifted.key.shift);
  EXPECT_FALSE(shifted.key.ctrl);
  const Step both = OnlyStep("key F ctrl shift");
  EXPECT_EQ(both.key.virtualKey, 'F');
  EXPECT_TRUE(both.key.ctrl);
  EXPECT_TRUE(both.key.shift);
  EXPECT_FALSE(both.key.alt);
  EXPECT_TRUE(OnlyStep("key E alt").key.alt);
}

TEST(ScriptParser, TypeByKeystrokes) {
  EXPECT_FALSE(OnlyStep("type txtDsvRows \"12\"").keystrokes);
  EXPECT_TRUE(OnlyStep("type txtDsvRows \"12\" keys").keystrokes);
}

TEST(ScriptParser, AnswerWithTextTitleAndButton) {
  const Step step = OnlyStep(
      "answer msgbox \"Invalid nummeric entry, 'abc'.  Entry must be a positive whole number.\" title \"Data "
      "Selection\" button OK");
  EXPECT_EQ(step.kind, StepKind::kAnswer);
  EXPECT_TRUE(step.hasText);
  EXPECT_EQ(ToUtf8(step.text), "Invalid nummeric entry, 'abc'.  Entry must be a positive whole number.");
  EXPECT_TRUE(step.hasTitle);
  EXPECT_EQ(ToUtf8(step.title), "Data Selection");
  EXPECT_EQ(ToUtf8(step.button), "OK");
}

TEST(ScriptParser, AnswerWithoutTextOrTitle) {
  const Step bare = OnlyStep("answer msgbox button Cancel");
  EXPECT_FALSE(bare.hasText);
  EXPECT_FALSE(bare.hasTitle);
  EXPECT_EQ(ToUtf8(bare.button), "Cancel");
  const Step titled = OnlyStep("answer msgbox title \"Find\" button OK");
  EXPECT_FALSE(titled.hasText);
  EXPECT_TRUE(titled.hasTitle);
  EXPECT_EQ(ToUtf8(titled.title), "Find");
  // A quoted "title" is the message's text, not the keyword.
  const Step quoted = OnlyStep("answer msgbox \"title\" button OK");
  EXPECT_TRUE(quoted.hasText);
  EXPECT_EQ(ToUtf8(quoted.text), "title");
  EXPECT_FALSE(quoted.hasTitle);
}

TEST(ScriptParser, QuotedTextsKeepBlanksAndResolveEscapes) {
  EXPECT_EQ(ToUtf8(OnlyStep(R"(type txtDsvName "  two  blanks ")").text), "  two  blanks ");
  EXPECT_EQ(ToUtf8(OnlyStep(R"(check caption "say \"hi\"")").text), "say \"hi\"");
  EXPECT_EQ(ToUtf8(OnlyStep(R"(answer msgbox "line 1\r\nline 2" button OK)").text), "line 1\r\nline 2");
  EXPECT_EQ(ToUtf8(OnlyStep(R"(type txtDsName "C:\\data\\a.dat")").text), "C:\\data\\a.dat");
  EXPECT_EQ(ToUtf8(OnlyStep(R"(type txtDsName "a\tb")").text), "a\tb");
}

TEST(ScriptParser, TextsAreUtf8) {
  EXPECT_EQ(OnlyStep("type txtDsvName \"Durchfluss \xC3\xBC\"").text, u"Durchfluss \u00FC");
}

TEST(ScriptParser, CommentsAndBlankLinesKeepLineNumbers) {
  const ParsedScript script = ParseScript(
      "# a selection run\n"
      "\n"
      "wait form frmDataBrowser   # the dialog is up\n"
      "   \t\n"
      "  click dbOK\r\n"
      "type txtDsvName \"a # b\"\n");
  ASSERT_TRUE(script.errors.empty());
  ASSERT_EQ(script.steps.size(), 3u);
  EXPECT_EQ(script.steps[0].line, 3);
  EXPECT_EQ(script.steps[0].source, "wait form frmDataBrowser   # the dialog is up");
  EXPECT_EQ(script.steps[1].line, 5);
  EXPECT_EQ(script.steps[1].source, "click dbOK");
  EXPECT_EQ(script.steps[2].line, 6);
  EXPECT_EQ(ToUtf8(script.steps[2].text), "a # b");
}

TEST(ScriptParser, TimeoutIsAWholeNumberAboveZero) {
  EXPECT_EQ(OnlyStep("timeout 2500").milliseconds, 2500u);
  for (const char* bad : {"timeout", "timeout 0", "timeout -5", "timeout 12ms", "timeout 1.5", "timeout 99999999999"})
    EXPECT_EQ(ParseScript(bad).errors.size(), 1u) << bad;
}

TEST(ScriptParser, ChecksAndActionsAreTold) {
  for (const char* line : {"check caption x", "check dbOK enabled", "check a text b", "check a items b",
                           "check node k selected", "check node k text t", "check no msgbox"})
    EXPECT_TRUE(OnlyStep(line).IsCheck()) << line;
  for (const char* line : {"wait form f", "wait gone", "click a", "click node k", "dblclick node k", "type a b",
                           "key F3", "pick a b", "answer msgbox button OK", "screenshot p", "timeout 5"})
    EXPECT_FALSE(OnlyStep(line).IsCheck()) << line;
}

struct ErrorCase {
  const char* line;
  const char* why;  // part of the error
};

class ScriptError : public ::testing::TestWithParam<ErrorCase> {};

TEST_P(ScriptError, NamesTheLineAndTheReason) {
  const ParsedScript script = ParseScript(std::string("wait form f\n") + GetParam().line + "\nclick dbOK");
  ASSERT_EQ(script.errors.size(), 1u) << GetParam().line;
  EXPECT_EQ(script.errors[0].rfind("line 2: ", 0), 0u) << script.errors[0];
  EXPECT_NE(script.errors[0].find(GetParam().why), std::string::npos) << script.errors[0];
  EXPECT_EQ(script.steps.size(), 2u) << "the other lines still parse";
}

INSTANTIATE_TEST_SUITE_P(
    Errors, ScriptError,
    ::testing::Values(
        ErrorCase{"jump dbOK", "unknown step 'jump'"}, ErrorCase{"\"click\" dbOK", "unknown step"},
        ErrorCase{"wait", "wait form NAME"}, ErrorCase{"wait form", "wait form NAME"},
        ErrorCase{"wait gone now", "wait gone"}, ErrorCase{"click", "click NAME"}, ErrorCase{"click a b", "click NAME"},
        ErrorCase{"dblclick dbOK", "dblclick node KEY"}, ErrorCase{"type txtDsvName", "type NAME TEXT"},
        ErrorCase{"type a b slowly", "[keys]"}, ErrorCase{"key", "key KEY"}, ErrorCase{"key F33", "unknown key 'F33'"},
        ErrorCase{"key F3 meta", "unknown modifier 'meta'"}, ErrorCase{"pick cbo", "pick NAME TEXT"},
        ErrorCase{"answer OK", "answer msgbox"}, ErrorCase{"answer msgbox \"x\"", "button NAME"},
        ErrorCase{"answer msgbox \"x\" title", "button NAME"}, ErrorCase{"answer msgbox button", "button NAME"},
        ErrorCase{"check dbOK pressed", "unknown state 'pressed'"}, ErrorCase{"check node k", "check node KEY"},
        ErrorCase{"check node k open", "unknown node state 'open'"}, ErrorCase{"check caption", "check caption TEXT"},
        ErrorCase{"check a text", "TEXT"}, ErrorCase{"type a \"open", "not closed"},
        ErrorCase{"type a \"x\\q\"", "unknown escape \\q"}, ErrorCase{"type a \"x\"y", "runs into the next word"}));

TEST(ScriptParser, AnEmptyScriptHasNoSteps) {
  const ParsedScript script = ParseScript("");
  EXPECT_TRUE(script.steps.empty());
  EXPECT_TRUE(script.errors.empty());
}

}  // namespace
}  // namespace vd::robot
