// Drives the data browser of another process with real window messages, as a
// user's mouse would: waits for the dialog, clicks a tree node, presses a
// button, closes the dialog. Small on purpose: the demo script and the Wine
// tests use it to end a run the way a user ends it.
//
//   vd_dialog_driver CAPTION STEP...
//     wait                 the dialog with this caption is shown, its tree filled and
//                          every window of it painted
//     node KEY             mouse button down and up on the text of the tree node with this key
//     enabled NAME yes|no  the control with this name is (not) enabled
//     click NAME           presses the button with this name (BM_CLICK)
//     close                the dialog's close box (WM_CLOSE)
//     gone                 the dialog has gone
// Every step prints "driver: STEP: ok" or "driver: STEP: FAILED (why)"; the
// first failure ends the program with exit code 1. Every wait polls the
// windows' state for at most VD_DRIVER_TIMEOUT_MS (default 60000) ms.
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "views/control_lookup.h"

namespace {

using vd::win32::views::String;

String ToText(const std::wstring& text) { return String(text.begin(), text.end()); }

std::string Narrow(const std::wstring& text) {
  std::string out;
  for (wchar_t c : text) out += c < 0x80 ? static_cast<char>(c) : '?';
  return out;
}

DWORD Timeout() {
  const char* value = std::getenv("VD_DRIVER_TIMEOUT_MS");
  const long parsed = value != nullptr ? std::strtol(value, nullptr, 10) : 0;
  return parsed > 0 ? static_cast<DWORD>(parsed) : 60000;
}

// Polls condition until it holds or the time is up; true when it held.
bool PollUntil(const std::function<bool()>& condition) {
  const ULONGLONG deadline = GetTickCount64() + Timeout();
  for (;;) {
    if (condition()) return true;
    if (GetTickCount64() >= deadline) return false;
    Sleep(10);  // between two looks at the other process's windows
  }
}

class Driver {
 public:
  explicit Driver(std::wstring caption) : caption_(std::move(caption)) {}

  // Runs one step; "" when done, else why not. used counts the words it took.
  std::string Run(const std::vector<std::wstring>& words, size_t at, size_t& used) {
    const std::wstring& step = words[at];
    auto argument = [&](size_t n) -> const std::wstring* { return at + n < words.size() ? &words[at + n] : nullptr; };
    used = 1;
    if (step == L"wait") return Wait();
    if (step == L"gone") return Gone();
    if (step == L"close") return Close();
    if (step == L"node" || step == L"click") {
      const std::wstring* name = argument(1);
      if (name == nullptr) return "needs an argument";
      used = 2;
      return step == L"node" ? ClickNode(*name) : ClickButton(*name);
    }
    if (step == L"enabled") {
      const std::wstring* name = argument(1);
      const std::wstring* state = argument(2);
      if (name == nullptr || state == nullptr || (*state != L"yes" && *state != L"no")) return "needs NAME yes|no";
      used = 3;
      return Enabled(*name, *state == L"yes");
    }
    return "unknown step";
  }

 private:
  HWND Dialog() const {
    const HWND window = FindWindowW(nullptr, caption_.c_str());
    return window != nullptr && IsWindowVisible(window) ? window : nullptr;
  }
  HWND Control(const std::wstring& name) const {
    const HWND dialog = Dialog();
    return dialog != nullptr ? vd::win32::views::FindControlWindow(dialog, ToText(name)) : nullptr;
  }
  static LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, 5000, &answer) == 0) return 0;
    return static_cast<LRESULT>(answer);
  }

  std::string Wait() {
    const bool shown = PollUntil([&] {
      const HWND tree = Control(L"treDataSources");
      return tree != nullptr && IsWindowVisible(tree) && Ask(tree, TVM_GETCOUNT) > 0;
    });
    if (!shown) return "no dialog with a filled tree appeared";
    return WaitUntilIdle() ? "" : "the dialog's program does not answer";
  }

  // The dialog's program has handled what was waiting for it and painted
  // every window of the dialog: the paint messages are sent to it now, and a
  // message that goes through its queue answers only once it got there.
  bool WaitUntilIdle() const {
    const HWND dialog = Dialog();
    if (dialog == nullptr) return false;
    RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(dialog, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, Timeout(), &answer) != 0;
  }

  std::string Gone() {
    return PollUntil([&] { return Dialog() == nullptr; }) ? "" : "the dialog is still shown";
  }

  std::string Close() {
    const HWND dialog = Dialog();
    if (dialog == nullptr) return "no dialog";
    PostMessageW(dialog, WM_CLOSE, 0, 0);
    return "";
  }

  std::string ClickNode(const std::wstring& key) {
    const HWND tree = Control(L"treDataSources");
    if (tree == nullptr) return "no tree";
    const HTREEITEM item = vd::win32::views::FindTreeNode(tree, ToText(key));
    if (item == nullptr) return "no node with that key";
    POINT point{};
    if (!vd::win32::views::NodeClickPoint(tree, item, point)) return "the node cannot be seen";
    const LPARAM at = MAKELPARAM(point.x, point.y);
    PostMessageW(tree, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(tree, WM_LBUTTONUP, 0, at);
    const String wanted = ToText(key);
    const bool selected = PollUntil([&] { return vd::win32::views::SelectedNodeKey(tree) == wanted; });
    return selected ? "" : "the node did not become the selected one";
  }

  std::string ClickButton(const std::wstring& name) {
    const HWND button = Control(name);
    if (button == nullptr) return "no such control";
    if (!IsWindowVisible(button) || !IsWindowEnabled(button)) return "the button is hidden or disabled";
    PostMessageW(button, BM_CLICK, 0, 0);
    return "";
  }

  std::string Enabled(const std::wstring& name, bool wanted) {
    const bool matched = PollUntil([&] {
      const HWND control = Control(name);
      return control != nullptr && (IsWindowEnabled(control) != FALSE) == wanted;
    });
    return matched ? "" : "the control is not in that state";
  }

  std::wstring caption_;
};

}  // namespace

int main() {
  int count = 0;
  LPWSTR* argv = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::wstring> words(argv + 1, argv + count);
  LocalFree(argv);
  if (words.size() < 2) {
    std::puts(
        "usage: vd_dialog_driver CAPTION STEP...  (wait, node KEY, enabled NAME yes|no, click NAME, close, gone)");
    return 2;
  }
  Driver driver(words[0]);
  for (size_t at = 1; at < words.size();) {
    size_t used = 1;
    const std::string failure = driver.Run(words, at, used);
    std::wstring step = words[at];
    for (size_t i = 1; i < used; ++i) step += L" " + words[at + i];
    if (!failure.empty()) {
      std::printf("driver: %s: FAILED (%s)\n", Narrow(step).c_str(), failure.c_str());
      return 1;
    }
    std::printf("driver: %s: ok\n", Narrow(step).c_str());
    std::fflush(stdout);
    at += used;
  }
  return 0;
}
