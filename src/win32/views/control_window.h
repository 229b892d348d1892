#pragma once
// One control of a form and the window that shows it.
#include <windows.h>

#include <memory>

#include "vd/forms/control.h"
#include "views/tree_mirror.h"

namespace vd::win32::views {

class FormView;

struct ControlWindow {
  vd::forms::Control* control = nullptr;
  FormView* view = nullptr;
  int id = 0;
  HWND window = nullptr;         // nullptr for a control without a window (an image list)
  HWND edit = nullptr;           // the edit field of an editable combo box
  WNDPROC windowProc = nullptr;  // the class's procedures, called after the view's
  WNDPROC editProc = nullptr;
  std::unique_ptr<TreeMirror> tree;
  bool hasTip = false;  // registered with the tooltip window
};

}  // namespace vd::win32::views
