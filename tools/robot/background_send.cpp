#include "background_send.h"

#include <system_error>
#include <thread>

namespace vd::win32::robot {

BackgroundSend::BackgroundSend(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  Start(window, message, wParam, lParam, nullptr);
}

BackgroundSend::BackgroundSend(HWND window, UINT message, WPARAM wParam, std::wstring text) {
  Start(window, message, wParam, 0, std::make_shared<const std::wstring>(std::move(text)));
}

void BackgroundSend::Start(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                           std::shared_ptr<const std::wstring> text) {
  // The thread shares the flag and the text with this object, and may outlive it.
  try {
    std::thread([window, message, wParam, lParam, text, done = done_] {
      SendMessageW(window, message, wParam, text ? reinterpret_cast<LPARAM>(text->c_str()) : lParam);
      *done = true;
    }).detach();
  } catch (const std::system_error&) {
    *done_ = true;  // nothing was sent: nothing to wait for
  }
}

}  // namespace vd::win32::robot
