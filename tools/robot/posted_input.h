#pragma once
// The user's input to another program's windows, posted to its message queue
// as the system posts mouse and keyboard input: it passes through that
// program's message loop (its key preview and dialog navigation) in order,
// and a mark posted behind it tells when that program has handled it.
#include <windows.h>

#include <cstdint>

namespace vd::win32::robot {

// The middle of a window, in its client coordinates.
POINT CentreOf(HWND window);
void PostClick(HWND window, POINT at);
void PostDoubleClick(HWND window, POINT at);
// A key pressed and released; with alt as a system key.
void PostKeystroke(HWND window, uint16_t virtualKey, bool alt);
void PostCharacter(HWND window, wchar_t character);

// While it lives, the other thread reads Shift, Ctrl and Alt as held: the
// robot's thread shares its input state and sets those keys down in it.
class HeldModifiers {
 public:
  HeldModifiers(DWORD thread, bool shift, bool ctrl, bool alt);
  HeldModifiers(const HeldModifiers&) = delete;
  HeldModifiers& operator=(const HeldModifiers&) = delete;
  ~HeldModifiers();

  [[nodiscard]] bool Holding() const { return attached_; }

 private:
  void SetKeys(bool shift, bool ctrl, bool alt);

  DWORD thread_;
  bool attached_ = false;
};

// Tells when another program's thread has handled everything posted to it
// before now: a mark posted behind that input is seen once the thread got to
// it. The mark turns over the modified flag of one of the form's edit boxes
// (one the step does not type into), which nothing of the views reads.
class QueueMarker {
 public:
  // Posts the mark through an edit box of the form other than busy.
  QueueMarker(HWND form, HWND busy);
  // The thread has handled the mark (or the box has gone with its form).
  [[nodiscard]] bool Reached() const;

 private:
  HWND form_;
  HWND edit_ = nullptr;
  LRESULT expected_ = 0;
};

}  // namespace vd::win32::robot
