#pragma once
// How a test robot in another process finds the views' windows by the names
// the form code uses. Everything here works across processes: window ids,
// window properties, global atoms and a registered message.
//
// - The form's window and every control's window carry the property
//   kNameProperty: a global atom whose name is the form's or control's Name.
// - A control's window id is kFirstControlId + its 0-based position in
//   Form::AllControls() (creation order), so a robot that builds the same form
//   class headless knows the ids without asking.
// - A tree's window answers the registered message kTreeQueryMessage:
//   wParam kFindNode, lParam a global atom with a node key: the HTREEITEM of
//   that node, 0 when none; kNodeClickPoint, lParam an HTREEITEM: the point
//   (client coordinates, MAKELPARAM(x, y)) in the middle of the node's text,
//   scrolled into view, 0 when its parents are collapsed; kSelectedKey: a new
//   global atom with the selected node's key (the caller deletes it), 0 for
//   no selection or a node without a key.
#include <windows.h>
// after windows.h
#include <commctrl.h>

#include "vd/automation/string.h"

namespace vd::win32::views {

using vd::automation::String;
using vd::automation::StringView;

inline constexpr int kFirstControlId = 1000;
inline constexpr wchar_t kNameProperty[] = L"VarDeskGUI.Name";
inline constexpr wchar_t kTreeQueryMessage[] = L"VarDeskGUI.TreeQuery";
enum TreeQuery : WPARAM { kFindNode = 1, kNodeClickPoint = 2, kSelectedKey = 3 };

// The view's side.
void PublishName(HWND window, StringView name);
void WithdrawName(HWND window);
UINT TreeQueryMessage();

// The robot's side (any process of the desktop).
String PublishedName(HWND window);
// The first visible top-level window showing the form with this Name
// (ignoring case), nullptr when none.
HWND FindFormWindow(StringView formName);
// The window of the form's control with this Name (ignoring case).
HWND FindControlWindow(HWND formWindow, StringView controlName);
HTREEITEM FindTreeNode(HWND tree, StringView key);
// The point to click on the node's text; false when it cannot be seen.
bool NodeClickPoint(HWND tree, HTREEITEM item, POINT& point);
String SelectedNodeKey(HWND tree);

}  // namespace vd::win32::views
