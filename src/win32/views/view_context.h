#pragma once
// What every view of one modal host shares: how errors are shown and the
// screen's mouse pointer.
#include <cstdint>

#include "views/error_report.h"

namespace vd::win32::views {

struct ViewContext {
  ErrorReporter reportError = ShowErrorMessageBox;
  // Screen.MousePointer: while it is not 0 every window of the views shows it.
  int16_t screenPointer = 0;
  // How many dialogs the host has shown so far.
  uint32_t modalRuns = 0;
};

}  // namespace vd::win32::views
