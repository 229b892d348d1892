#include "views/input_box.h"

#include "com/boundary.h"
#include "views/activation_context.h"
#include "views/control_lookup.h"
#include "views/dialog_template.h"
#include "views/wide_text.h"

namespace vd::win32::views {
namespace {

// In dialog pixels at the dialog font: prompt at the left, buttons at the
// right, the text box along the bottom.
constexpr SIZE kClient{360, 140};
constexpr RECT kPrompt{10, 10, 270, 80};
constexpr RECT kOk{282, 10, 350, 34};
constexpr RECT kCancel{282, 40, 350, 64};
constexpr RECT kText{10, 104, 350, 126};

// The names robots find the box and its controls by.
constexpr struct {
  int id;
  const char16_t* name;
} kPublishedControls[] = {{kInputBoxPromptId, u"lblPrompt"},
                          {kInputBoxTextId, u"txtInput"},
                          {IDOK, u"OKButton"},
                          {IDCANCEL, u"CancelButton"}};

struct InputBoxState {
  String prompt;
  String defaultText;
  std::optional<String> answer;
};

HWND AddChild(HWND dialog, const wchar_t* className, const wchar_t* text, DWORD style, DWORD exStyle, RECT place,
              int id) {
  const HWND child = CreateWindowExW(exStyle, className, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top,
                                     place.right - place.left, place.bottom - place.top, dialog,
                                     reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ViewsModule(), nullptr);
  SendMessageW(child, WM_SETFONT, static_cast<WPARAM>(SendMessageW(dialog, WM_GETFONT, 0, 0)), FALSE);
  return child;
}

void Build(HWND dialog, const InputBoxState& state) {
  RECT frame{0, 0, kClient.cx, kClient.cy};
  AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_STYLE)), FALSE,
                     static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_EXSTYLE)));
  RECT around{};
  const HWND owner = GetWindow(dialog, GW_OWNER);
  if (owner != nullptr && IsWindowVisible(owner)) {
    GetWindowRect(owner, &around);
  } else {
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
  }
  const int width = frame.right - frame.left;
  const int height = frame.bottom - frame.top;
  SetWindowPos(dialog, nullptr, around.left + (around.right - around.left - width) / 2,
               around.top + (around.bottom - around.top - height) / 2, width, height, SWP_NOZORDER);
  {
    const ScopedActivation defaultControls(nullptr);  // a plain static, as a label (WindowKind)
    AddChild(dialog, L"Static", Wide(state.prompt), SS_LEFT | SS_NOPREFIX, 0, kPrompt, kInputBoxPromptId);
  }
  AddChild(dialog, L"Button", L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP, 0, kOk, IDOK);
  AddChild(dialog, L"Button", L"Cancel", BS_PUSHBUTTON | WS_TABSTOP, 0, kCancel, IDCANCEL);
  const HWND text = AddChild(dialog, L"Edit", Wide(state.defaultText), ES_AUTOHSCROLL | WS_TABSTOP | WS_GROUP,
                             WS_EX_CLIENTEDGE, kText, kInputBoxTextId);
  SendMessageW(text, EM_SETSEL, 0, -1);
  SetFocus(text);
  PublishName(dialog, kInputBoxFormName);
  for (const auto& control : kPublishedControls) PublishName(GetDlgItem(dialog, control.id), control.name);
}

void WithdrawNames(HWND dialog) {
  for (const auto& control : kPublishedControls) WithdrawName(GetDlgItem(dialog, control.id));
  WithdrawName(dialog);
}

INT_PTR CALLBACK InputBoxProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  return Contain(
      [&]() -> INT_PTR {
        if (message == WM_INITDIALOG) {
          SetWindowLongPtrW(dialog, DWLP_USER, lParam);
          Build(dialog, *reinterpret_cast<const InputBoxState*>(lParam));
          return FALSE;  // the focus is in the text box
        }
        if (message == WM_DESTROY) {
          WithdrawNames(dialog);
          return FALSE;
        }
        auto* state = reinterpret_cast<InputBoxState*>(GetWindowLongPtrW(dialog, DWLP_USER));
        if (message != WM_COMMAND || state == nullptr) return FALSE;
        if (LOWORD(wParam) == IDOK) {
          state->answer = WindowText(GetDlgItem(dialog, kInputBoxTextId));
          EndDialog(dialog, IDOK);
          return TRUE;
        }
        if (LOWORD(wParam) == IDCANCEL) {
          EndDialog(dialog, IDCANCEL);
          return TRUE;
        }
        return FALSE;
      },
      [&]() noexcept -> INT_PTR {
        EndDialog(dialog, IDCANCEL);
        return FALSE;
      });
}

}  // namespace

std::optional<String> ShowInputBox(HWND owner, StringView prompt, StringView title, StringView defaultText) {
  const ScopedActivation activation;
  InputBoxState state{String(prompt), String(defaultText), std::nullopt};
  const DialogTemplate dialog(WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_FIXEDSYS,
                              WS_EX_DLGMODALFRAME, title);
  DialogBoxIndirectParamW(ViewsModule(), dialog.Get(), owner, InputBoxProc, reinterpret_cast<LPARAM>(&state));
  return state.answer;
}

}  // namespace vd::win32::views
