#pragma once
// What every view of one modal host shares: how errors are shown, the
// screen's mouse pointer, and the buttons that Enter and Escape press.
#include <cstdint>
#include <map>

#include "vd/automation/string.h"
#include "views/error_report.h"

namespace vd::win32::views {

// The buttons (control names) that Enter and Escape press in one form's
// dialog; "" for none. Enter on a button presses that button in any case.
struct DialogKeys {
  vd::automation::String defaultButton;
  vd::automation::String cancelButton;
};

struct ViewContext {
  ErrorReporter reportError = ShowErrorMessageBox;
  // Screen.MousePointer: while it is not 0 every window of the views shows it.
  int16_t screenPointer = 0;
  // By form name.
  std::map<vd::automation::String, DialogKeys> dialogKeys;
  // How many dialogs the host has shown so far.
  uint32_t modalRuns = 0;
};

}  // namespace vd::win32::views
