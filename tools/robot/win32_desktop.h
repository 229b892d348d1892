#pragma once
// The robot's desktop on Windows: the forms of another program found by the
// names the views publish (views/control_lookup.h), driven with real window
// messages, and their message boxes answered.
//
// Input is posted as the system posts the user's (mouse clicks at a point,
// keystrokes to the focused window), or, for what a control does when it is
// used (a button's click, a pasted text, a list's pick), sent from a thread of
// the robot's own so that a handler may hold a message box open meanwhile.
// An action has settled when the program has handled what the robot gave it
// (posted_input.h), or when it shows a message box, or its form has gone.
#include <windows.h>

#include <memory>

#include "step_runner.h"

namespace vd::win32::robot {

class Win32Desktop final : public vd::robot::Desktop {
 public:
  Win32Desktop();
  ~Win32Desktop() override;
  Win32Desktop(const Win32Desktop&) = delete;
  Win32Desktop& operator=(const Win32Desktop&) = delete;

  vd::robot::Look Ready(const vd::robot::Step& step) override;
  vd::robot::ActResult Act(const vd::robot::Step& step) override;
  vd::robot::Look Settled(const vd::robot::Step& step) override;
  void Rescue() override;

  struct Progress;  // the action under way

 private:
  // Reasons a step cannot go on now; "" when it can.
  [[nodiscard]] std::string FormProblem() const;
  [[nodiscard]] std::string InputProblem() const;
  [[nodiscard]] HWND Control(const vd::robot::String& name) const;
  [[nodiscard]] HWND Tree() const;
  [[nodiscard]] HWND Box() const;
  // A message box is shown, or the form has gone: the action has ended for now.
  [[nodiscard]] bool Interrupted() const;

  vd::robot::Look ReadyToAct(const vd::robot::Step& step);
  vd::robot::Look Check(const vd::robot::Step& step);
  vd::robot::Look CheckState(const vd::robot::Step& step, HWND control);
  vd::robot::Look CheckNode(const vd::robot::Step& step);
  vd::robot::Look Mark(HWND busy);
  vd::robot::Look Advance(const vd::robot::Step& step);

  HWND form_ = nullptr;
  DWORD formThread_ = 0;
  std::unique_ptr<Progress> progress_;
};

}  // namespace vd::win32::robot
