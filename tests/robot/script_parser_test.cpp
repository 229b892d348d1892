// The robot's step grammar: what each line means, and why a line is refused.
#include "script_parser.h"

#include <gtest/gtest.h>

#include "button_text.h"
#include "vd/automation/string.h"

namespace vd::robot {
namespace {

using vd::automation::ToUtf8;

// A line's one step as one comparable line: kind, target, text, and whatever else the line set.
std::string Summary(const std::string& line) {
  const ParsedScript script = ParseScript(line);
  if (!script.errors.empty() || script.steps.size() != 1) return "refused";
  const Step& s = script.steps[0];
  std::string out = std::to_string(static_cast<int>(s.kind)) + "|" + ToUtf8(s.target) + "|" + ToUtf8(s.text);
  if (s.kind == StepKind::kCheckState) out += "|state " + std::to_string(static_cast<int>(s.controlState));
  if (s.kind == StepKind::kCheckNodeState) out += "|node " + std::to_string(static_cast<int>(s.nodeState));
  if (s.kind == StepKind::kKey)
    out += "|vk " + std::to_string(s.key.virtualKey) + (s.key.shift ? " shift" : "") + (s.key.ctrl ? " ctrl" : "") +
           (s.key.alt ? " alt" : "");
  if (s.keystrokes) out += "|keys";
  if (s.hasTitle) out += "|title " + ToUtf8(s.title);
  if (s.kind == StepKind::kAnswer) out += "|button " + ToUtf8(s.button) + (s.hasText ? "" : "|no text");
  if (s.kind == StepKind::kTimeout) out += "|" + std::to_string(s.milliseconds);
  return out + (s.IsCheck() ? "|check" : "");
}

TEST(ScriptParser, ReadsEveryKindOfStepAndTheTextsOfItsQuotes) {
  using K = StepKind;
  const auto k = [](K kind) { return std::to_string(static_cast<int>(kind)); };
  const std::pair<const char*, std::string> cases[] = {
      {"wait form frmDataBrowser", k(K::kWaitForm) + "|frmDataBrowser|"},
      {"close", k(K::kClose) + "||"},
      {"close window \"Two Words\"  # the class", k(K::kCloseWindow) + "|Two Words|"},
      {"click dbOK", k(K::kClick) + "|dbOK|"},
      {"dblclick node 1:2", k(K::kDoubleClickNode) + "|1:2|"},
      {"type a \"  two  \\\"blanks\\\"\\r\\n\\t\\\\ # \xC3\xBC\" keys",
       k(K::kType) + "|a|  two  \"blanks\"\r\n\t\\ # \xC3\xBC|keys"},
      {"pick cboDsvType Text", k(K::kPick) + "|cboDsvType|Text"},
      {"key f3 shift", k(K::kKey) + "|||vk 114 shift"},
      {"key F ctrl shift alt", k(K::kKey) + "|||vk 70 shift ctrl alt"},
      {"answer msgbox \"x\" title \"Data Selection\" button OK", k(K::kAnswer) + "||x|title Data Selection|button OK"},
      {"answer msgbox button Cancel", k(K::kAnswer) + "|||button Cancel|no text"},
      {"timeout 2500", k(K::kTimeout) + "|||2500"},
      {"check caption \"Data Selection\"", k(K::kCheckCaption) + "||Data Selection|check"},
      {"check cboDsvType items \"Float|Text\"", k(K::kCheckItems) + "|cboDsvType|Float|Text|check"},
      {"check optDsvScalar unchecked", k(K::kCheckState) + "|optDsvScalar||state 5|check"},
      {"check node \"_Scratch9\" absent", k(K::kCheckNodeState) + "|_Scratch9||node 2|check"},
      {"check node 1:2 text \"Level 2\"", k(K::kCheckNodeText) + "|1:2|Level 2|check"},
      {"check no msgbox", k(K::kCheckNoMessageBox) + "|||check"},
  };
  for (const auto& [line, expected] : cases) EXPECT_EQ(Summary(line), expected) << line;
}

TEST(ScriptParser, CommentsAndBlankLinesKeepLineNumbers) {
  const ParsedScript script = ParseScript("# a run\n\nwait form f   # up\n   \t\n  click dbOK\r\n");
  ASSERT_TRUE(script.errors.empty());
  ASSERT_EQ(script.steps.size(), 2u);
  EXPECT_EQ(script.steps[0].line, 3);
  EXPECT_EQ(script.steps[0].source, "wait form f   # up");
  EXPECT_EQ(script.steps[1].line, 5);
  EXPECT_EQ(script.steps[1].source, "click dbOK");
}

TEST(ScriptParser, ABadLineIsNamedWithItsReasonAndTheOthersStillParse) {
  const std::pair<const char*, const char*> cases[] = {
      {"jump dbOK", "unknown step 'jump'"},
      {"wait form", "wait form NAME"},
      {"close now", "close"},
      {"close window", "close window NAME"},
      {"dblclick dbOK", "dblclick node KEY"},
      {"type a b slowly", "[keys]"},
      {"key F33", "unknown key 'F33'"},
      {"key F3 meta", "unknown modifier 'meta'"},
      {"answer msgbox \"x\" title", "button NAME"},
      {"check dbOK pressed", "unknown state 'pressed'"},
      {"check node k open", "unknown node state 'open'"},
      {"timeout 12ms", "timeout"},
      {"type a \"open", "not closed"},
      {"type a \"x\\q\"", "unknown escape \\q"},
      {"type a \"x\"y", "runs into the next word"},
  };
  for (const auto& [line, why] : cases) {
    const ParsedScript script = ParseScript(std::string("wait form f\n") + line + "\nclick dbOK");
    ASSERT_EQ(script.errors.size(), 1u) << line;
    EXPECT_EQ(script.errors[0].rfind("line 2: ", 0), 0u) << script.errors[0];
    EXPECT_NE(script.errors[0].find(why), std::string::npos) << script.errors[0];
    EXPECT_EQ(script.steps.size(), 2u) << line;
  }
}

TEST(ButtonText, TheAccessKeyMarkIsDropped) {
  EXPECT_EQ(WithoutAccessKey(u"<< &Edit"), u"<< Edit");
  EXPECT_EQ(WithoutAccessKey(u"A&&&B"), u"A&B");
  EXPECT_EQ(WithoutAccessKey(u"End&"), u"End");
}

}  // namespace
}  // namespace vd::robot
