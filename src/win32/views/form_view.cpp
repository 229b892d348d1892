#include "views/form_view.h"

#include <algorithm>
#include <optional>

#include "com/boundary.h"
#include "vd/forms/forms.h"
#include "views/activation_context.h"
#include "views/control_factory.h"
#include "views/control_lookup.h"
#include "views/dialog_template.h"
#include "views/wide_text.h"

namespace vd::win32::views {

using vd::forms::Control;
using vd::forms::ControlKind;

namespace {

// A drop-down combo's window is as high as its open list.
constexpr int kDroppedListHeight = 160;
// Room around the controls when the form has no designed size.
constexpr int kFitMargin = 8;
// Room a push button keeps between its caption and each of its sides: the
// frame, the focus rectangle and a little air.
constexpr int kButtonTextMargin = 6;

// The record of a subclassed control window, in the window's user data: read
// on every message the window gets, so it must not cost a trip to the
// window server as a window property can.
ControlWindow* RecordOf(HWND window) {
  return reinterpret_cast<ControlWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

}  // namespace

// The window procedures: no exception leaves them.
struct WindowProcedures {
  static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
      SetWindowLongPtrW(window, DWLP_USER, lParam);
      return FALSE;  // the view gives the focus itself
    }
    auto* view = reinterpret_cast<FormView*>(GetWindowLongPtrW(window, DWLP_USER));
    if (view == nullptr || view->window_ != window) return FALSE;
    return ContainOr<INT_PTR>(FALSE, [&] { return view->DialogMessage(message, wParam, lParam); });
  }

  static LRESULT CALLBACK ControlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    ControlWindow* record = RecordOf(window);
    if (record == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    const WNDPROC original = window == record->edit ? record->editProc : record->windowProc;
    if (message == WM_NCDESTROY) {
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      return CallWindowProcW(original, window, message, wParam, lParam);
    }
    // Nothing of the view throws past its own guards; should anything, it stops here.
    return ContainOr<LRESULT>(0,
                              [&] { return record->view->ControlMessage(*record, window, message, wParam, lParam); });
  }
};

FormView::FormView(vd::forms::Form& form, ViewContext& context, HWND owner) : form_(form), context_(context) {
  const ScopedActivation activation;
  CommonControls::Get();
  ++applying_;  // building is no input
  try {
    CreateDialogWindow(owner);
    CreateControlWindows();
  } catch (...) {
    if (window_ != nullptr) DestroyWindow(window_);
    throw;
  }
  form_.AddObserver(*this);
  form_.SetNativeHandle(window_);
  ApplyAll();
  --applying_;
}

FormView::~FormView() {
  closing_ = true;
  form_.RemoveObserver(*this);
  if (form_.NativeHandle() == window_) form_.SetNativeHandle(nullptr);
  for (const auto& record : controls_) {
    record->tree.reset();
    if (record->window != nullptr) WithdrawName(record->window);
  }
  if (window_ != nullptr) {
    WithdrawName(window_);
    if (tooltip_ != nullptr) DestroyWindow(tooltip_);
    DestroyWindow(window_);
  }
}

void FormView::CreateDialogWindow(HWND owner) {
  const DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_FIXEDSYS;
  const DialogTemplate dialog(style, WS_EX_DLGMODALFRAME, form_.Caption());
  window_ = CreateDialogIndirectParamW(ViewsModule(), dialog.Get(), owner, WindowProcedures::DialogProc,
                                       reinterpret_cast<LPARAM>(this));
  if (window_ == nullptr) return;
  font_ = reinterpret_cast<HFONT>(SendMessageW(window_, WM_GETFONT, 0, 0));
  PublishName(window_, form_.Name());
  tooltip_ =
      CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                      CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window_, nullptr, ViewsModule(), nullptr);
}

