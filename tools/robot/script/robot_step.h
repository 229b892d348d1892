#pragma once
// One step of a robot script: what the robot does to the dialogs of another
// program, or what it expects to see there. Steps are read from text by
// ParseScript (script_parser.h); the grammar is described there.
#include <cstdint>
#include <string>

#include "vd/automation/string.h"

namespace vd::robot {

using vd::automation::String;

enum class StepKind {
  // Actions: the robot acts; a failure stops the script.
  kWaitForm,         // wait form NAME
  kWaitGone,         // wait gone
  kClose,            // close
  kCloseWindow,      // close window CLASS
  kClick,            // click NAME
  kClickNode,        // click node KEY
  kDoubleClickNode,  // dblclick node KEY
  kType,             // type NAME TEXT [keys]
  kKey,              // key KEY [shift] [ctrl] [alt]
  kPick,             // pick NAME TEXT
  kAnswer,           // answer msgbox [TEXT] [title TEXT] button NAME
  kTimeout,          // timeout MILLISECONDS
  // Checks (they come last): the robot looks; a failure is counted and the script goes on.
  kCheckCaption,       // check caption TEXT
  kCheckState,         // check NAME enabled|disabled|visible|hidden|checked|unchecked|focused
  kCheckText,          // check NAME text TEXT  (also: check NAME caption TEXT)
  kCheckItems,         // check NAME items TEXT  (the entries of a list, joined by "|")
  kCheckNodeState,     // check node KEY selected|present|absent
  kCheckNodeText,      // check node KEY text TEXT
  kCheckNoMessageBox,  // check no msgbox
};

enum class ControlState { kEnabled, kDisabled, kVisible, kHidden, kChecked, kUnchecked, kFocused };
enum class NodeState { kSelected, kPresent, kAbsent };

// A key as the keyboard sends it: a virtual-key code and the modifiers held.
struct KeyStroke {
  uint16_t virtualKey = 0;
  bool shift = false;
  bool ctrl = false;
  bool alt = false;
};

struct Step {
  int line = 0;        // 1-based line of the script
  std::string source;  // the line as written, without surrounding blanks
  StepKind kind = StepKind::kWaitForm;
  String target;            // form or control name, or node key
  String text;              // text to type, pick or expect; the message box text to expect
  bool hasText = false;     // answer: a message box text is expected
  bool hasTitle = false;    // answer: a message box title is expected
  String title;             // answer: the expected title
  String button;            // answer: the button to press
  bool keystrokes = false;  // type: one keystroke per character instead of one replacement
  ControlState controlState = ControlState::kEnabled;
  NodeState nodeState = NodeState::kSelected;
  KeyStroke key;
  uint32_t milliseconds = 0;  // timeout

  // A failed check is counted and the script goes on; a failed action stops it.
  [[nodiscard]] bool IsCheck() const;
};

}  // namespace vd::robot
