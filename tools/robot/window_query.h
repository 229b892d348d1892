#pragma once
// Texts and states of another program's windows, asked with the messages that
// Windows carries across processes, each answered within a bounded time.
#include <windows.h>
// after windows.h
#include <commctrl.h>

#include <optional>
#include <string>
#include <vector>

#include "vd/automation/string.h"

namespace vd::win32::robot {

using vd::automation::String;
using vd::automation::StringView;

// How long one question to the other program may take.
inline constexpr UINT kAnswerMs = 5000;

// Sends a message that carries no pointer; false when the window did not answer.
bool Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& answer);
// Whether the window's thread answers messages now.
bool Answers(HWND window);
String TextOf(HWND window);
std::wstring ClassOf(HWND window);
bool IsClass(HWND window, const wchar_t* className);
// The window that has the keyboard focus in the thread's input, nullptr when none.
HWND FocusOf(DWORD thread);
// The entries of a combo box or a list box.
std::vector<String> EntriesOf(HWND list);
// The first child window of this class other than except, nullptr when none.
HWND ChildOfClass(HWND parent, const wchar_t* className, HWND except = nullptr);
// The message box shown for owner: a standard dialog of owner's thread that
// is not a form, owned by owner when there is one such. nullptr when none.
HWND MessageBoxOf(HWND owner);
String MessageBoxText(HWND box);
// The button of a dialog whose text, without its access key and ignoring case, is name.
HWND ButtonNamed(HWND dialog, StringView name);
std::vector<String> ButtonTexts(HWND dialog);
// Texts that common controls give only into memory of their own process (a
// tree node's, a status bar's): the robot lends them a block there. The robot
// and the program must be built for the same architecture.
std::optional<String> RemoteNodeText(HWND tree, HTREEITEM item);
// The text of a status bar (of its only part when it shows one text).
std::optional<String> RemoteStatusText(HWND statusBar);

}  // namespace vd::win32::robot
