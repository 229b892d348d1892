#include "views/control_factory.h"

#include <commctrl.h>

#include "vd/forms/forms.h"

namespace vd::win32::views {

using vd::forms::ControlKind;

WindowKind WindowKindOf(const vd::forms::Control& control) {
  constexpr DWORD kTab = WS_TABSTOP;
  switch (control.Kind()) {
    case ControlKind::kLabel:
      return {L"Static", SS_LEFT | SS_NOTIFY, 0, true};
    case ControlKind::kCommandButton:
      return {L"Button", BS_PUSHBUTTON | kTab, 0};
    case ControlKind::kTextBox:
      return {L"Edit", ES_LEFT | ES_AUTOHSCROLL | kTab, WS_EX_CLIENTEDGE};
    // Not the automatic styles: the form decides the state, the view shows it.
    case ControlKind::kCheckBox:
      return {L"Button", BS_3STATE | kTab, 0};
    case ControlKind::kOptionButton:
      return {L"Button", BS_RADIOBUTTON | kTab, 0};
    case ControlKind::kComboBox: {
      DWORD style = CBS_AUTOHSCROLL | WS_VSCROLL | kTab;
      switch (static_cast<const vd::forms::ComboBox&>(control).Style()) {
        case vd::forms::ComboStyle::kDropdownList:
          style |= CBS_DROPDOWNLIST;
          break;
        case vd::forms::ComboStyle::kSimpleCombo:
          style |= CBS_SIMPLE;
          break;
        case vd::forms::ComboStyle::kDropdownCombo:
          style |= CBS_DROPDOWN;
          break;
      }
      return {L"ComboBox", style, 0};
    }
    case ControlKind::kFrame:
      return {L"Button", BS_GROUPBOX, 0};
    case ControlKind::kTreeView:
      return {WC_TREEVIEWW, TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS | kTab,
              WS_EX_CLIENTEDGE};
    case ControlKind::kStatusBar:
      return {STATUSCLASSNAMEW, CCS_BOTTOM, 0};
    case ControlKind::kProgressBar:
      return {PROGRESS_CLASSW, 0, 0};
    case ControlKind::kImageList:
      return {};
  }
  return {};
}

vd::automation::String CaptionOf(const vd::forms::Control& control) {
  switch (control.Kind()) {
    case ControlKind::kLabel:
      return static_cast<const vd::forms::Label&>(control).Caption();
    case ControlKind::kCommandButton:
      return static_cast<const vd::forms::CommandButton&>(control).Caption();
    case ControlKind::kCheckBox:
      return static_cast<const vd::forms::CheckBox&>(control).Caption();
    case ControlKind::kOptionButton:
      return static_cast<const vd::forms::OptionButton&>(control).Caption();
    case ControlKind::kFrame:
      return static_cast<const vd::forms::Frame&>(control).Caption();
    default:
      return {};
  }
}

const vd::forms::Control* FrameOf(const vd::forms::Control& control) {
  return dynamic_cast<const vd::forms::Frame*>(&control.Parent());
}

bool EnabledInForm(const vd::forms::Control& control) {
  for (const vd::forms::Control* c = &control; c != nullptr; c = FrameOf(*c))
    if (!c->Enabled()) return false;
  return true;
}

bool IsInside(const vd::forms::Control& control, const vd::forms::Control& frame) {
  for (const vd::forms::Control* c = FrameOf(control); c != nullptr; c = FrameOf(*c))
    if (c == &frame) return true;
  return false;
}

}  // namespace vd::win32::views
