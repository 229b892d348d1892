// A small program for the robot to drive: one form with a button that asks a
// question, two boxes (one refuses the text "box" with a message), a list, a
// check box, a tree answering the views' node queries, and key preview. It
// logs what reached it, as the views would report it to a form, and prints
// the log when its form closes. The Wine tests compare that log with what the
// robot's script should have caused.
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "views/control_lookup.h"

namespace {

using vd::win32::views::PublishName;
using vd::win32::views::TreeQueryMessage;

constexpr wchar_t kTitle[] = L"Robot Target";
enum Id : int { kHello = 100, kValue, kOther, kKind, kFlag, kNodes, kHide };

std::vector<std::string> theLog;
HWND theForm = nullptr;
std::map<std::wstring, HTREEITEM> theNodes;
WNDPROC theTreeProc = nullptr;
bool theEnd = false;

std::string Narrow(const std::wstring& text) {
  std::string out;
  for (const wchar_t c : text) out += c < 0x80 ? static_cast<char>(c) : '?';
  return out;
}

std::wstring TextOf(HWND window) {
  wchar_t text[256] = {};
  GetWindowTextW(window, text, 256);
  return text;
}

std::wstring KeyOf(HTREEITEM item) {
  for (const auto& [key, node] : theNodes)
    if (node == item) return key;
  return L"";
}

void Log(const std::string& line) { theLog.push_back(line); }

LRESULT CALLBACK TreeProc(HWND tree, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != TreeQueryMessage()) return CallWindowProcW(theTreeProc, tree, message, wParam, lParam);
  switch (wParam) {
    case vd::win32::views::kFindNode: {
      wchar_t key[256] = {};
      GlobalGetAtomNameW(static_cast<ATOM>(lParam), key, 256);
      const auto found = theNodes.find(key);
      return found != theNodes.end() ? reinterpret_cast<LRESULT>(found->second) : 0;
    }
    case vd::win32::views::kNodeClickPoint: {
      auto item = reinterpret_cast<HTREEITEM>(lParam);
      SendMessageW(tree, TVM_ENSUREVISIBLE, 0, lParam);
      RECT rect{};
      std::memcpy(&rect, &item, sizeof(item));  // TVM_GETITEMRECT takes the item in the rectangle
      if (SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rect)) == FALSE) return 0;
      return MAKELRESULT((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    }
    case vd::win32::views::kSelectedKey: {
      const auto item = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
      const std::wstring key = KeyOf(item);
      return key.empty() ? 0 : GlobalAddAtomW(key.c_str());
    }
    default:
      return 0;
  }
}

