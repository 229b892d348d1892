#include "win_robot.h"

#include <cstring>
#include <vector>

#include "posted_input.h"
#include "views/control_lookup.h"
#include "views/wide_text.h"
#include "window_query.h"

namespace vd::win32::views::testing {

void PostClick(HWND button) { PostMessageW(button, BM_CLICK, 0, 0); }

void PostChars(HWND window, const String& text) {
  for (const char16_t c : text) robot::PostCharacter(window, c);
}

void PostKey(HWND window, UINT virtualKey) { robot::PostKeystroke(window, static_cast<uint16_t>(virtualKey), false); }

void PostMouseClick(HWND window, POINT at) { robot::PostClick(window, at); }

void PostMouseDoubleClick(HWND window, POINT at) { robot::PostDoubleClick(window, at); }

void PostMouseMove(HWND window, POINT at) { PostMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y)); }

namespace {
BOOL CALLBACK MatchIcon(HWND window, LPARAM lParam) {
  if ((GetWindowLongPtrW(window, GWL_STYLE) & SS_TYPEMASK) != SS_ICON) return TRUE;
  *reinterpret_cast<HICON*>(lParam) = reinterpret_cast<HICON>(SendMessageW(window, STM_GETICON, 0, 0));
  return FALSE;
}
}  // namespace

HWND FindOwnedDialog(HWND owner) { return robot::MessageBoxOf(owner); }

String MessageBoxText(HWND box) { return robot::MessageBoxText(box); }

HICON MessageBoxIcon(HWND box) {
  HICON icon = nullptr;
  EnumChildWindows(box, MatchIcon, reinterpret_cast<LPARAM>(&icon));
  return icon;
}

RECT PlaceInParent(HWND control) {
  RECT place{};
  GetWindowRect(control, &place);
  MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

String TreeItemText(HWND tree, HTREEITEM item) {
  wchar_t text[260] = {};
  TVITEMW query{};
  query.mask = TVIF_TEXT;
  query.hItem = item;
  query.pszText = text;
  query.cchTextMax = 260;
  SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&query));
  return FromWide(text);
}

UINT TreeItemState(HWND tree, HTREEITEM item) {
  return static_cast<UINT>(SendMessageW(tree, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), 0xFFFF));
}

int TreeItemImage(HWND tree, HTREEITEM item) {
  TVITEMW query{};
  query.mask = TVIF_IMAGE;
  query.hItem = item;
  SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&query));
  return query.iImage;
}

HTREEITEM TreeChild(HWND tree, HTREEITEM item) {
  return reinterpret_cast<HTREEITEM>(
      SendMessageW(tree, TVM_GETNEXTITEM, item == nullptr ? TVGN_ROOT : TVGN_CHILD, reinterpret_cast<LPARAM>(item)));
}

HTREEITEM TreeNext(HWND tree, HTREEITEM item) {
  return reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(item)));
}

HTREEITEM TreeSelection(HWND tree) {
  return reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
}

bool TreeButtonPoint(HWND tree, HTREEITEM item, POINT& point) {
  SendMessageW(tree, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
  RECT text{};
  std::memcpy(&text, &item, sizeof(item));
  if (SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&text)) == FALSE) return false;
  for (int x = text.left - 1; x >= 0; --x) {
    TVHITTESTINFO hit{};
    hit.pt = {x, (text.top + text.bottom) / 2};
    const auto found = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
    if (found == item && (hit.flags & TVHT_ONITEMBUTTON) != 0) {
      point = hit.pt;
      return true;
    }
  }
  return false;
}

String ComboEntry(HWND combo, int index) {
  const std::vector<String> entries = robot::EntriesOf(combo);
  return index >= 0 && index < static_cast<int>(entries.size()) ? entries[static_cast<size_t>(index)] : String();
}

String StatusText(HWND statusBar) {
  wchar_t text[512] = {};
  SendMessageW(statusBar, SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(text));  // a simple bar answers for any part
  return FromWide(text);
}

namespace {
BOOL CALLBACK MatchToolTip(HWND window, LPARAM lParam) {
  wchar_t className[64];
  GetClassNameW(window, className, 64);
  if (std::wcscmp(className, TOOLTIPS_CLASSW) != 0) return TRUE;
  auto& found = *reinterpret_cast<std::pair<HWND, HWND>*>(lParam);
  if (GetWindow(window, GW_OWNER) != found.first) return TRUE;
  found.second = window;
  return FALSE;
}
}  // namespace

String ToolTipText(HWND dialog, HWND tool) {
  std::pair<HWND, HWND> search{dialog, nullptr};
  EnumThreadWindows(GetCurrentThreadId(), MatchToolTip, reinterpret_cast<LPARAM>(&search));
  if (search.second == nullptr) return u"(no tooltip window)";
  wchar_t text[1024] = {};
  TTTOOLINFOW info{};
  info.cbSize = TTTOOLINFOW_V2_SIZE;
  info.hwnd = dialog;
  info.uId = reinterpret_cast<UINT_PTR>(tool);
  info.lpszText = text;
  SendMessageW(search.second, TTM_GETTEXTW, 1024, reinterpret_cast<LPARAM>(&info));
  return FromWide(text);
}

std::string Narrow(const String& text) { return vd::automation::ToUtf8(text); }

}  // namespace vd::win32::views::testing
