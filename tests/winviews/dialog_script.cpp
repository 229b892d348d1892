#include "dialog_script.h"

#include <gtest/gtest.h>

#include "win_robot.h"

namespace vd::win32::views::testing {
namespace {
constexpr UINT kStepMessage = WM_APP + 1;
// Enough rounds of the message queue for anything a step posts to settle.
constexpr int kMaxPolls = 20000;
constexpr wchar_t kClassName[] = L"VdWinViewsTestScript";

void RegisterScriptClass(WNDPROC proc) {
  static const bool registered = [proc] {
    WNDCLASSW type{};
    type.lpfnWndProc = proc;
    type.hInstance = GetModuleHandleW(nullptr);
    type.lpszClassName = kClassName;
    return RegisterClassW(&type) != 0;
  }();
  (void)registered;
}
}  // namespace

DialogScript::DialogScript(vd::forms::Form& form, Win32ModalHost& host) : form_(form), host_(host) {
  form_.SetModalHost(&host_);
  RegisterScriptClass(Proc);
  window_ = CreateWindowExW(0, kClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, GetModuleHandleW(nullptr), this);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

DialogScript::~DialogScript() {
  if (window_ != nullptr) DestroyWindow(window_);
}

DialogScript& DialogScript::Then(std::string label, std::function<void()> action) {
  steps_.push_back({std::move(label), std::move(action), nullptr});
  return *this;
}

DialogScript& DialogScript::WaitFor(std::string label, std::function<bool()> condition) {
  steps_.push_back({std::move(label), nullptr, std::move(condition)});
  return *this;
}

void DialogScript::Run() {
  PostNext();
  form_.Show(true);
  EXPECT_EQ(steps_.size(), 0u) << "steps left when the dialog closed, next: " << steps_.front().label;
}

HWND DialogScript::Dialog() const { return static_cast<HWND>(form_.NativeHandle()); }

FormView& DialogScript::View() const { return *host_.ViewOf(form_); }

HWND DialogScript::Window(const vd::forms::Control& control) const {
  const FormView* view = host_.ViewOf(form_);
  return view != nullptr ? view->WindowOf(control) : nullptr;
}

void DialogScript::PostNext() { PostMessageW(window_, kStepMessage, 0, 0); }

void DialogScript::RunNext() {
  if (steps_.empty()) {
    // The script is done: so is the dialog, and any box left open on it.
    if (const HWND left = FindOwnedDialog(Dialog()); left != nullptr && ++polls_ < kMaxPolls) {
      ADD_FAILURE() << "a dialog was left open on the form";
      PostMessageW(left, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
      PostNext();
      return;
    }
    if (form_.Visible()) form_.Hide();
    return;
  }
  Step& step = steps_.front();
  if (step.until) {
    if (!step.until()) {
      if (++polls_ < kMaxPolls) {
        PostNext();
        return;
      }
      ADD_FAILURE() << "gave up waiting for " << step.label;
    }
    polls_ = 0;
    steps_.pop_front();
    PostNext();
    return;
  }
  const std::function<void()> action = std::move(step.action);
  const std::string label = std::move(step.label);
  steps_.pop_front();
  SCOPED_TRACE("step: " + label);
  try {
    action();
  } catch (const std::exception& error) {
    ADD_FAILURE() << "the step threw: " << error.what();
  } catch (...) {
    ADD_FAILURE() << "the step threw";
  }
  PostNext();
}

LRESULT CALLBACK DialogScript::Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* script = reinterpret_cast<DialogScript*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == kStepMessage && script != nullptr) {
    script->RunNext();
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace vd::win32::views::testing