HWND Make(const wchar_t* className, const wchar_t* text, DWORD style, int id, int x, int y, int width, int height,
          const wchar_t* name) {
  const HWND window =
      CreateWindowExW(0, className, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, x, y, width, height, theForm,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
  SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
  PublishName(window, std::u16string(name, name + wcslen(name)));
  return window;
}

HTREEITEM AddNode(HWND tree, HTREEITEM parent, const wchar_t* text, const wchar_t* key) {
  TVINSERTSTRUCTW insert{};
  insert.hParent = parent;
  insert.hInsertAfter = TVI_LAST;
  insert.item.mask = TVIF_TEXT;
  insert.item.pszText = const_cast<wchar_t*>(text);
  const auto item =
      reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
  theNodes[key] = item;
  return item;
}

void OnCommand(int id, int code, HWND control) {
  switch (id) {
    case kHello:
      if (code != BN_CLICKED) return;
      Log("click cmdHello");
      Log("hello answered " + std::to_string(MessageBoxW(theForm, L"Hello,\r\nrobot.", kTitle, MB_OKCANCEL)));
      return;
    case kValue:
      if (code != EN_CHANGE) return;
      Log("change txtValue \"" + Narrow(TextOf(control)) + "\"");
      if (TextOf(control) == L"box")
        Log("box answered " + std::to_string(MessageBoxW(theForm, L"Box: 'box'", kTitle, MB_OK | MB_ICONEXCLAMATION)));
      return;
    case kKind:
      if (code == CBN_DROPDOWN) Log("dropdown cboKind");
      if (code == CBN_SELCHANGE) {
        const auto index = SendMessageW(control, CB_GETCURSEL, 0, 0);
        Log("pick cboKind " + std::to_string(index) + " \"" + Narrow(TextOf(control)) + "\"");
      }
      return;
    case kFlag:
      if (code == BN_CLICKED)
        Log(std::string("click chkFlag ") +
            (SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? "checked" : "unchecked"));
      return;
    case kHide:
      if (code != BN_CLICKED) return;
      Log("click cmdHide");
      ShowWindow(theForm, SW_HIDE);
      theEnd = true;
      PostMessageW(theForm, WM_NULL, 0, 0);  // the loop looks at theEnd once a message comes
      return;
    default:
      return;
  }
}

LRESULT CALLBACK FormProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
      return 0;
    case WM_NOTIFY: {
      const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
      if (header.idFrom != kNodes) break;
      const auto selected = [&] {
        return KeyOf(reinterpret_cast<HTREEITEM>(SendMessageW(header.hwndFrom, TVM_GETNEXTITEM, TVGN_CARET, 0)));
      };
      if (header.code == TVN_SELCHANGEDW) Log("select node " + Narrow(selected()));
      if (header.code == NM_DBLCLK) Log("double-click node " + Narrow(selected()));
      return 0;
    }
    case WM_CLOSE:
      Log("close");
      ShowWindow(window, SW_HIDE);
      theEnd = true;
      PostMessageW(window, WM_NULL, 0, 0);
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

void BuildForm() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = FormProc;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.lpszClassName = L"VdRobotTarget";
  RegisterClassW(&windowClass);
  theForm = CreateWindowExW(WS_EX_DLGMODALFRAME, L"VdRobotTarget", kTitle, WS_CAPTION | WS_SYSMENU | WS_POPUP, 100, 100,
                            360, 300, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  PublishName(theForm, u"frmTarget");
  Make(L"Button", L"&Hello", BS_PUSHBUTTON, kHello, 10, 10, 100, 26, L"cmdHello");
  Make(L"Edit", L"start", ES_AUTOHSCROLL | WS_BORDER, kValue, 10, 44, 150, 24, L"txtValue");
  Make(L"Edit", L"", ES_AUTOHSCROLL | WS_BORDER, kOther, 10, 76, 150, 24, L"txtOther");
  const HWND kind = Make(L"ComboBox", L"", CBS_DROPDOWNLIST | WS_VSCROLL, kKind, 10, 108, 150, 120, L"cboKind");
  for (const wchar_t* entry : {L"Double", L"Float", L"Text"})
    SendMessageW(kind, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
  SendMessageW(kind, CB_SETCURSEL, 0, 0);
  Make(L"Button", L"&Flag", BS_AUTOCHECKBOX, kFlag, 10, 140, 100, 24, L"chkFlag");
  Make(L"Button", L"Hi&de", BS_PUSHBUTTON, kHide, 10, 172, 100, 26, L"cmdHide");
  const HWND tree =
      Make(WC_TREEVIEWW, L"", TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS | WS_BORDER, kNodes,
           180, 10, 160, 190, L"treNodes");
  theTreeProc = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(tree, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TreeProc)));
  const HTREEITEM alpha = AddNode(tree, TVI_ROOT, L"Alpha", L"_Alpha1");
  AddNode(tree, alpha, L"One", L"1:1");
  AddNode(tree, alpha, L"Two", L"1:2");
  SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(alpha));
}

}  // namespace

int main() {
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_TREEVIEW_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  BuildForm();
  ShowWindow(theForm, SW_SHOW);
  UpdateWindow(theForm);
  MSG message{};
  while (!theEnd && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.message == WM_KEYDOWN) {  // key preview, as a form hears every key first
      Log("key " + std::to_string(message.wParam) + (GetKeyState(VK_SHIFT) < 0 ? " shift" : "") +
          (GetKeyState(VK_CONTROL) < 0 ? " ctrl" : ""));
    }
    if (IsDialogMessageW(theForm, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  for (const std::string& line : theLog) std::printf("target: %s\n", line.c_str());
  DestroyWindow(theForm);
  return 0;
}
