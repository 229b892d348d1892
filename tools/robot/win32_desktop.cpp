#include "win32_desktop.h"

#include <commctrl.h>

#include <utility>

#include "background_send.h"
#include "posted_input.h"
#include "views/control_lookup.h"
#include "views/wide_text.h"
#include "window_query.h"

namespace vd::win32::robot {

using vd::automation::ToUtf8;
using vd::robot::ActOutcome;
using vd::robot::ActResult;
using vd::robot::ControlState;
using vd::robot::Look;
using vd::robot::NodeState;
using vd::robot::Quoted;
using vd::robot::Step;
using vd::robot::StepKind;
using vd::win32::views::Wide;

enum class Stage {
  kMarking,     // waiting for the program to handle what was given to it
  kSending,     // a control handles a message sent to it
  kFocusing,    // a box to type in is being clicked into
  kReplacing,   // its text is being replaced
  kKeystrokes,  // characters are being typed one by one
  kDropping,    // a list is being dropped down
  kPicking,     // an entry of the list is being picked
  kBoxClosing,  // a message box is being answered
  kClosing,     // another program's window is asked to close
};

struct Win32Desktop::Progress {
  Stage stage = Stage::kMarking;
  HWND control = nullptr;
  HWND box = nullptr;
  int entry = -1;
  std::wstring characters;
  size_t typed = 0;
  std::unique_ptr<BackgroundSend> send;
  std::unique_ptr<QueueMarker> marker;
  std::unique_ptr<HeldModifiers> modifiers;
};

namespace {

std::string Utf8(const vd::robot::String& text) { return ToUtf8(text); }

Look Holds() { return {true, ""}; }
Look NotYet(std::string seen) { return {false, std::move(seen)}; }
Look Never(std::string seen) { return {false, std::move(seen), true}; }

std::string Joined(const std::vector<vd::robot::String>& texts) {
  vd::robot::String joined;
  for (size_t i = 0; i < texts.size(); ++i) joined += (i > 0 ? u"|" : u"") + texts[i];
  return Utf8(joined);
}

int IndexOf(const std::vector<vd::robot::String>& entries, const vd::robot::String& entry) {
  for (size_t i = 0; i < entries.size(); ++i)
    if (entries[i] == entry) return static_cast<int>(i);
  return -1;
}

// The window that takes typing for a control: an edit box, or the box of an editable combo.
HWND TypingWindow(HWND control) {
  if (IsClass(control, L"Edit")) return control;
  if (IsClass(control, L"ComboBox")) return ChildOfClass(control, L"Edit");
  return nullptr;
}

// A visible top-level window of this class, of any program.
HWND OtherWindow(const vd::robot::String& className) {
  const HWND window = FindWindowW(Wide(className), nullptr);
  return window != nullptr && IsWindowVisible(window) ? window : nullptr;
}

}  // namespace

Win32Desktop::Win32Desktop() = default;
Win32Desktop::~Win32Desktop() = default;

std::string Win32Desktop::FormProblem() const {
  if (form_ == nullptr) return "no form yet: a 'wait form' step comes first";
  if (!IsWindow(form_) || !IsWindowVisible(form_)) return "the form has gone";
  return "";
}

std::string Win32Desktop::InputProblem() const {
  std::string problem = FormProblem();
  if (!problem.empty()) return problem;
  if (const HWND box = Box()) return "a message box is open: " + Quoted(Utf8(MessageBoxText(box)));
  if (!IsWindowEnabled(form_)) return "the form is disabled";
  return "";
}

HWND Win32Desktop::Control(const vd::robot::String& name) const {
  return form_ != nullptr ? vd::win32::views::FindControlWindow(form_, name) : nullptr;
}

HWND Win32Desktop::Tree() const { return form_ != nullptr ? ChildOfClass(form_, WC_TREEVIEWW) : nullptr; }

HWND Win32Desktop::Box() const { return MessageBoxOf(form_); }

bool Win32Desktop::Interrupted() const { return !FormProblem().empty() || Box() != nullptr; }

Look Win32Desktop::Ready(const Step& step) { return step.IsCheck() ? Check(step) : ReadyToAct(step); }

Look Win32Desktop::ReadyToAct(const Step& step) {
  switch (step.kind) {
    case StepKind::kWaitForm: {
      const HWND window = vd::win32::views::FindFormWindow(step.target);
      if (window == nullptr) return NotYet("no form " + Utf8(step.target) + " is shown");
      return Answers(window) ? Holds() : NotYet("the form's program does not answer");
    }
    case StepKind::kWaitGone:
      if (form_ == nullptr) return Never("no form was awaited");
      return !IsWindow(form_) || !IsWindowVisible(form_) ? Holds() : NotYet("the form is still shown");
    case StepKind::kCloseWindow:
      return OtherWindow(step.target) != nullptr ? Holds() : NotYet("no window of class " + Utf8(step.target));
    case StepKind::kAnswer: {
      if (form_ == nullptr) return Never("no form yet: a 'wait form' step comes first");
      return Box() != nullptr ? Holds() : NotYet("no message box");
    }
    case StepKind::kClose: {
      const std::string problem = InputProblem();
      return problem.empty() ? Holds() : NotYet(problem);
    }
    case StepKind::kKey: {
      const std::string problem = InputProblem();
      if (!problem.empty()) return NotYet(problem);
      const HWND focus = FocusOf(formThread_);
      if (focus == nullptr || (focus != form_ && !IsChild(form_, focus))) return NotYet("the focus is not in the form");
      return Holds();
    }
    case StepKind::kClickNode:
    case StepKind::kDoubleClickNode: {
      const std::string problem = InputProblem();
      if (!problem.empty()) return NotYet(problem);
      const HWND tree = Tree();
      if (tree == nullptr) return Never("the form has no tree");
      const HTREEITEM item = vd::win32::views::FindTreeNode(tree, step.target);
      if (item == nullptr) return NotYet("no node with this key");
      POINT point{};
      return vd::win32::views::NodeClickPoint(tree, item, point) ? Holds() : NotYet("the node cannot be seen");
    }
    default:
      break;
  }
  // A control by its name: click, type, pick.
  const std::string problem = InputProblem();
  if (!problem.empty()) return NotYet(problem);
  const HWND control = Control(step.target);
  if (control == nullptr) return NotYet("no control named " + Utf8(step.target));
  if (!IsWindowVisible(control)) return NotYet(Utf8(step.target) + " is hidden");
  if (!IsWindowEnabled(control)) return NotYet(Utf8(step.target) + " is disabled");
  if (step.kind == StepKind::kType && TypingWindow(control) == nullptr)
    return Never(Utf8(step.target) + " takes no typing");
  if (step.kind == StepKind::kPick) {
    if (!IsClass(control, L"ComboBox")) return Never(Utf8(step.target) + " is not a list");
    const auto entries = EntriesOf(control);
    if (IndexOf(entries, step.text) < 0) return NotYet("entries: " + Quoted(Joined(entries)));
  }
  return Holds();
}

ActResult Win32Desktop::Act(const Step& step) {
  progress_ = std::make_unique<Progress>();
  Progress& progress = *progress_;
  switch (step.kind) {
    case StepKind::kWaitForm:
      form_ = vd::win32::views::FindFormWindow(step.target);
      formThread_ = GetWindowThreadProcessId(form_, nullptr);
      Mark(nullptr);
      break;
    case StepKind::kWaitGone:
      progress_.reset();
      break;
    case StepKind::kCloseWindow:
      progress.control = OtherWindow(step.target);
      if (progress.control == nullptr || !PostMessageW(progress.control, WM_CLOSE, 0, 0))
        return {ActOutcome::kFailed, "the window cannot be asked to close"};
      progress.stage = Stage::kClosing;
      break;
    case StepKind::kClose:
      // What the close box of the caption sends.
      PostMessageW(form_, WM_SYSCOMMAND, SC_CLOSE, 0);
      Mark(nullptr);
      break;
    case StepKind::kClick: {
      const HWND control = Control(step.target);
      if (IsClass(control, L"Button")) {
        progress.send = std::make_unique<BackgroundSend>(control, BM_CLICK, 0, 0);
        progress.stage = Stage::kSending;
      } else {
        PostClick(control, CentreOf(control));
        Mark(nullptr);
      }
      break;
    }
    case StepKind::kClickNode:
    case StepKind::kDoubleClickNode: {
      const HWND tree = Tree();
      POINT point{};
      const HTREEITEM item = vd::win32::views::FindTreeNode(tree, step.target);
      if (item == nullptr || !vd::win32::views::NodeClickPoint(tree, item, point))
        return {ActOutcome::kFailed, "the node went away"};
      if (step.kind == StepKind::kClickNode) {
        PostClick(tree, point);
      } else {
        PostDoubleClick(tree, point);
      }
      Mark(nullptr);
      break;
    }
    case StepKind::kType: {
      progress.control = TypingWindow(Control(step.target));
      progress.characters = std::wstring(step.text.begin(), step.text.end());
      PostClick(progress.control, CentreOf(progress.control));
      // The click places the caret: the whole text is selected only once it was handled.
      progress.marker = std::make_unique<QueueMarker>(form_, progress.control);
      progress.stage = Stage::kFocusing;
      break;
    }
    case StepKind::kKey: {
      const auto& key = step.key;
      progress.modifiers = std::make_unique<HeldModifiers>(formThread_, key.shift, key.ctrl, key.alt);
      if ((key.shift || key.ctrl || key.alt) && !progress.modifiers->Holding())
        return {ActOutcome::kFailed, "the modifier keys cannot be held for the form's thread"};
      const HWND focus = FocusOf(formThread_);
      PostKeystroke(focus, key.virtualKey, key.alt);
      Mark(focus);
      break;
    }
    case StepKind::kPick: {
      progress.control = Control(step.target);
      progress.entry = IndexOf(EntriesOf(progress.control), step.text);
      PostClick(progress.control, CentreOf(progress.control));
      progress.stage = Stage::kDropping;
      break;
    }
    case StepKind::kAnswer: {
      const HWND box = Box();
      const vd::robot::String text = MessageBoxText(box);
      const vd::robot::String title = TextOf(box);
      const HWND button = ButtonNamed(box, step.button);
      if (button == nullptr)
        return {ActOutcome::kFailed,
                "no button " + Utf8(step.button) + " (buttons: " + Quoted(Joined(ButtonTexts(box))) + ")"};
      PostMessageW(button, BM_CLICK, 0, 0);
      progress.box = box;
      progress.stage = Stage::kBoxClosing;
      const bool textDiffers = step.hasText && text != step.text;
      const bool titleDiffers = step.hasTitle && title != step.title;
      if (textDiffers || titleDiffers)
        return {ActOutcome::kDiffers, "text " + Quoted(Utf8(text)) + ", title " + Quoted(Utf8(title))};
      break;
    }
    default:
      return {ActOutcome::kFailed, "not an action"};
  }
  return {ActOutcome::kDone, ""};
}

Look Win32Desktop::Mark(HWND busy) {
  progress_->marker = std::make_unique<QueueMarker>(form_, busy);
  progress_->stage = Stage::kMarking;
  return NotYet("the form's program has not yet handled the input");
}

Look Win32Desktop::Settled(const Step& step) {
  if (!progress_) return Holds();
  const Look look = Advance(step);
  if (look.holds || look.final) progress_.reset();  // also lets go of held modifier keys
  return look;
}

Look Win32Desktop::Advance(const Step& step) {
  Progress& progress = *progress_;
  switch (progress.stage) {
    case Stage::kMarking:
      if (Interrupted()) return Holds();
      if (!progress.marker->Reached()) return NotYet("the form's program has not yet handled the input");
      if (step.kind == StepKind::kClickNode) {
        const vd::robot::String selected = vd::win32::views::SelectedNodeKey(Tree());
        if (selected != step.target)
          return Never("the node did not become the selected one (selected: " + Quoted(Utf8(selected)) + ")");
      }
      return Holds();

    case Stage::kClosing:
      return IsWindow(progress.control) ? NotYet("the window is still there") : Holds();

    case Stage::kSending:
      if (Interrupted()) return Holds();
      if (!progress.send->Done()) return NotYet("the control is still handling the click");
      return Mark(nullptr);

    case Stage::kFocusing:
      if (const HWND box = Box())
        return Never("a message box came up before typing: " + Quoted(Utf8(MessageBoxText(box))));
      if (!FormProblem().empty()) return Never(FormProblem());
      if (!progress.marker->Reached()) return NotYet("the click into the box has not yet been handled");
      if (FocusOf(formThread_) != progress.control) return NotYet("the box did not get the focus");
      progress.marker.reset();
      {
        LRESULT ignored = 0;
        Ask(progress.control, EM_SETSEL, 0, -1, ignored);  // typing replaces the whole text
      }
      if (!step.keystrokes) {
        progress.send = std::make_unique<BackgroundSend>(progress.control, EM_REPLACESEL, TRUE, progress.characters);
        progress.stage = Stage::kReplacing;
        return NotYet("the text is being replaced");
      }
      if (progress.characters.empty()) progress.characters = L"\b";  // typing nothing over a selection deletes it
      progress.stage = Stage::kKeystrokes;
      return Advance(step);

    case Stage::kReplacing:
      if (Interrupted()) return Holds();
      if (!progress.send->Done()) return NotYet("the text is being replaced");
      return Mark(progress.control);

    case Stage::kKeystrokes:
      if (progress.marker != nullptr && !progress.marker->Reached()) {
        if (!Interrupted()) return NotYet("the keystrokes are being handled");
        if (progress.typed == progress.characters.size()) return Holds();
        return Never("a message box came up after " + std::to_string(progress.typed) + " of " +
                     std::to_string(progress.characters.size()) + " keystrokes");
      }
      if (progress.typed == progress.characters.size()) return Holds();
      PostCharacter(progress.control, progress.characters[progress.typed++]);
      progress.marker = std::make_unique<QueueMarker>(form_, progress.control);
      return NotYet("the keystrokes are being handled");

    case Stage::kDropping: {
      if (const HWND box = Box()) return Never("a message box came up: " + Quoted(Utf8(MessageBoxText(box))));
      LRESULT dropped = 0;
      if (!Ask(progress.control, CB_GETDROPPEDSTATE, 0, 0, dropped) || dropped == 0)
        return NotYet("the list did not drop down");
      LRESULT ignored = 0;
      Ask(progress.control, CB_SETCURSEL, static_cast<WPARAM>(progress.entry), 0, ignored);
      // The list tells its form of the pick as it does when the user picks an entry.
      const auto id = static_cast<WORD>(GetDlgCtrlID(progress.control));
      progress.send =
          std::make_unique<BackgroundSend>(GetParent(progress.control), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                                           reinterpret_cast<LPARAM>(progress.control));
      progress.stage = Stage::kPicking;
      return NotYet("the entry is being picked");
    }

    case Stage::kPicking:
      if (!progress.send->Done() && !Interrupted()) return NotYet("the entry is being picked");
      if (Interrupted()) {
        PostMessageW(progress.control, CB_SHOWDROPDOWN, FALSE, 0);
        return Holds();
      }
      // The user ends the pick with Enter: the list itself tells its form that
      // the pick ended (also on the entry already shown) and closes.
      PostKeystroke(progress.control, VK_RETURN, false);
      return Mark(nullptr);

    case Stage::kBoxClosing:
      if (IsWindow(progress.box) && IsWindowVisible(progress.box)) return NotYet("the message box is still shown");
      if (!FormProblem().empty()) return Holds();
      return Mark(nullptr);
  }
  return Holds();
}

Look Win32Desktop::Check(const Step& step) {
  if (step.kind == StepKind::kCheckNoMessageBox) {
    const HWND box = form_ != nullptr ? Box() : nullptr;
    return box == nullptr ? Holds() : NotYet("a message box: " + Quoted(Utf8(MessageBoxText(box))));
  }
  const std::string problem = FormProblem();
  if (!problem.empty()) return NotYet(problem);
  switch (step.kind) {
    case StepKind::kCheckCaption: {
      const vd::robot::String caption = TextOf(form_);
      return caption == step.text ? Holds() : NotYet(Quoted(Utf8(caption)));
    }
    case StepKind::kCheckNodeState:
    case StepKind::kCheckNodeText:
      return CheckNode(step);
    default:
      break;
  }
  const HWND control = Control(step.target);
  if (control == nullptr) return NotYet("no control named " + Utf8(step.target));
  switch (step.kind) {
    case StepKind::kCheckState:
      return CheckState(step, control);
    case StepKind::kCheckText: {
      const vd::robot::String text =
          IsClass(control, STATUSCLASSNAMEW) ? RemoteStatusText(control).value_or(u"") : TextOf(control);
      return text == step.text ? Holds() : NotYet(Quoted(Utf8(text)));
    }
    case StepKind::kCheckItems: {
      const std::string entries = Joined(EntriesOf(control));
      return entries == Utf8(step.text) ? Holds() : NotYet(Quoted(entries));
    }
    default:
      return Never("not a check");
  }
}

Look Win32Desktop::CheckState(const Step& step, HWND control) {
  const auto is = [](bool holds, const char* yes, const char* no) { return holds ? Look{true, yes} : NotYet(no); };
  switch (step.controlState) {
    case ControlState::kEnabled:
      return is(IsWindowEnabled(control) != FALSE, "enabled", "disabled");
    case ControlState::kDisabled:
      return is(IsWindowEnabled(control) == FALSE, "disabled", "enabled");
    case ControlState::kVisible:
      return is(IsWindowVisible(control) != FALSE, "visible", "hidden");
    case ControlState::kHidden:
      return is(IsWindowVisible(control) == FALSE, "hidden", "visible");
    case ControlState::kFocused: {
      const HWND focus = FocusOf(formThread_);
      return is(focus != nullptr && (focus == control || IsChild(control, focus)), "focused", "not focused");
    }
    case ControlState::kChecked:
    case ControlState::kUnchecked: {
      LRESULT check = 0;
      if (!Ask(control, BM_GETCHECK, 0, 0, check)) return NotYet("no answer");
      const char* seen = check == BST_CHECKED ? "checked" : check == BST_UNCHECKED ? "unchecked" : "indeterminate";
      const LRESULT wanted = step.controlState == ControlState::kChecked ? BST_CHECKED : BST_UNCHECKED;
      return is(check == wanted, seen, seen);
    }
  }
  return Never("unknown state");
}

Look Win32Desktop::CheckNode(const Step& step) {
  const HWND tree = Tree();
  if (tree == nullptr) return Never("the form has no tree");
  const HTREEITEM item = vd::win32::views::FindTreeNode(tree, step.target);
  if (step.kind == StepKind::kCheckNodeText) {
    if (item == nullptr) return NotYet("no node with this key");
    const auto text = RemoteNodeText(tree, item);
    if (!text) return NotYet("the node's text cannot be read");
    return *text == step.text ? Holds() : NotYet(Quoted(Utf8(*text)));
  }
  switch (step.nodeState) {
    case NodeState::kPresent:
      return item != nullptr ? Holds() : NotYet("no node with this key");
    case NodeState::kAbsent:
      return item == nullptr ? Holds() : NotYet("the node is there");
    case NodeState::kSelected: {
      const vd::robot::String selected = vd::win32::views::SelectedNodeKey(tree);
      return selected == step.target ? Holds() : NotYet("selected: " + Quoted(Utf8(selected)));
    }
  }
  return Never("unknown node state");
}

void Win32Desktop::Rescue() {
  progress_.reset();
  if (form_ == nullptr) return;
  // Bounded: answer what is open and ask the form to close, until it has gone.
  constexpr ULONGLONG kRescueMs = 10000;
  const ULONGLONG deadline = GetTickCount64() + kRescueMs;
  while (IsWindow(form_) && IsWindowVisible(form_) && GetTickCount64() < deadline) {
    if (const HWND box = Box()) {
      PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
    } else {
      PostMessageW(form_, WM_CLOSE, 0, 0);
    }
    const ULONGLONG next = GetTickCount64() + 200;
    while (GetTickCount64() < next && IsWindow(form_) && IsWindowVisible(form_)) Sleep(10);
  }
}

}  // namespace vd::win32::robot
