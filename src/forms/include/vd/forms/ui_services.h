#pragma once
// Everything the forms ask of the desktop besides their own controls. The
// forms call these and never implement them: Windows answers with the real
// calls, tests with a scripted fake.
#include <cstdint>
#include <optional>

#include "vd/automation/string.h"
#include "vd/forms/constants.h"

namespace vd::forms {

class Control;
class Form;

using vd::automation::String;
using vd::automation::StringView;

class UiServices {
 public:
  UiServices() = default;
  UiServices(const UiServices&) = delete;
  UiServices& operator=(const UiServices&) = delete;
  virtual ~UiServices() = default;

  // A message box: style adds buttons (vbOKOnly, vbYesNo), icon (vbCritical,
  // vbExclamation, vbInformation) and default button (vbDefaultButton2); no
  // title shows the application's own. Answers the button pressed (vbOK, vbYes, vbNo).
  virtual int32_t MsgBox(StringView text, int32_t style, const std::optional<String>& title) = 0;
  // An input box; answers the text entered, "" when cancelled.
  virtual String InputBox(StringView prompt, StringView title, StringView defaultText) = 0;
  // The open-file dialog owned by owner (nullptr: none). filter is the list of
  // "description|pattern|" pairs; flags are the dialog's option bits. Answers
  // the chosen path, "" when cancelled.
  virtual String OpenFileDialog(const Form* owner, StringView title, StringView filter, StringView defaultExt,
                                uint32_t flags) = 0;
  // Starts a program (its command line) in a normal window and waits for it to
  // end while the message loop keeps running. False when it could not start.
  virtual bool StartProgramAndWait(StringView commandLine) = 0;
  // Brings the form's window above all others without leaving it topmost.
  virtual void BringToFront(const Form& form) = 0;
  // The screen's mouse pointer (vbDefault, vbHourglass, ...).
  virtual void SetScreenMousePointer(int16_t pointer) = 0;
  // Repaints a control at once, inside a handler that has not yet returned.
  virtual void RefreshNow(const Control& control) = 0;
};

}  // namespace vd::forms
