#pragma once
// A message sent to another program's window from a thread of the robot's
// own: the robot goes on looking while the window handles it, for a handler
// may show a message box and wait there for the user (the robot) to answer.
// A send still waiting when the robot ends is left to end with its process.
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

  // Whether the window has handled the message.
  [[nodiscard]] bool Done() const { return *done_; }

 private:
  void Start(HWND window, UINT message, WPARAM wParam, LPARAM lParam, std::shared_ptr<const std::wstring> text);

  std::shared_ptr<std::atomic<bool>> done_ = std::make_shared<std::atomic<bool>>(false);
};

}  // namespace vd::win32::robot
