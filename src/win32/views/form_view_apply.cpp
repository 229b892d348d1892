// The form's changes applied to the windows, before the assignment returns.
#include <algorithm>
#include <cmath>
#include <vector>

#include "vd/forms/forms.h"
#include "views/control_factory.h"
#include "views/cursors.h"
#include "views/form_view.h"
#include "views/tree_images.h"
#include "views/wide_text.h"

namespace vd::win32::views {

using vd::forms::Control;
using vd::forms::ControlKind;
using vd::forms::Property;

namespace {

void SetTextIfOther(HWND window, const String& text) {
  if (WindowText(window) != text) SetWindowTextW(window, Wide(text));
}

WPARAM CheckState(int16_t value) {
  switch (value) {
    case vd::forms::vbChecked:
      return BST_CHECKED;
    case vd::forms::vbGrayed:
      return BST_INDETERMINATE;
    default:
      return BST_UNCHECKED;
  }
}

}  // namespace

void FormView::PropertyChanged(const vd::forms::Change& change) {
  if (closing_ || window_.Get() == nullptr) return;
  Quietly([&] {
    if (change.control == nullptr) {
      ApplyForm(change.property);
    } else if (ControlWindow* record = Find(change.control)) {
      ApplyControl(*record, change);
    }
  });
}

void FormView::ApplyAll() {
  EnableWindow(window_.Get(), form_.Enabled() ? TRUE : FALSE);
  for (const auto& record : controls_) {
    Quietly([&] {
      if (record->control->Kind() == ControlKind::kImageList) return;
      if (record->window == nullptr) return;
      SetTextIfOther(record->window, CaptionOf(*record->control));
      ApplyValue(*record);
      ApplyTip(*record);
      if (record->tree) {
        ApplyTreeImages(*record);
        record->tree->Rebuild();
      }
    });
  }
}

void FormView::ApplyForm(Property property) {
  switch (property) {
    case Property::kCaption:
      SetWindowTextW(window_.Get(), Wide(form_.Caption()));
      break;
    case Property::kLeft:
    case Property::kTop:
      SetWindowPos(window_.Get(), nullptr, twips_.ToPixels(form_.Left()), twips_.ToPixels(form_.Top()), 0, 0,
                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSIZE);
      break;
    case Property::kWidth:
    case Property::kHeight:
      ApplyFormSize();
      break;
    case Property::kEnabled:
      EnableWindow(window_.Get(), form_.Enabled() ? TRUE : FALSE);
      break;
    case Property::kMousePointer:
      RefreshCursor();
      break;
    case Property::kActiveControl:
      ApplyFocus();
      break;
    case Property::kVisible:
      // The modal loop ends when the form hides; wake it up.
      if (!form_.Visible()) PostMessageW(window_.Get(), WM_NULL, 0, 0);
      break;
    default:
      break;
  }
}

void FormView::ApplyFormSize() {
  RECT now{};
  GetWindowRect(window_.Get(), &now);
  SIZE size{twips_.ToPixels(form_.Width()), twips_.ToPixels(form_.Height())};
  if (size.cx <= 0) size.cx = now.right - now.left;
  if (size.cy <= 0) size.cy = now.bottom - now.top;
  SetWindowPos(window_.Get(), nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
}

void FormView::ApplyControl(ControlWindow& record, const vd::forms::Change& change) {
  if (record.control->Kind() == ControlKind::kImageList) {
    if (change.property == Property::kImageAdded || change.property == Property::kImagesCleared)
      ApplyImages(*record.control);
    return;
  }
  if (record.window == nullptr) return;
  switch (change.property) {
    case Property::kCaption:
      SetTextIfOther(record.window, CaptionOf(*record.control));
      // A button is as wide as its caption needs.
      if (record.control->Kind() == ControlKind::kCommandButton) ApplyPlacement(record);
      break;
    case Property::kVisible:
      ApplyShown(record);
      ForFrameContents(record, [this](ControlWindow& inside) { ApplyShown(inside); });
      break;
    case Property::kEnabled:
      ApplyEnabled(record);
      ForFrameContents(record, [this](ControlWindow& inside) { ApplyEnabled(inside); });
      break;
    case Property::kLeft:
    case Property::kTop:
    case Property::kWidth:
    case Property::kHeight:
      ApplyPlacement(record);
      ForFrameContents(record, [this](ControlWindow& inside) { ApplyPlacement(inside); });
      break;
    case Property::kToolTipText:
      ApplyTip(record);
      break;
    case Property::kMousePointer:
      RefreshCursor();
      break;
    default:
      ApplyKindChange(record, change);
      break;
  }
}

void FormView::ApplyKindChange(ControlWindow& record, const vd::forms::Change& change) {
  switch (record.control->Kind()) {
    case ControlKind::kTextBox:
    case ControlKind::kCheckBox:
    case ControlKind::kOptionButton:
    case ControlKind::kProgressBar:
    case ControlKind::kStatusBar:
      ApplyValue(record);
      break;
    case ControlKind::kComboBox: {
      const HWND combo = record.window;
      const auto& box = static_cast<const vd::forms::ComboBox&>(*record.control);
      const auto at = static_cast<WPARAM>(change.index);
      switch (change.property) {
        case Property::kListItemAdded:
          SendMessageW(combo, CB_INSERTSTRING, at, reinterpret_cast<LPARAM>(Wide(box.List(change.index))));
          break;
        case Property::kListItemRemoved:
          SendMessageW(combo, CB_DELETESTRING, at, 0);
          break;
        case Property::kListItemChanged:
          SendMessageW(combo, CB_DELETESTRING, at, 0);
          SendMessageW(combo, CB_INSERTSTRING, at, reinterpret_cast<LPARAM>(Wide(box.List(change.index))));
          ApplyComboSelection(record);
          break;
        case Property::kListCleared:
          SendMessageW(combo, CB_RESETCONTENT, 0, 0);
          break;
        case Property::kListIndex:
        case Property::kText:
          ApplyComboSelection(record);
          break;
        default:
          break;
      }
      break;
    }
    case ControlKind::kTreeView:
      if (change.property == Property::kImageList) {
        ApplyTreeImages(record);
      } else if (record.tree) {
        record.tree->Apply(change);
      }
      break;
    default:
      break;
  }
}

void FormView::ApplyValue(ControlWindow& record) {
  const Control& control = *record.control;
  switch (control.Kind()) {
    case ControlKind::kTextBox:
      SetTextIfOther(record.window, static_cast<const vd::forms::TextBox&>(control).Text());
      break;
    case ControlKind::kCheckBox:
      SendMessageW(record.window, BM_SETCHECK, CheckState(static_cast<const vd::forms::CheckBox&>(control).Value()), 0);
      break;
    case ControlKind::kOptionButton:
      SendMessageW(record.window, BM_SETCHECK,
                   static_cast<const vd::forms::OptionButton&>(control).Value() ? BST_CHECKED : BST_UNCHECKED, 0);
      break;
    case ControlKind::kComboBox:
      ApplyComboList(record);
      break;
    case ControlKind::kStatusBar:
      ApplyStatusBar(record);
      break;
    case ControlKind::kProgressBar:
      ApplyProgress(record);
      break;
    default:
      break;
  }
}

void FormView::ApplyComboList(ControlWindow& record) {
  const auto& box = static_cast<const vd::forms::ComboBox&>(*record.control);
  SendMessageW(record.window, CB_RESETCONTENT, 0, 0);
  for (int32_t i = 0; i < box.ListCount(); ++i)
    SendMessageW(record.window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(box.List(i))));
  ApplyComboSelection(record);
}

void FormView::ApplyComboSelection(ControlWindow& record) {
  const auto& box = static_cast<const vd::forms::ComboBox&>(*record.control);
  if (SendMessageW(record.window, CB_GETCURSEL, 0, 0) != box.ListIndex())
    SendMessageW(record.window, CB_SETCURSEL, static_cast<WPARAM>(box.ListIndex()), 0);
  if (!box.Editable() || WindowText(record.window) == box.Text()) return;
  // Selecting no entry empties the edit field; the typed text stays, the caret after it.
  SetWindowTextW(record.window, Wide(box.Text()));
  const auto end = static_cast<WORD>(box.Text().size());
  SendMessageW(record.window, CB_SETEDITSEL, 0, MAKELPARAM(end, end));
}

void FormView::ApplyStatusBar(ControlWindow& record) {
  const auto& bar = static_cast<const vd::forms::StatusBar&>(*record.control);
  const HWND window = record.window;
  if (bar.Style() == vd::forms::sbrSimple) {
    SendMessageW(window, SB_SIMPLE, TRUE, 0);
    SendMessageW(window, SB_SETTEXTW, SB_SIMPLEID, reinterpret_cast<LPARAM>(Wide(bar.SimpleText())));
    return;
  }
  SendMessageW(window, SB_SIMPLE, FALSE, 0);
  RECT client{};
  GetClientRect(window, &client);
  const int count = std::max(bar.PanelCount(), 1);
  std::vector<int> edges(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) edges[static_cast<size_t>(i)] = (client.right * (i + 1)) / count;
  edges.back() = -1;  // the last panel reaches the end
  SendMessageW(window, SB_SETPARTS, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(edges.data()));
  for (int32_t i = 1; i <= bar.PanelCount(); ++i)
    SendMessageW(window, SB_SETTEXTW, static_cast<WPARAM>(i - 1), reinterpret_cast<LPARAM>(Wide(bar.PanelText(i))));
}

void FormView::ApplyProgress(ControlWindow& record) {
  const auto& bar = static_cast<const vd::forms::ProgressBar&>(*record.control);
  SendMessageW(record.window, PBM_SETRANGE32, static_cast<WPARAM>(std::lround(bar.Min())), std::lround(bar.Max()));
  SendMessageW(record.window, PBM_SETPOS, static_cast<WPARAM>(std::lround(bar.Value())), 0);
}

void FormView::ApplyTip(ControlWindow& record) {
  if (tooltip_.Get() == nullptr) return;
  const String& text = record.control->ToolTipText();
  for (const HWND window : {record.window, record.edit}) {
    if (window == nullptr) continue;
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = window_.Get();
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = const_cast<wchar_t*>(Wide(text));
    if (text.empty()) {
      if (record.hasTip) SendMessageW(tooltip_.Get(), TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    } else if (record.hasTip) {
      SendMessageW(tooltip_.Get(), TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    } else {
      SendMessageW(tooltip_.Get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
  }
  record.hasTip = !text.empty();
}

void FormView::ApplyImages(const Control& imageList) {
  const auto& images = static_cast<const vd::forms::ImageList&>(imageList);
  ImageListHandle rebuilt = BuildImageList(images);
  for (const auto& record : controls_) {
    if (record->tree && static_cast<vd::forms::TreeView&>(*record->control).ImageList() == &images)
      record->tree->SetImages(rebuilt.Get());
  }
  imageLists_[&imageList] = std::move(rebuilt);  // the old list goes once no tree draws with it
}

void FormView::ApplyTreeImages(ControlWindow& record) {
  const vd::forms::ImageList* images = static_cast<vd::forms::TreeView&>(*record.control).ImageList();
  if (images == nullptr) {
    record.tree->SetImages(nullptr);
    return;
  }
  auto found = imageLists_.find(images);
  if (found == imageLists_.end()) found = imageLists_.emplace(images, BuildImageList(*images)).first;
  record.tree->SetImages(found->second.Get());
}

void FormView::ApplyPlacement(ControlWindow& record) {
  if (record.window == nullptr) return;
  if (record.control->Kind() == ControlKind::kStatusBar) {
    SendMessageW(record.window, WM_SIZE, 0, 0);  // a status bar keeps to the bottom edge itself
    return;
  }
  const RECT place = DesignedRect(*record.control);
  SetWindowPos(record.window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormView::ApplyShown(ControlWindow& record) {
  if (record.window != nullptr) ShowWindow(record.window, record.control->IsShown() ? SW_SHOWNA : SW_HIDE);
}

void FormView::ApplyEnabled(ControlWindow& record) {
  if (record.window != nullptr) EnableWindow(record.window, EnabledInForm(*record.control) ? TRUE : FALSE);
}

void FormView::ForFrameContents(const ControlWindow& frame, const std::function<void(ControlWindow&)>& apply) {
  if (frame.control->Kind() != ControlKind::kFrame) return;
  for (const auto& record : controls_)
    if (IsInside(*record->control, *frame.control)) apply(*record);
}

void FormView::ApplyFocus() {
  const Control* active = form_.ActiveControl();
  if (active == nullptr || !IsWindowVisible(window_.Get())) return;
  const ControlWindow* record = Find(active);
  if (record == nullptr || record->window == nullptr) return;
  const HWND focus = GetFocus();
  if (focus == record->window || (focus != nullptr && focus == record->edit)) return;
  SendMessageW(window_.Get(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(record->window), TRUE);
}

void FormView::RefreshCursor() {
  POINT at{};
  GetCursorPos(&at);
  const HWND under = WindowFromPoint(at);
  if (under == nullptr || !Owns(under)) return;
  SendMessageW(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}

}  // namespace vd::win32::views
