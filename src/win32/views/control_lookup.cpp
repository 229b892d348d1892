#include "views/control_lookup.h"

#include "com/boundary.h"
#include "vd/automation/text.h"
#include "views/wide_text.h"

namespace vd::win32::views {
namespace {

String AtomText(ATOM atom) {
  wchar_t buffer[256];
  const UINT length = GlobalGetAtomNameW(atom, buffer, 256);
  return FromWide(buffer, length);
}

struct Search {
  StringView name;
  HWND found = nullptr;
};

BOOL CALLBACK MatchForm(HWND window, LPARAM lParam) noexcept {
  auto& search = *reinterpret_cast<Search*>(lParam);
  return ContainOr<BOOL>(FALSE, [&]() -> BOOL {
    if (!IsWindowVisible(window) || !vd::automation::EqualsIgnoreCase(PublishedName(window), search.name)) return TRUE;
    search.found = window;
    return FALSE;
  });
}

BOOL CALLBACK MatchControl(HWND window, LPARAM lParam) noexcept {
  auto& search = *reinterpret_cast<Search*>(lParam);
  return ContainOr<BOOL>(FALSE, [&]() -> BOOL {
    if (!vd::automation::EqualsIgnoreCase(PublishedName(window), search.name)) return TRUE;
    search.found = window;
    return FALSE;
  });
}

}  // namespace

void PublishName(HWND window, StringView name) {
  const String text(name.substr(0, 255));
  const ATOM atom = GlobalAddAtomW(Wide(text));
  if (atom != 0) SetPropW(window, kNameProperty, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(atom)));
}

void WithdrawName(HWND window) {
  const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(RemovePropW(window, kNameProperty)));
  if (atom != 0) GlobalDeleteAtom(atom);
}

UINT TreeQueryMessage() {
  static const UINT message = RegisterWindowMessageW(kTreeQueryMessage);
  return message;
}

String PublishedName(HWND window) {
  const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(GetPropW(window, kNameProperty)));
  return atom != 0 ? AtomText(atom) : String();
}

HWND FindFormWindow(StringView formName) {
  Search search{formName};
  EnumWindows(MatchForm, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND FindControlWindow(HWND formWindow, StringView controlName) {
  Search search{controlName};
  EnumChildWindows(formWindow, MatchControl, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HTREEITEM FindTreeNode(HWND tree, StringView key) {
  const String text(key.substr(0, 255));
  const ATOM atom = GlobalAddAtomW(Wide(text));
  if (atom == 0) return nullptr;
  const LRESULT item = SendMessageW(tree, TreeQueryMessage(), kFindNode, atom);
  GlobalDeleteAtom(atom);
  return reinterpret_cast<HTREEITEM>(item);
}

bool NodeClickPoint(HWND tree, HTREEITEM item, POINT& point) {
  const LRESULT packed = SendMessageW(tree, TreeQueryMessage(), kNodeClickPoint, reinterpret_cast<LPARAM>(item));
  if (packed == 0) return false;
  point = {static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))};
  return true;
}

String SelectedNodeKey(HWND tree) {
  const auto atom = static_cast<ATOM>(SendMessageW(tree, TreeQueryMessage(), kSelectedKey, 0));
  if (atom == 0) return String();
  String key = AtomText(atom);
  GlobalDeleteAtom(atom);
  return key;
}

}  // namespace vd::win32::views