void FormView::CreateControlWindows() {
  const auto& all = form_.AllControls();
  controls_.reserve(all.size());
  const Control* previous = nullptr;
  for (size_t i = 0; i < all.size(); ++i) {
    Control& control = *all[i];
    auto record = std::make_unique<ControlWindow>();
    record->control = &control;
    record->view = this;
    record->id = kFirstControlId + static_cast<int>(i);
    const WindowKind kind = WindowKindOf(control);
    if (kind.className != nullptr && window_ != nullptr) {
      // A group starts at every control but an option button that follows
      // another of the same container.
      const bool joinsGroup = control.Kind() == ControlKind::kOptionButton && previous != nullptr &&
                              previous->Kind() == ControlKind::kOptionButton &&
                              &previous->Parent() == &control.Parent();
      DWORD style = WS_CHILD | kind.style | (joinsGroup ? 0 : WS_GROUP);
      if (control.IsShown()) style |= WS_VISIBLE;
      if (!EnabledInForm(control)) style |= WS_DISABLED;
      const RECT place = DesignedRect(control);
      std::optional<ScopedActivation> defaultControls;
      if (kind.defaultControls) defaultControls.emplace(nullptr);
      record->window =
          CreateWindowExW(kind.exStyle, kind.className, L"", style, place.left, place.top, place.right - place.left,
                          place.bottom - place.top, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(record->id)),
                          ViewsModule(), nullptr);
    }
    if (record->window != nullptr) {
      SendMessageW(record->window, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
      PublishName(record->window, control.Name());
      Subclass(*record, record->window, record->windowProc);
      if (control.Kind() == ControlKind::kComboBox) {
        COMBOBOXINFO parts{};
        parts.cbSize = sizeof(parts);
        if (GetComboBoxInfo(record->window, &parts) && parts.hwndItem != nullptr && parts.hwndItem != record->window) {
          record->edit = parts.hwndItem;
          Subclass(*record, record->edit, record->editProc);
        }
      }
      if (control.Kind() == ControlKind::kTreeView)
        record->tree = std::make_unique<TreeMirror>(static_cast<vd::forms::TreeView&>(control), record->window,
                                                    record->windowProc, static_cast<MirrorHost&>(*this), twips_);
      previous = &control;
    }
    byControl_[&control] = record.get();
    controls_.push_back(std::move(record));
  }
}

void FormView::Subclass(ControlWindow& record, HWND window, WNDPROC& original) {
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&record));
  original = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProcedures::ControlProc)));
}

RECT FormView::DesignedRect(const Control& control) const {
  float left = control.Left();
  float top = control.Top();
  for (const Control* frame = FrameOf(control); frame != nullptr; frame = FrameOf(*frame)) {
    left += frame->Left();
    top += frame->Top();
  }
  RECT place{twips_.ToPixels(left), twips_.ToPixels(top), 0, 0};
  place.right = place.left + twips_.ToPixels(control.Width());
  int height = twips_.ToPixels(control.Height());
  if (control.Kind() == ControlKind::kComboBox &&
      static_cast<const vd::forms::ComboBox&>(control).Style() != vd::forms::ComboStyle::kSimpleCombo)
    height += kDroppedListHeight;
  place.bottom = place.top + height;
  if (control.Kind() == ControlKind::kCommandButton) {
    // A caption wider than the designed button widens it about its centre.
    const int needed =
        CaptionWidth(static_cast<const vd::forms::CommandButton&>(control).Caption()) + 2 * kButtonTextMargin;
    const int grow = needed - (place.right - place.left);
    if (grow > 0) {
      place.left -= grow / 2;
      place.right += grow - grow / 2;
    }
  }
  return place;
}

int FormView::CaptionWidth(const vd::automation::String& caption) const {
  if (window_ == nullptr || caption.empty()) return 0;
  const HDC dc = GetDC(window_);
  if (dc == nullptr) return 0;
  const HGDIOBJ old = font_ != nullptr ? SelectObject(dc, font_) : nullptr;
  RECT extent{0, 0, 0, 0};
  // As the button draws it: one line, "&" marks the access key and takes no room.
  DrawTextW(dc, Wide(caption), -1, &extent, DT_CALCRECT | DT_SINGLELINE);
  if (old != nullptr) SelectObject(dc, old);
  ReleaseDC(window_, dc);
  return extent.right - extent.left;
}

