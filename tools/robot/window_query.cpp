#include "window_query.h"

#include <vector>

#include "button_text.h"
#include "vd/automation/text.h"
#include "views/control_lookup.h"
#include "views/wide_text.h"
#include "views/win_handles.h"

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

// Texts a common control gives only into memory of its own process.
namespace {

constexpr int kTextCapacity = 1024;

// A block of memory in another process, freed with the object.
class RemoteBlock {
 public:
  RemoteBlock(HANDLE process, size_t size)
      : process_(process), address_(VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)) {}
  RemoteBlock(const RemoteBlock&) = delete;
  RemoteBlock& operator=(const RemoteBlock&) = delete;
  ~RemoteBlock() {
    if (address_ != nullptr) VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
  }
  [[nodiscard]] char* Address() const { return static_cast<char*>(address_); }

 private:
  HANDLE process_;
  void* address_;
};

// The process of a window, opened to lend it memory.
vd::win32::views::KernelHandle OpenOwner(HWND window) {
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  return vd::win32::views::KernelHandle(
      OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId));
}

std::optional<String> ReadText(HANDLE process, const void* address) {
  std::vector<wchar_t> text(kTextCapacity + 1, L'\0');
  if (!ReadProcessMemory(process, address, text.data(), kTextCapacity * sizeof(wchar_t), nullptr)) return std::nullopt;
  return vd::win32::views::FromWide(text.data());
}

}  // namespace

std::optional<String> RemoteNodeText(HWND tree, HTREEITEM item) {
  const vd::win32::views::KernelHandle process = OpenOwner(tree);
  if (!process) return std::nullopt;
  const RemoteBlock block(process.Get(), sizeof(TVITEMW) + kTextCapacity * sizeof(wchar_t));
  if (block.Address() == nullptr) return std::nullopt;

  TVITEMW query{};
  query.mask = TVIF_TEXT;
  query.hItem = item;
  query.pszText = reinterpret_cast<LPWSTR>(block.Address() + sizeof(TVITEMW));
  query.cchTextMax = kTextCapacity;
  LRESULT answered = 0;
  if (!WriteProcessMemory(process.Get(), block.Address(), &query, sizeof(query), nullptr) ||
      !Ask(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(block.Address()), answered) || answered == 0)
    return std::nullopt;
  return ReadText(process.Get(), query.pszText);
}

std::optional<String> RemoteStatusText(HWND statusBar) {
  const vd::win32::views::KernelHandle process = OpenOwner(statusBar);
  if (!process) return std::nullopt;
  const RemoteBlock block(process.Get(), (kTextCapacity + 1) * sizeof(wchar_t));
  if (block.Address() == nullptr) return std::nullopt;
  LRESULT length = 0;
  // A bar in simple mode answers with its one text for any part.
  if (!Ask(statusBar, SB_GETTEXTLENGTHW, 0, 0, length) || LOWORD(length) > kTextCapacity) return std::nullopt;
  LRESULT answered = 0;
  if (!Ask(statusBar, SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(block.Address()), answered)) return std::nullopt;
  return ReadText(process.Get(), block.Address());
}

}  // namespace vd::win32::robot
