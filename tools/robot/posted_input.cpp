#include "posted_input.h"

#include "window_query.h"

namespace vd::win32::robot {
namespace {

constexpr LPARAM kRepeatOnce = 1;
constexpr LPARAM kContextAlt = LPARAM{1} << 29;
constexpr LPARAM kReleased = (LPARAM{1} << 30) | (LPARAM{1} << 31);

LPARAM PointParameter(POINT at) { return MAKELPARAM(at.x, at.y); }

LPARAM KeyParameter(uint16_t virtualKey) {
  const UINT scan = MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC);
  return kRepeatOnce | static_cast<LPARAM>(scan & 0xFF) << 16;
}

}  // namespace

POINT CentreOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return {(client.left + client.right) / 2, (client.top + client.bottom) / 2};
}

void PostClick(HWND window, POINT at) {
  PostMessageW(window, WM_MOUSEMOVE, 0, PointParameter(at));
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, PointParameter(at));
  PostMessageW(window, WM_LBUTTONUP, 0, PointParameter(at));
}

void PostDoubleClick(HWND window, POINT at) {
  PostClick(window, at);
  PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, PointParameter(at));
  PostMessageW(window, WM_LBUTTONUP, 0, PointParameter(at));
}

void PostKeystroke(HWND window, uint16_t virtualKey, bool alt) {
  const LPARAM key = KeyParameter(virtualKey) | (alt ? kContextAlt : 0);
  PostMessageW(window, alt ? WM_SYSKEYDOWN : WM_KEYDOWN, virtualKey, key);
  PostMessageW(window, alt ? WM_SYSKEYUP : WM_KEYUP, virtualKey, key | kReleased);
}

void PostCharacter(HWND window, wchar_t character) {
  PostMessageW(window, WM_CHAR, static_cast<WPARAM>(character), kRepeatOnce);
}

HeldModifiers::HeldModifiers(DWORD thread, bool shift, bool ctrl, bool alt) : thread_(thread) {
  if (!shift && !ctrl && !alt) return;
  MSG ignored;
  PeekMessageW(&ignored, nullptr, 0, 0, PM_NOREMOVE);  // the robot's thread needs an input queue to share
  attached_ = AttachThreadInput(GetCurrentThreadId(), thread_, TRUE) != FALSE;
  if (attached_) SetKeys(shift, ctrl, alt);
}

HeldModifiers::~HeldModifiers() {
  if (!attached_) return;
  SetKeys(false, false, false);
  AttachThreadInput(GetCurrentThreadId(), thread_, FALSE);
}

void HeldModifiers::SetKeys(bool shift, bool ctrl, bool alt) {
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  const auto state = [](bool down) { return static_cast<BYTE>(down ? 0x80 : 0); };
  keys[VK_SHIFT] = keys[VK_LSHIFT] = state(shift);
  keys[VK_CONTROL] = keys[VK_LCONTROL] = state(ctrl);
  keys[VK_MENU] = keys[VK_LMENU] = state(alt);
  SetKeyboardState(keys);
}

QueueMarker::QueueMarker(HWND form, HWND busy) : form_(form) {
  edit_ = ChildOfClass(form, L"Edit", busy);
  LRESULT modified = 0;
  if (edit_ == nullptr || !Ask(edit_, EM_GETMODIFY, 0, 0, modified)) {
    edit_ = nullptr;
    return;
  }
  expected_ = modified != 0 ? 0 : 1;
  PostMessageW(edit_, EM_SETMODIFY, static_cast<WPARAM>(expected_), 0);
}

bool QueueMarker::Reached() const {
  // A form without an edit box: its thread answering is all there is to see.
  if (edit_ == nullptr) return !IsWindow(form_) || Answers(form_);
  if (!IsWindow(edit_)) return true;
  LRESULT modified = 0;
  return Ask(edit_, EM_GETMODIFY, 0, 0, modified) && (modified != 0 ? 1 : 0) == expected_;
}

}  // namespace vd::win32::robot
