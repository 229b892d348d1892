#pragma once
// Robot scripts: one step per line. Blank lines and lines whose first word
// begins with "#" are skipped; a word beginning with "#" outside quotes ends
// the line (a trailing comment). Texts are bare words or quoted: "two words",
// with \" \\ \n \r \t inside quotes.
//
//   wait form NAME            the form's window is shown; later steps act on it
//   wait gone                 the form's window has gone (hidden or destroyed)
//   close                     the form's close box
//   close window CLASS        another program's top-level window of this window
//                             class (an editor the form started): waits for it,
//                             asks it to close (WM_CLOSE) and waits until it has gone
//   click NAME                presses a button (or clicks another control)
//   click node KEY            clicks the text of the tree node with this key
//   dblclick node KEY         double-clicks it
//   type NAME TEXT            focuses the box and replaces its text by TEXT in
//                             one edit, as pasting does (one change event)
//   type NAME TEXT keys       the same, one keystroke per character
//   key KEY [shift] [ctrl] [alt]   a key to the focused control (F3, TAB, F, ...)
//   pick NAME TEXT            picks the entry TEXT of a drop-down list
//   answer msgbox [TEXT] [title TEXT] button NAME
//                             the form's message box: checks its text and
//                             title, then presses the button
//   timeout MILLISECONDS      how long later steps wait at most
//   check caption TEXT        the form's caption
//   check NAME enabled|disabled|visible|hidden|checked|unchecked|focused
//   check NAME text TEXT      (or: check NAME caption TEXT)
//   check NAME items TEXT     a list's entries, joined by "|"
//   check node KEY selected|present|absent
//   check node KEY text TEXT
//   check no msgbox           no message box is shown
#include <string>
#include <string_view>
#include <vector>

#include "robot_step.h"

namespace vd::robot {

struct ParsedScript {
  std::vector<Step> steps;
  std::vector<std::string> errors;  // "line N: why", in line order
};

ParsedScript ParseScript(std::string_view text);

// One line's words: bare words and quoted texts (unquoted, escapes resolved).
struct Word {
  std::string text;
  bool quoted = false;
};
// The words of a line up to a trailing comment; false with why when a quote
// is left open or an escape is unknown.
bool SplitWords(std::string_view line, std::vector<Word>& words, std::string& why);

}  // namespace vd::robot
