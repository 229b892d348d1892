#include "script_parser.h"

#include <charconv>
#include <optional>

#include "key_names.h"
#include "vd/automation/string.h"

namespace vd::robot {

using vd::automation::FromUtf8;

bool Step::IsCheck() const {
  switch (kind) {
    case StepKind::kCheckCaption:
    case StepKind::kCheckState:
    case StepKind::kCheckText:
    case StepKind::kCheckItems:
    case StepKind::kCheckNodeState:
    case StepKind::kCheckNodeText:
    case StepKind::kCheckNoMessageBox:
      return true;
    default:
      return false;
  }
}

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::optional<ControlState> ControlStateOf(std::string_view word) {
  if (word == "enabled") return ControlState::kEnabled;
  if (word == "disabled") return ControlState::kDisabled;
  if (word == "visible") return ControlState::kVisible;
  if (word == "hidden") return ControlState::kHidden;
  if (word == "checked") return ControlState::kChecked;
  if (word == "unchecked") return ControlState::kUnchecked;
  if (word == "focused") return ControlState::kFocused;
  return std::nullopt;
}

std::optional<NodeState> NodeStateOf(std::string_view word) {
  if (word == "selected") return NodeState::kSelected;
  if (word == "present") return NodeState::kPresent;
  if (word == "absent") return NodeState::kAbsent;
  return std::nullopt;
}

// Reads the words of one step into step; "" when they make a step, else why not.
class LineReader {
 public:
  LineReader(const std::vector<Word>& words, Step& step) : words_(words), step_(step) {}

  std::string Read() {
    const std::string verb = Bare(0);
    if (verb == "wait") return Wait();
    if (verb == "click" || verb == "dblclick") return Click(verb == "dblclick");
    if (verb == "close") {
      step_.kind = StepKind::kClose;
      return Expect(1, "close");
    }
    if (verb == "type") return Type();
    if (verb == "key") return Key();
    if (verb == "pick") return Pick();
    if (verb == "answer") return Answer();
    if (verb == "timeout") return Timeout();
    if (verb == "check") return Check();
    return "unknown step '" + words_[0].text + "'";
  }

 private:
  // A keyword: a bare word at position i, "" when there is none.
  [[nodiscard]] std::string Bare(size_t i) const {
    return i < words_.size() && !words_[i].quoted ? words_[i].text : std::string();
  }
  [[nodiscard]] bool Has(size_t i) const { return i < words_.size(); }
  [[nodiscard]] String Text(size_t i) const { return FromUtf8(words_[i].text); }
  [[nodiscard]] std::string Expect(size_t count, const char* usage) const {
    return words_.size() == count ? std::string() : std::string("expected: ") + usage;
  }

  std::string Wait() {
    if (Bare(1) == "form") {
      if (!Has(2)) return "expected: wait form NAME";
      step_.kind = StepKind::kWaitForm;
      step_.target = Text(2);
      return Expect(3, "wait form NAME");
    }
    if (Bare(1) == "gone") {
      step_.kind = StepKind::kWaitGone;
      return Expect(2, "wait gone");
    }
    return "expected: wait form NAME, or wait gone";
  }

  std::string Click(bool twice) {
    if (Bare(1) == "node") {
      if (!Has(2)) return "expected: click node KEY";
      step_.kind = twice ? StepKind::kDoubleClickNode : StepKind::kClickNode;
      step_.target = Text(2);
      return Expect(3, "click node KEY");
    }
    if (twice) return "expected: dblclick node KEY";
    if (!Has(1)) return "expected: click NAME";
    step_.kind = StepKind::kClick;
    step_.target = Text(1);
    return Expect(2, "click NAME");
  }

  std::string Type() {
    if (!Has(2)) return "expected: type NAME TEXT [keys]";
    step_.kind = StepKind::kType;
    step_.target = Text(1);
    step_.text = Text(2);
    if (Has(3)) {
      if (Bare(3) != "keys") return "expected: type NAME TEXT [keys]";
      step_.keystrokes = true;
      return Expect(4, "type NAME TEXT [keys]");
    }
    return "";
  }