SIZE FormView::DesignedFormSize() const {
  SIZE size{twips_.ToPixels(form_.Width()), twips_.ToPixels(form_.Height())};
  if (size.cx > 0 && size.cy > 0) return size;
  // No designed size: the controls' extent, with the frame around it.
  RECT extent{0, 0, 0, 0};
  for (const auto& record : controls_) {
    if (record->window == nullptr || record->control->Kind() == ControlKind::kStatusBar) continue;
    RECT place = DesignedRect(*record->control);
    if (record->control->Kind() == ControlKind::kComboBox)
      place.bottom = place.top + twips_.ToPixels(record->control->Height());
    extent.right = std::max(extent.right, place.right + kFitMargin);
    extent.bottom = std::max(extent.bottom, place.bottom + kFitMargin);
  }
  AdjustWindowRectEx(&extent, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                     static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)));
  if (size.cx <= 0) size.cx = extent.right - extent.left;
  if (size.cy <= 0) size.cy = extent.bottom - extent.top;
  return size;
}

ControlWindow* FormView::Find(const Control* control) const {
  const auto found = byControl_.find(control);
  return found != byControl_.end() ? found->second : nullptr;
}

ControlWindow* FormView::FindById(int id) const {
  const int index = id - kFirstControlId;
  if (index < 0 || index >= static_cast<int>(controls_.size())) return nullptr;
  return controls_[static_cast<size_t>(index)].get();
}

HWND FormView::WindowOf(const Control& control) const {
  const auto* record = Find(&control);
  return record != nullptr ? record->window : nullptr;
}

TreeMirror* FormView::TreeOf(const Control& control) const {
  const auto* record = Find(&control);
  return record != nullptr ? record->tree.get() : nullptr;
}

bool FormView::Owns(HWND window) const { return window == window_ || (window_ != nullptr && IsChild(window_, window)); }

void FormView::Show() {
  if (window_ == nullptr) return;
  Flush();  // the first picture shows the trees as built
  Quietly([&] {
    const SIZE size = DesignedFormSize();
    RECT around{};
    const HWND owner = GetWindow(window_, GW_OWNER);
    if (owner != nullptr && IsWindowVisible(owner)) {
      GetWindowRect(owner, &around);
    } else {
      SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
    }
    POINT at{around.left + (around.right - around.left - size.cx) / 2,
             around.top + (around.bottom - around.top - size.cy) / 2};
    if (form_.Left() != 0 || form_.Top() != 0) at = {twips_.ToPixels(form_.Left()), twips_.ToPixels(form_.Top())};
    SetWindowPos(window_, nullptr, std::max<LONG>(at.x, 0), std::max<LONG>(at.y, 0), size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    // The button Enter presses shows as the default one.
    const auto keys = context_.dialogKeys.find(form_.Name());
    if (keys != context_.dialogKeys.end() && !keys->second.defaultButton.empty()) {
      if (const Control* button = form_.FindControl(keys->second.defaultButton))
        if (const ControlWindow* record = Find(button)) SendMessageW(window_, DM_SETDEFID, record->id, 0);
    }
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
  });
  const Control* active = form_.ActiveControl();
  if (active != nullptr && active->CanFocus()) {
    Quietly([&] { ApplyFocus(); });
  } else {
    const auto& all = form_.AllControls();
    const auto first = std::find_if(all.begin(), all.end(), [](const Control* c) { return c->CanFocus(); });
    if (first != all.end()) UserAction([&] { (*first)->UserFocus(); });
  }
  UpdateWindow(window_);
}

void FormView::UserAction(const std::function<void()>& action) {
  if (applying_ > 0 || closing_) return;
  try {
    action();
  } catch (...) {
    Report();
  }
}

void FormView::Quietly(const std::function<void()>& change) {
  ++applying_;
  try {
    change();
  } catch (...) {
    // A window that cannot follow must not undo what the form did.
  }
  --applying_;
}

void FormView::RequestFlush() {
  if (flushPosted_ || window_ == nullptr) return;
  flushPosted_ = PostMessageW(window_, WM_APP, 0, 0) != FALSE;
}

void FormView::Flush() {
  flushPosted_ = false;
  Quietly([&] {
    for (const auto& record : controls_)
      if (record->tree) record->tree->Flush();
  });
}

void FormView::RefreshNow(const Control& control) {
  Flush();
  if (const HWND window = WindowOf(control)) UpdateWindow(window);
}

void FormView::Report() {
  const ReportedError error = CurrentError();
  try {
    if (context_.reportError) context_.reportError(window_, form_.Caption(), error);
  } catch (...) {
    // Nothing more can be told.
  }
}

}  // namespace vd::win32::views
