#include "background_send.h"

namespace vd::win32::robot {

struct BackgroundSend::Shared {
  HWND window = nullptr;
  UINT message = 0;
  WPARAM wParam = 0;
  LPARAM lParam = 0;
  std::wstring text;
  bool usesText = false;
  std::atomic<bool> done{false};
};

namespace {

DWORD WINAPI SendAndMark(LPVOID parameter) {
  // The thread owns a reference of its own, taken before it started.
  auto* shared = static_cast<std::shared_ptr<BackgroundSend::Shared>*>(parameter);
  const std::shared_ptr<BackgroundSend::Shared> state = std::move(*shared);
  delete shared;
  const LPARAM lParam = state->usesText ? reinterpret_cast<LPARAM>(state->text.c_str()) : state->lParam;
  SendMessageW(state->window, state->message, state->wParam, lParam);
  state->done = true;
  return 0;
}

}  // namespace

BackgroundSend::BackgroundSend(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    : shared_(std::make_shared<Shared>()) {
  shared_->window = window;
  shared_->message = message;
  shared_->wParam = wParam;
  shared_->lParam = lParam;
  Start();
}

BackgroundSend::BackgroundSend(HWND window, UINT message, WPARAM wParam, std::wstring text)
    : shared_(std::make_shared<Shared>()) {
  shared_->window = window;
  shared_->message = message;
  shared_->wParam = wParam;
  shared_->text = std::move(text);
  shared_->usesText = true;
  Start();
}

void BackgroundSend::Start() {
  auto* reference = new std::shared_ptr<Shared>(shared_);
  thread_ = CreateThread(nullptr, 0, SendAndMark, reference, 0, nullptr);
  if (thread_ == nullptr) {
    delete reference;
    shared_->done = true;  // nothing was sent: nothing to wait for
  }
}

BackgroundSend::~BackgroundSend() {
  if (thread_ == nullptr) return;
  if (shared_->done) WaitForSingleObject(thread_, INFINITE);
  CloseHandle(thread_);
}

bool BackgroundSend::Done() const { return shared_->done; }

}  // namespace vd::win32::robot
