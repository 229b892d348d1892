#include "script_parser.h"

#include <charconv>
#include <optional>

#include "key_names.h"
#include "vd/automation/string.h"

namespace vd::robot {

using vd::automation::FromUtf8;

bool Step::IsCheck() const { return kind >= StepKind::kCheckCaption; }

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// The steps whose words follow a pattern: lower-case words stand as written
// (bare), NAME and KEY take the target, TEXT the text, STATE a state word and
// [keys] may follow. The first pattern that fits a line makes its step.
struct Pattern {
  const char* words;
  StepKind kind;
};
constexpr Pattern kPatterns[] = {
    {"wait form NAME", StepKind::kWaitForm},
    {"wait gone", StepKind::kWaitGone},
    {"close window NAME", StepKind::kCloseWindow},
    {"close", StepKind::kClose},
    {"click node KEY", StepKind::kClickNode},
    {"click NAME", StepKind::kClick},
    {"dblclick node KEY", StepKind::kDoubleClickNode},
    {"type NAME TEXT [keys]", StepKind::kType},
    {"pick NAME TEXT", StepKind::kPick},
    {"check caption TEXT", StepKind::kCheckCaption},
    {"check no msgbox", StepKind::kCheckNoMessageBox},
    {"check node KEY text TEXT", StepKind::kCheckNodeText},
    {"check node KEY STATE", StepKind::kCheckNodeState},
    {"check NAME text TEXT", StepKind::kCheckText},
    {"check NAME caption TEXT", StepKind::kCheckText},
    {"check NAME items TEXT", StepKind::kCheckItems},
    {"check NAME STATE", StepKind::kCheckState},
};
constexpr const char* kControlStates[] = {"enabled", "disabled",  "visible", "hidden",
                                          "checked", "unchecked", "focused"};
constexpr const char* kNodeStates[] = {"selected", "present", "absent"};

template <size_t N>
int IndexIn(const char* const (&names)[N], const std::string& word) {
  for (size_t i = 0; i < N; ++i)
    if (word == names[i]) return static_cast<int>(i);
  return -1;
}

template <size_t N>
std::string Listed(const char* const (&names)[N]) {
  std::string list;
  for (const char* name : names) list += (list.empty() ? "" : ", ") + std::string(name);
  return list;
}

std::string Bare(const std::vector<Word>& words, size_t i) {
  return i < words.size() && !words[i].quoted ? words[i].text : std::string();
}

// Whether the words fit the pattern; fills step, and why when a state word is unknown.
bool Fits(const Pattern& pattern, const std::vector<Word>& words, Step& step, std::string& why) {
  std::vector<std::string> parts;
  for (std::string_view rest = pattern.words; !rest.empty();) {
    const size_t blank = rest.find(' ');
    parts.emplace_back(rest.substr(0, blank));
    rest = blank == std::string_view::npos ? std::string_view() : rest.substr(blank + 1);
  }
  const bool optional = parts.back() == "[keys]";
  if (words.size() != parts.size() && !(optional && words.size() == parts.size() - 1)) return false;
  std::string state;
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string& part = parts[i];
    if (part == "NAME" || part == "KEY") {
      step.target = FromUtf8(words[i].text);
    } else if (part == "TEXT") {
      step.text = FromUtf8(words[i].text);
    } else if (part == "STATE") {
      state = words[i].text;
    } else if (Bare(words, i) != (part == "[keys]" ? "keys" : part)) {
      return false;
    }
  }
  step.kind = pattern.kind;
  step.keystrokes = optional && words.size() == parts.size();
  if (pattern.kind == StepKind::kCheckState) {
    const int found = IndexIn(kControlStates, state);
    if (found < 0) why = "unknown state '" + state + "' (" + Listed(kControlStates) + ")";
    step.controlState = static_cast<ControlState>(found);
  } else if (pattern.kind == StepKind::kCheckNodeState) {
    const int found = IndexIn(kNodeStates, state);
    if (found < 0) why = "unknown node state '" + state + "' (" + Listed(kNodeStates) + ")";
    step.nodeState = static_cast<NodeState>(found);
  }
  return true;
}

std::string Key(const std::vector<Word>& words, Step& step) {
  if (words.size() < 2) return "expected: key KEY [shift] [ctrl] [alt]";
  const std::optional<uint16_t> code = VirtualKeyOf(words[1].text);
  if (!code) return "unknown key '" + words[1].text + "'";
  step.kind = StepKind::kKey;
  step.key.virtualKey = *code;
  for (size_t i = 2; i < words.size(); ++i) {
    const std::string modifier = Bare(words, i);
    bool* held = modifier == "shift"  ? &step.key.shift
                 : modifier == "ctrl" ? &step.key.ctrl
                 : modifier == "alt"  ? &step.key.alt
                                      : nullptr;
    if (held == nullptr) return "unknown modifier '" + words[i].text + "' (shift, ctrl, alt)";
    *held = true;
  }
  return "";
}

