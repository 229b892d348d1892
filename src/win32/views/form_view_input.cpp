// What the user does to the windows, reported through the form's and the
// controls' User* entry points.
#include <utility>

#include "vd/forms/forms.h"
#include "views/control_lookup.h"
#include "views/cursors.h"
#include "views/form_view.h"
#include "views/wide_text.h"

namespace vd::win32::views {

using vd::forms::Control;
using vd::forms::ControlKind;

namespace {

int16_t ShiftState(const MSG& message) {
  int16_t shift = 0;
  if (GetKeyState(VK_SHIFT) < 0) shift |= vd::forms::vbShiftMask;
  if (GetKeyState(VK_CONTROL) < 0) shift |= vd::forms::vbCtrlMask;
  if (GetKeyState(VK_MENU) < 0 || (message.message == WM_SYSKEYDOWN && (message.lParam & (1 << 29)) != 0))
    shift |= vd::forms::vbAltMask;
  return shift;
}

bool IsMouseMessage(UINT message) {
  return message == WM_MOUSEMOVE || message == WM_LBUTTONDOWN || message == WM_LBUTTONUP || message == WM_RBUTTONDOWN ||
         message == WM_RBUTTONUP || message == WM_MBUTTONDOWN || message == WM_MBUTTONUP;
}

}  // namespace

bool FormView::PreTranslate(MSG& message) {
  if (window_.Get() == nullptr || !Owns(message.hwnd)) return false;
  if (tooltip_.Get() != nullptr && IsMouseMessage(message.message))
    SendMessageW(tooltip_.Get(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
  switch (message.message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      // Key preview: the form hears every key first, whichever control has the
      // focus. Tab belongs to the dialog's navigation.
      if (message.wParam != VK_TAB) {
        const auto keyCode = static_cast<int16_t>(message.wParam);
        const int16_t shift = ShiftState(message);
        const uint32_t runsBefore = context_.modalRuns;
        UserAction([&] { form_.UserKeyDown(keyCode, shift); });
        // A key that opened a dialog (Ctrl+F: the find dialog) was the form's.
        // Its modifiers are up by now, so the control would take it for a
        // plain letter: a tree would jump to the next node with that initial.
        if (context_.modalRuns != runsBefore) return true;
      }
      break;
    case WM_CHAR: {
      const HWND target = message.hwnd;
      for (const auto& record : controls_) {
        if (record->window == nullptr || (record->window != target && record->edit != target)) continue;
        const auto keyAscii = static_cast<int16_t>(message.wParam);
        Control* control = record->control;
        UserAction([&] { control->UserKeyPress(keyAscii); });
        break;
      }
      break;
    }
    default:
      break;
  }
  if (!IsWindow(window_.Get())) return true;
  return IsDialogMessageW(window_.Get(), &message) != FALSE;
}

INT_PTR FormView::DialogMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
      return TRUE;
    case WM_NOTIFY: {
      LRESULT result = 0;
      if (!OnNotify(*reinterpret_cast<const NMHDR*>(lParam), result)) return FALSE;
      SetWindowLongPtrW(window_.Get(), DWLP_MSGRESULT, result);
      return TRUE;
    }
    case WM_CLOSE:  // the close box
      UserAction([&] { form_.UserClose(); });
      return TRUE;
    case WM_SETCURSOR:
      if (reinterpret_cast<HWND>(wParam) != window_.Get() || LOWORD(lParam) != HTCLIENT) return FALSE;
      if (!SetCursorFor(nullptr)) return FALSE;
      SetWindowLongPtrW(window_.Get(), DWLP_MSGRESULT, TRUE);
      return TRUE;
    case WM_SIZE:
      Quietly([&] {
        for (const auto& record : controls_)
          if (record->control->Kind() == ControlKind::kStatusBar && record->window != nullptr) {
            SendMessageW(record->window, WM_SIZE, 0, 0);
            ApplyStatusBar(*record);
          }
      });
      return FALSE;
    case WM_APP:  // posted by RequestFlush
      Flush();
      return TRUE;
    case kReapplyComboMessage:
      if (ControlWindow* record = FindById(static_cast<int>(wParam)); record != nullptr && record->window != nullptr)
        Quietly([&] { ApplyComboSelection(*record); });
      return TRUE;
    default:
      return FALSE;
  }
}

void FormView::OnCommand(int id, int code, HWND /*control*/) {
  if (id == IDOK || id == IDCANCEL) {
    OnDialogKey(id);
    return;
  }
  ControlWindow* record = FindById(id);
  if (record == nullptr || record->window == nullptr) return;
  Control& control = *record->control;
  switch (control.Kind()) {
    case ControlKind::kCommandButton:
    case ControlKind::kCheckBox:
    case ControlKind::kOptionButton:
      if (code == BN_CLICKED) UserAction([&] { control.UserClick(); });
      break;
    case ControlKind::kLabel:
      // The second press of a double click comes as STN_DBLCLK alone.
      if (code == STN_CLICKED) UserAction([&] { control.UserClick(); });
      if (code == STN_DBLCLK) UserAction([&] { control.UserDoubleClick(); });
      break;
    case ControlKind::kTextBox:
      if (code == EN_CHANGE) {
        const String text = WindowText(record->window);
        UserAction([&] { static_cast<vd::forms::TextBox&>(control).UserType(text); });
      }
      break;
    case ControlKind::kComboBox: {
      auto& combo = static_cast<vd::forms::ComboBox&>(control);
      using Step = vd::forms::ComboBox::ListStep;
      const auto pass = [&](Step step) {
        const auto index = static_cast<int32_t>(SendMessageW(record->window, CB_GETCURSEL, 0, 0));
        UserAction([&] { combo.UserList(step, index); });
      };
      switch (code) {
        case CBN_DROPDOWN:
          pass(Step::kOpen);
          break;
        case CBN_CLOSEUP:
          pass(Step::kClose);
          break;
        case CBN_SELCHANGE:
        case CBN_SELENDOK:
          // A Click that set the combo's text (a command entry does) is shown
          // again once the combo has written its own entry into its edit field.
          PostMessageW(window_.Get(), kReapplyComboMessage, static_cast<WPARAM>(id), 0);
          pass(code == CBN_SELCHANGE ? Step::kMove : Step::kEnd);
          break;
        case CBN_SELENDCANCEL:
          pass(Step::kCancel);
          break;
        case CBN_EDITCHANGE: {
          const String text = WindowText(record->window);
          UserAction([&] { combo.UserType(text); });
          break;
        }
        default:
          break;
      }
      break;
    }
    default:
      break;
  }
}

Control* FormView::DialogKeyButton(int id) const {
  for (Control* control : form_.AllControls()) {
    if (control->Kind() != ControlKind::kCommandButton) continue;
    const auto& button = static_cast<const vd::forms::CommandButton&>(*control);
    if (id == IDOK ? button.Default() : button.Cancel()) return control;
  }
  return nullptr;
}

void FormView::OnDialogKey(int id) {
  // Enter with the focus off any button, Escape: the form's Default and Cancel buttons.
  Control* button = DialogKeyButton(id);
  if (button != nullptr) UserAction([&] { button->UserClick(); });
}

bool FormView::OnNotify(const NMHDR& header, LRESULT& result) {
  const ControlWindow* record = FindById(static_cast<int>(header.idFrom));
  if (record == nullptr || record->window != header.hwndFrom || !record->tree) return false;
  if (applying_ > 0 || closing_) return false;
  return record->tree->OnNotify(header, result);
}

void FormView::OnFocus(ControlWindow& record) {
  Control& control = *record.control;
  UserAction([&] { control.UserFocus(); });
}

bool FormView::SetCursorFor(const ControlWindow* record) {
  int16_t pointer = context_.screenPointer;
  if (pointer == 0) pointer = record != nullptr ? record->control->MousePointer() : form_.MousePointer();
  const HCURSOR cursor = CursorFor(pointer);
  if (cursor == nullptr) return false;
  SetCursor(cursor);
  return true;
}

LRESULT FormView::ControlMessage(ControlWindow& record, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const WNDPROC original = window == record.edit ? record.editProc : record.windowProc;
  TreeMirror* tree = record.tree.get();
  switch (message) {
    case WM_SETCURSOR:
      if (LOWORD(lParam) == HTCLIENT && SetCursorFor(&record)) return TRUE;
      break;
    case WM_SETFOCUS: {
      const LRESULT result = CallWindowProcW(original, window, message, wParam, lParam);
      OnFocus(record);
      return result;
    }
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
      if (tree != nullptr) tree->OnButton(lParam);
      break;
    case WM_MOUSEMOVE:
      if (tree != nullptr) {
        const LRESULT result = CallWindowProcW(original, window, message, wParam, lParam);
        tree->OnMouseMove(wParam, lParam);
        return result;
      }
      break;
    default:
      if (tree != nullptr && message == TreeQueryMessage()) return tree->AnswerQuery(wParam, lParam);
      break;
  }
  return CallWindowProcW(original, window, message, wParam, lParam);
}

}  // namespace vd::win32::views
