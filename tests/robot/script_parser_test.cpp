// The robot's step grammar: what each line means, and why a line is refused.
#include "script_parser.h"

#include <gtest/gtest.h>

#include "button_text.h"
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

// A step as one comparable line: kind, target, text, and whatever else the line set.
std::string Summary(const Step& s) {
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

TEST(ScriptParser, ReadsEveryKindOfStep) {
  using K = StepKind;
  const auto k = [](K kind) { return std::to_string(static_cast<int>(kind)); };
  const std::pair<const char*, std::string> cases[] = {
      {"wait form frmDataBrowser", k(K::kWaitForm) + "|frmDataBrowser|"},
      {"wait gone", k(K::kWaitGone) + "||"},
      {"close", k(K::kClose) + "||"},
      {"close window Notepad", k(K::kCloseWindow) + "|Notepad|"},
      {"click dbOK", k(K::kClick) + "|dbOK|"},
      {"click node \"_Plant_Constants4\"", k(K::kClickNode) + "|_Plant_Constants4|"},
      {"dblclick node 1:2", k(K::kDoubleClickNode) + "|1:2|"},
      {"type txtDsvName \"\"", k(K::kType) + "|txtDsvName|"},
      {"type txtDsvRows \"12\" keys", k(K::kType) + "|txtDsvRows|12|keys"},
      {"pick cboDsvType Text", k(K::kPick) + "|cboDsvType|Text"},
      {"key TAB", k(K::kKey) + "|||vk 9"},
      {"key f3 shift", k(K::kKey) + "|||vk 114 shift"},
      {"key F ctrl shift alt", k(K::kKey) + "|||vk 70 shift ctrl alt"},
      {"key Enter", k(K::kKey) + "|||vk 13"},
      {"answer msgbox \"x\" title \"Data Selection\" button OK", k(K::kAnswer) + "||x|title Data Selection|button OK"},
      {"answer msgbox button Cancel", k(K::kAnswer) + "|||button Cancel|no text"},
      {"answer msgbox \"title\" button OK", k(K::kAnswer) + "||title|button OK"},  // quoted: the text
      {"timeout 2500", k(K::kTimeout) + "|||2500"},
      {"check caption \"Data Selection\"", k(K::kCheckCaption) + "||Data Selection|check"},
      {"check dbClose caption \"&Close\"", k(K::kCheckText) + "|dbClose|&Close|check"},
      {"check cboDsvType items \"Float|Text\"", k(K::kCheckItems) + "|cboDsvType|Float|Text|check"},
      {"check fraDsv hidden", k(K::kCheckState) + "|fraDsv||state 3|check"},
      {"check optDsvScalar unchecked", k(K::kCheckState) + "|optDsvScalar||state 5|check"},
      {"check txtValue focused", k(K::kCheckState) + "|txtValue||state 6|check"},
      {"check node \"_Scratch9\" absent", k(K::kCheckNodeState) + "|_Scratch9||node 2|check"},
      {"check node 1:2 text \"Level 2\"", k(K::kCheckNodeText) + "|1:2|Level 2|check"},
      {"check no msgbox", k(K::kCheckNoMessageBox) + "|||check"},
  };
  for (const auto& [line, expected] : cases) EXPECT_EQ(Summary(OnlyStep(line)), expected) << line;
}

TEST(ScriptParser, QuotedTextsKeepBlanksResolveEscapesAndAreUtf8) {
  const std::pair<const char*, std::u16string> cases[] = {
      {R"(type a "  two  blanks ")", u"  two  blanks "},
      {R"(type a "say \"hi\"")", u"say \"hi\""},
      {R"(type a "1\r\n2\tx")", u"1\r\n2\tx"},
      {R"(type a "C:\\data")", u"C:\\data"},
      {"type a \"a # b\"", u"a # b"},
      {"type a \"Durchfluss \xC3\xBC\"", u"Durchfluss \u00FC"},
  };
  for (const auto& [line, expected] : cases) EXPECT_EQ(OnlyStep(line).text, expected) << line;
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
      {"\"click\" dbOK", "unknown step"},
      {"wait form", "wait form NAME"},
      {"wait gone now", "wait gone"},
      {"close now", "close"},
      {"close window", "close window NAME"},
      {"click a b", "click NAME"},
      {"dblclick dbOK", "dblclick node KEY"},
      {"type a b slowly", "[keys]"},
      {"key F33", "unknown key 'F33'"},
      {"key F3 meta", "unknown modifier 'meta'"},
      {"answer msgbox \"x\" title", "button NAME"},
      {"check dbOK pressed", "unknown state 'pressed'"},
      {"check node k open", "unknown node state 'open'"},
      {"timeout 0", "timeout"},
      {"timeout 12ms", "timeout"},
      {"timeout 99999999999", "timeout"},
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