std::string Answer(const std::vector<Word>& words, Step& step) {
  std::string usage = "expected: answer msgbox [TEXT] [title TEXT] button NAME";
  if (Bare(words, 1) != "msgbox") return usage;
  step.kind = StepKind::kAnswer;
  size_t at = 2;
  if (at < words.size() && (words[at].quoted || (Bare(words, at) != "title" && Bare(words, at) != "button"))) {
    step.hasText = true;
    step.text = FromUtf8(words[at++].text);
  }
  if (Bare(words, at) == "title" && at + 1 < words.size()) {
    step.hasTitle = true;
    step.title = FromUtf8(words[at + 1].text);
    at += 2;
  }
  if (Bare(words, at) != "button" || at + 2 != words.size()) return usage;
  step.button = FromUtf8(words[at + 1].text);
  return "";
}

std::string Timeout(const std::vector<Word>& words, Step& step) {
  const std::string& number = words.size() == 2 ? words[1].text : std::string();
  uint32_t value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (number.empty() || error != std::errc() || end != number.data() + number.size() || value == 0)
    return "expected: timeout MILLISECONDS (a whole number above 0)";
  step.kind = StepKind::kTimeout;
  step.milliseconds = value;
  return "";
}

// Reads the words of one step into step; "" when they make a step, else why not.
std::string Read(const std::vector<Word>& words, Step& step) {
  const std::string verb = Bare(words, 0);
  if (verb == "key") return Key(words, step);
  if (verb == "answer") return Answer(words, step);
  if (verb == "timeout") return Timeout(words, step);
  std::string usages;
  for (const Pattern& pattern : kPatterns) {
    if (std::string_view(pattern.words).substr(0, verb.size() + 1) != verb + ' ' && pattern.words != verb) continue;
    std::string why;
    Step tried = step;
    if (Fits(pattern, words, tried, why)) {
      step = std::move(tried);
      return why;
    }
    usages += (usages.empty() ? "expected: " : ", or ") + std::string(pattern.words);
  }
  return usages.empty() ? "unknown step '" + words[0].text + "'" : usages;
}

}  // namespace

bool SplitWords(std::string_view line, std::vector<Word>& words, std::string& why) {
  words.clear();
  size_t i = 0;
  while (i < line.size()) {
    if (IsBlank(line[i])) {
      ++i;
      continue;
    }
    Word word;
    if (line[i] != '"') {
      if (line[i] == '#') break;  // a comment to the end of the line
      while (i < line.size() && !IsBlank(line[i])) word.text += line[i++];
      words.push_back(std::move(word));
      continue;
    }
    word.quoted = true;
    ++i;
    bool closed = false;
    while (i < line.size()) {
      const char c = line[i++];
      if (c == '"') {
        closed = true;
        break;
      }
      if (c != '\\') {
        word.text += c;
        continue;
      }
      if (i == line.size()) break;
      switch (const char escaped = line[i++]) {
        case '"':
        case '\\':
          word.text += escaped;
          break;
        case 'n':
          word.text += '\n';
          break;
        case 'r':
          word.text += '\r';
          break;
        case 't':
          word.text += '\t';
          break;
        default:
          why = std::string("unknown escape \\") + escaped;
          return false;
      }
    }
    if (!closed) {
      why = "a quoted text is not closed";
      return false;
    }
    if (i < line.size() && !IsBlank(line[i])) {
      why = "a quoted text runs into the next word";
      return false;
    }
    words.push_back(std::move(word));
  }
  return true;
}

ParsedScript ParseScript(std::string_view text) {
  ParsedScript script;
  int lineNumber = 0;
  while (!text.empty() || lineNumber == 0) {
    const size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    ++lineNumber;
    std::vector<Word> words;
    std::string why;
    if (!SplitWords(line, words, why)) {
      script.errors.push_back("line " + std::to_string(lineNumber) + ": " + why);
      continue;
    }
    if (words.empty()) continue;
    Step step;
    step.line = lineNumber;
    step.source = std::string(Trimmed(line));
    why = Read(words, step);
    if (!why.empty()) {
      script.errors.push_back("line " + std::to_string(lineNumber) + ": " + why);
      continue;
    }
    script.steps.push_back(std::move(step));
  }
  return script;
}

}  // namespace vd::robot
