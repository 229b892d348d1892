#pragma once
// An error raised by a handler while a view dispatches what the user did is
// shown in a message box and goes no further: the dialog stays, and nothing
// crosses a window procedure.
#include <windows.h>

#include <cstdint>
#include <functional>

#include "vd/automation/string.h"

namespace vd::win32::views {

using vd::automation::String;
using vd::automation::StringView;

struct ReportedError {
  int32_t number = 0;
  String description;
};

// The error being handled, inside a catch block: an AutomationError as it
// is, out of memory as error 7, any other exception as error 440 with its text.
ReportedError CurrentError();

// "Run-time error '13':" CR LF CR LF "Type mismatch".
String ErrorMessageText(const ReportedError& error);

// Shows the error: owner is the form's window, title the form's caption.
using ErrorReporter = std::function<void(HWND owner, StringView title, const ReportedError& error)>;

// The default reporter: a message box with the exclamation icon and OK.
void ShowErrorMessageBox(HWND owner, StringView title, const ReportedError& error);

}  // namespace vd::win32::views
