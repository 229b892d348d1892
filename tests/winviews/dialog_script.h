#pragma once
// Drives a form's real dialog from inside its own message loop: each step is
// a message posted to a hidden window, so it runs after everything the
// previous step posted (clicks, keys) has been dispatched, inside whatever
// loop runs then (the dialog's, a message box's). A wait re-posts itself until
// its condition holds, a bounded number of times, then fails the test.
//
//   DialogScript script(form, host);
//   script.Then("click Apply", [&] { PostClick(script.Window(form.cmdApply)); })
//         .WaitFor("a message box", [&] { return FindMessageBox(script.Dialog()) != nullptr; })
//         .Then(...);
//   script.Run();  // Show(true); returns when the form hides (the script hides it after its last step)
#include <windows.h>

#include <deque>
#include <functional>
#include <string>

#include "vd/forms/form.h"
#include "views/win32_modal_host.h"

namespace vd::win32::views::testing {

class DialogScript {
 public:
  DialogScript(vd::forms::Form& form, Win32ModalHost& host);
  DialogScript(const DialogScript&) = delete;
  DialogScript& operator=(const DialogScript&) = delete;
  ~DialogScript();

  DialogScript& Then(std::string label, std::function<void()> action);
  DialogScript& WaitFor(std::string label, std::function<bool()> condition);
  // Shows the form modally and runs the steps; returns when the form is hidden.
  void Run();

  [[nodiscard]] HWND Dialog() const;
  [[nodiscard]] HWND Window(const vd::forms::Control& control) const;
  [[nodiscard]] FormView& View() const;
  [[nodiscard]] size_t Remaining() const { return steps_.size(); }

 private:
  struct Step {
    std::string label;
    std::function<void()> action;
    std::function<bool()> until;
  };
  static LRESULT CALLBACK Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void RunNext();
  void PostNext();

  vd::forms::Form& form_;
  Win32ModalHost& host_;
  HWND window_ = nullptr;
  std::deque<Step> steps_;
  int polls_ = 0;
};

}  // namespace vd::win32::views::testing
