#include "window_query.h"

#include "button_text.h"
#include "vd/automation/text.h"
#include "views/control_lookup.h"
#include "views/wide_text.h"

namespace vd::win32::robot {

using vd::win32::views::FromWide;

namespace {

constexpr int kMessageBoxTextId = 0xFFFF;  // the static control that holds a message box's text

struct ChildSearch {
  const wchar_t* className;
  HWND except;
  HWND found = nullptr;
};

BOOL CALLBACK MatchChild(HWND window, LPARAM lParam) {
  auto& search = *reinterpret_cast<ChildSearch*>(lParam);
  if (window == search.except || !IsClass(window, search.className)) return TRUE;
  search.found = window;
  return FALSE;
}

struct BoxSearch {
  HWND owner;
  DWORD thread;
  HWND owned = nullptr;
  HWND other = nullptr;
};

BOOL CALLBACK MatchBox(HWND window, LPARAM lParam) {
  auto& search = *reinterpret_cast<BoxSearch*>(lParam);
  if (GetWindowThreadProcessId(window, nullptr) != search.thread || !IsWindowVisible(window) ||
      !IsClass(window, L"#32770") || !vd::win32::views::PublishedName(window).empty())
    return TRUE;
  if (GetWindow(window, GW_OWNER) == search.owner) {
    search.owned = window;
    return FALSE;
  }
  if (search.other == nullptr) search.other = window;
  return TRUE;
}

BOOL CALLBACK CollectButton(HWND window, LPARAM lParam) {
  if (IsClass(window, L"Button") && IsWindowVisible(window))
    reinterpret_cast<std::vector<HWND>*>(lParam)->push_back(window);
  return TRUE;
}

std::vector<HWND> Buttons(HWND dialog) {
  std::vector<HWND> buttons;
  EnumChildWindows(dialog, CollectButton, reinterpret_cast<LPARAM>(&buttons));
  return buttons;
}

}  // namespace

bool Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& answer) {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kAnswerMs, &result) == 0) return false;
  answer = static_cast<LRESULT>(result);
  return true;
}

bool Answers(HWND window) {
  LRESULT ignored = 0;
  return window != nullptr && Ask(window, WM_NULL, 0, 0, ignored);
}

String TextOf(HWND window) {
  LRESULT length = 0;
  if (window == nullptr || !Ask(window, WM_GETTEXTLENGTH, 0, 0, length) || length <= 0) return String();
  std::wstring text(static_cast<size_t>(length) + 1, L'\0');
  LRESULT copied = 0;
  if (!Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), copied)) return String();
  return FromWide(text.c_str(), static_cast<size_t>(copied));
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  const int length = GetClassNameW(window, name, 64);
  return std::wstring(name, static_cast<size_t>(length > 0 ? length : 0));
}

bool IsClass(HWND window, const wchar_t* className) { return lstrcmpiW(ClassOf(window).c_str(), className) == 0; }

HWND FocusOf(DWORD thread) {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  return GetGUIThreadInfo(thread, &info) ? info.hwndFocus : nullptr;
}

std::vector<String> EntriesOf(HWND list) {
  const bool combo = IsClass(list, L"ComboBox");
  const UINT countMessage = combo ? CB_GETCOUNT : LB_GETCOUNT;
  const UINT lengthMessage = combo ? CB_GETLBTEXTLEN : LB_GETTEXTLEN;
  const UINT textMessage = combo ? CB_GETLBTEXT : LB_GETTEXT;
  std::vector<String> entries;
  LRESULT count = 0;
  if (!Ask(list, countMessage, 0, 0, count)) return entries;
  for (LRESULT i = 0; i < count; ++i) {
    LRESULT length = 0;
    if (!Ask(list, lengthMessage, static_cast<WPARAM>(i), 0, length) || length < 0) break;
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    LRESULT copied = 0;
    if (!Ask(list, textMessage, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()), copied) || copied < 0)
      break;
    entries.push_back(FromWide(text.c_str(), static_cast<size_t>(copied)));
  }
  return entries;
}

HWND ChildOfClass(HWND parent, const wchar_t* className, HWND except) {
  ChildSearch search{className, except};
  EnumChildWindows(parent, MatchChild, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND MessageBoxOf(HWND owner) {
  if (owner == nullptr || !IsWindow(owner)) return nullptr;
  BoxSearch search{owner, GetWindowThreadProcessId(owner, nullptr)};
  EnumWindows(MatchBox, reinterpret_cast<LPARAM>(&search));
  return search.owned != nullptr ? search.owned : search.other;
}

String MessageBoxText(HWND box) { return TextOf(GetDlgItem(box, kMessageBoxTextId)); }

HWND ButtonNamed(HWND dialog, StringView name) {
  for (const HWND button : Buttons(dialog))
    if (vd::automation::EqualsIgnoreCase(vd::robot::WithoutAccessKey(TextOf(button)), name)) return button;
  return nullptr;
}

std::vector<String> ButtonTexts(HWND dialog) {
  std::vector<String> texts;
  for (const HWND button : Buttons(dialog)) texts.push_back(vd::robot::WithoutAccessKey(TextOf(button)));
  return texts;
}

}  // namespace vd::win32::robot
