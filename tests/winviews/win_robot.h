#pragma once
// Real Win32 input for the dialogs under test, posted so that it goes through
// the message loop as the user's would (the robot's input, tools/robot), and
// what the tests read back from the windows.
#include <windows.h>
// after windows.h
#include <commctrl.h>

#include <string>

#include "vd/automation/string.h"

namespace vd::win32::views::testing {

using vd::automation::String;

void PostClick(HWND button);
void PostChars(HWND window, const String& text);
void PostKey(HWND window, UINT virtualKey);
void PostMouseClick(HWND window, POINT at);
void PostMouseDoubleClick(HWND window, POINT at);
void PostMouseMove(HWND window, POINT at);

// The message box (or other standard dialog) owned by owner, nullptr when none.
HWND FindOwnedDialog(HWND owner);
String MessageBoxText(HWND box);
// The icon the message box shows, nullptr when none.
HICON MessageBoxIcon(HWND box);

// A control's rectangle in its parent's client coordinates.
RECT PlaceInParent(HWND control);
String TreeItemText(HWND tree, HTREEITEM item);
UINT TreeItemState(HWND tree, HTREEITEM item);
int TreeItemImage(HWND tree, HTREEITEM item);
HTREEITEM TreeChild(HWND tree, HTREEITEM item);  // item nullptr: the first top-level item
HTREEITEM TreeNext(HWND tree, HTREEITEM item);
HTREEITEM TreeSelection(HWND tree);
// The plus or minus sign of an item, scrolled into view, found by hit-testing leftwards from its text.
bool TreeButtonPoint(HWND tree, HTREEITEM item, POINT& point);
String ComboEntry(HWND combo, int index);
String StatusText(HWND statusBar);
String ToolTipText(HWND dialog, HWND tool);
std::string Narrow(const String& text);

}  // namespace vd::win32::views::testing
