#pragma once
// A message sent to another program's window from a thread of the robot's
// own: the robot goes on looking while the window handles it, for a handler
// may show a message box and wait there for the user (the robot) to answer.
#include <windows.h>

#include <atomic>
#include <memory>
#include <string>

namespace vd::win32::robot {

class BackgroundSend {
 public:
  // lParam is the message's own value.
  BackgroundSend(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  // lParam points at text (EM_REPLACESEL, WM_SETTEXT): Windows copies it across.
  BackgroundSend(HWND window, UINT message, WPARAM wParam, std::wstring text);
  BackgroundSend(const BackgroundSend&) = delete;
  BackgroundSend& operator=(const BackgroundSend&) = delete;
  // A send still waiting is left to end with the robot's process.
  ~BackgroundSend();

  // Whether the window has handled the message.
  [[nodiscard]] bool Done() const;

  struct Shared;  // what the sending thread and the robot share

 private:
  void Start();

  std::shared_ptr<Shared> shared_;
  HANDLE thread_ = nullptr;
};

}  // namespace vd::win32::robot
