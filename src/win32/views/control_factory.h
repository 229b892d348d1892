#pragma once
// The Win32 window of each kind of control: class, styles, and the caption it shows.
#include <windows.h>

#include "vd/forms/control.h"

namespace vd::win32::views {

struct WindowKind {
  const wchar_t* className = nullptr;  // nullptr: the control has no window
  DWORD style = 0;
  DWORD exStyle = 0;
  // Made from the process's default controls, not version 6: Wine's version 6
  // static control allocates a block at its first WM_SETFONT and frees it only
  // for an icon, so each label of each show would keep it for the process's life.
  bool defaultControls = false;
};

WindowKind WindowKindOf(const vd::forms::Control& control);

// The caption of labels, buttons, check boxes, option buttons and frames; "" otherwise.
vd::automation::String CaptionOf(const vd::forms::Control& control);

// Enabled here and in its frames (the form's own Enabled is the dialog's).
bool EnabledInForm(const vd::forms::Control& control);
// Whether the control sits in frame, directly or deeper.
bool IsInside(const vd::forms::Control& control, const vd::forms::Control& frame);
// The frame the control sits in, nullptr on the form.
const vd::forms::Control* FrameOf(const vd::forms::Control& control);

}  // namespace vd::win32::views