  std::string Key() {
    if (!Has(1)) return "expected: key KEY [shift] [ctrl] [alt]";
    const std::optional<uint16_t> code = VirtualKeyOf(words_[1].text);
    if (!code) return "unknown key '" + words_[1].text + "'";
    step_.kind = StepKind::kKey;
    step_.key.virtualKey = *code;
    for (size_t i = 2; i < words_.size(); ++i) {
      const std::string modifier = Bare(i);
      bool* held = modifier == "shift"  ? &step_.key.shift
                   : modifier == "ctrl" ? &step_.key.ctrl
                   : modifier == "alt"  ? &step_.key.alt
                                        : nullptr;
      if (held == nullptr) return "unknown modifier '" + words_[i].text + "' (shift, ctrl, alt)";
      *held = true;
    }
    return "";
  }

  std::string Pick() {
    if (!Has(2)) return "expected: pick NAME TEXT";
    step_.kind = StepKind::kPick;
    step_.target = Text(1);
    step_.text = Text(2);
    return Expect(3, "pick NAME TEXT");
  }

  std::string Answer() {
    static constexpr char kUsage[] = "answer msgbox [TEXT] [title TEXT] button NAME";
    if (Bare(1) != "msgbox") return std::string("expected: ") + kUsage;
    step_.kind = StepKind::kAnswer;
    size_t at = 2;
    if (Has(at) && (words_[at].quoted || (Bare(at) != "title" && Bare(at) != "button"))) {
      step_.hasText = true;
      step_.text = Text(at++);
    }
    if (Bare(at) == "title") {
      if (!Has(at + 1)) return std::string("expected: ") + kUsage;
      step_.hasTitle = true;
      step_.title = Text(at + 1);
      at += 2;
    }
    if (Bare(at) != "button" || !Has(at + 1)) return std::string("expected: ") + kUsage;
    step_.button = Text(at + 1);
    return Expect(at + 2, kUsage);
  }

  std::string Timeout() {
    const std::string& number = Has(1) ? words_[1].text : std::string();
    uint32_t value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (number.empty() || error != std::errc() || end != number.data() + number.size() || value == 0)
      return "expected: timeout MILLISECONDS (a whole number above 0)";
    step_.kind = StepKind::kTimeout;
    step_.milliseconds = value;
    return Expect(2, "timeout MILLISECONDS");
  }

  std::string Check() {
    if (Bare(1) == "caption") {
      if (!Has(2)) return "expected: check caption TEXT";
      step_.kind = StepKind::kCheckCaption;
      step_.text = Text(2);
      return Expect(3, "check caption TEXT");
    }
    if (Bare(1) == "no" && Bare(2) == "msgbox") {
      step_.kind = StepKind::kCheckNoMessageBox;
      return Expect(3, "check no msgbox");
    }
    if (Bare(1) == "node") return CheckNode();
    if (!Has(2)) return "expected: check NAME STATE, check NAME text TEXT or check NAME items TEXT";
    step_.target = Text(1);
    const std::string what = Bare(2);
    if (what == "text" || what == "caption" || what == "items") {
      if (!Has(3)) return "expected: check NAME " + what + " TEXT";
      step_.kind = what == "items" ? StepKind::kCheckItems : StepKind::kCheckText;
      step_.text = Text(3);
      return Expect(4, "check NAME text TEXT");
    }
    const std::optional<ControlState> state = ControlStateOf(what);
    if (!state)
      return "unknown state '" + words_[2].text + "' (enabled, disabled, visible, hidden, checked, unchecked, focused)";
    step_.kind = StepKind::kCheckState;
    step_.controlState = *state;
    return Expect(3, "check NAME STATE");
  }

  std::string CheckNode() {
    if (!Has(3)) return "expected: check node KEY selected|present|absent, or check node KEY text TEXT";
    step_.target = Text(2);
    if (Bare(3) == "text") {
      if (!Has(4)) return "expected: check node KEY text TEXT";
      step_.kind = StepKind::kCheckNodeText;
      step_.text = Text(4);
      return Expect(5, "check node KEY text TEXT");
    }
    const std::optional<NodeState> state = NodeStateOf(Bare(3));
    if (!state) return "unknown node state '" + words_[3].text + "' (selected, present, absent)";
    step_.kind = StepKind::kCheckNodeState;
    step_.nodeState = *state;
    return Expect(4, "check node KEY STATE");
  }

  const std::vector<Word>& words_;
  Step& step_;
};

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
    why = LineReader(words, step).Read();
    if (!why.empty()) {
      script.errors.push_back("line " + std::to_string(lineNumber) + ": " + why);
      continue;
    }
    script.steps.push_back(std::move(step));
  }
  return script;
}

}  // namespace vd::robot
