#pragma once
// A form: the container of its controls, with the form's own properties, its
// life cycle (Initialize once, Load, Unload), modal Show and Hide, the focus,
// and key preview.
//
// A form class derives from Form and declares its controls as members:
//   class frmFind : public vd::forms::Form {
//    public:
//     frmFind() : Form(u"frmFind") { OKButton.onClick = [this] { OKButton_Click(); }; }
//     vd::forms::CommandButton OKButton{*this, u"OKButton", u"Find &Next"};
//     ...
//   };
#include <cstdint>
#include <functional>
#include <vector>

#include "vd/forms/control.h"
#include "vd/forms/modal_host.h"
#include "vd/forms/observer.h"

namespace vd::forms {

class Form : public Container {
 public:
  explicit Form(String name);
  ~Form() override;

  [[nodiscard]] const String& Name() const { return name_; }
  [[nodiscard]] const String& Caption() const { return caption_; }
  void SetCaption(String caption);
  [[nodiscard]] float Left() const { return left_; }
  void SetLeft(float left);
  [[nodiscard]] float Top() const { return top_; }
  void SetTop(float top);
  [[nodiscard]] float Width() const { return width_; }
  void SetWidth(float width);
  [[nodiscard]] float Height() const { return height_; }
  void SetHeight(float height);
  [[nodiscard]] bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  [[nodiscard]] int16_t MousePointer() const { return mousePointer_; }
  void SetMousePointer(int16_t pointer);
  // With key preview on, KeyDown and KeyPress reach the form before the
  // control that has the focus, whichever it is.
  [[nodiscard]] bool KeyPreview() const { return keyPreview_; }
  void SetKeyPreview(bool preview);

  // Life cycle. Initialize fires once in the form's life, at the first Load
  // (or an explicit Initialize). Load fires when the form loads: on Load(), or
  // on Show of an unloaded form. Unload fires Unload (a handler may cancel),
  // then hides the form and drops the focus; a later Load fires Load again.
  // Controls keep their values across Unload.
  void Initialize();
  void Load();
  void Unload();
  [[nodiscard]] bool Loaded() const { return loaded_; }

  // Shows the form (loading it first). A modal show hands control to the modal
  // host and returns once the form is hidden; a form already shown cannot be
  // shown modally (error 400), nor without a modal host (error 5). owner is the
  // form the dialog belongs to while it is shown.
  void Show(bool modal = false, Form* owner = nullptr);
  void Hide();
  [[nodiscard]] bool Visible() const { return visible_; }
  // True is a Show that is not modal, False a Hide.
  void SetVisible(bool visible);
  [[nodiscard]] bool ShownModally() const { return modalDepth_ > 0; }
  [[nodiscard]] Form* Owner() const { return owner_; }

  // The host of this form's modal shows; nullptr: the default of the thread that shows it.
  void SetModalHost(ModalHost* host) { modalHost_ = host; }
  static void SetDefaultModalHost(ModalHost* host);
  [[nodiscard]] static ModalHost* DefaultModalHost();

  // The control that has the focus, nullptr when none.
  [[nodiscard]] Control* ActiveControl() const { return active_; }
  // Every control of the form, frames' contents included, in creation order.
  [[nodiscard]] const std::vector<Control*>& AllControls() const { return all_; }
  [[nodiscard]] Control* FindControl(StringView name) const;

  // Observers of the form's own properties and of every control on it.
  void AddObserver(PropertyObserver& observer);
  void RemoveObserver(PropertyObserver& observer);

  // The view's window for this form (an HWND on Windows); nullptr headless.
  [[nodiscard]] void* NativeHandle() const { return nativeHandle_; }
  void SetNativeHandle(void* handle) { nativeHandle_ = handle; }

  std::function<void()> onInitialize;
  std::function<void()> onLoad;
  std::function<void(bool& cancel)> onUnload;
  std::function<void(int16_t& keyCode, int16_t shift)> onKeyDown;
  std::function<void(int16_t& keyAscii)> onKeyPress;

  // A key pressed while the form is active: the form's KeyDown first when key
  // preview is on, then the focused control's unless a handler zeroed the code.
  // False while the form is disabled.
  bool UserKeyDown(int16_t keyCode, int16_t shift);
  // The close box: as Unload.
  bool UserClose();

 private:
  friend class Control;

  void Register(Control& control);
  void Unregister(Control& control);
  void MoveFocus(Control* target);
  void Report(const Change& change);
  void Notify(Property property);

  String name_;
  String caption_;
  float left_ = 0;
  float top_ = 0;
  float width_ = 0;
  float height_ = 0;
  int16_t mousePointer_ = 0;
  bool enabled_ = true;
  bool keyPreview_ = false;
  bool visible_ = false;
  bool initialized_ = false;
  bool loaded_ = false;
  int modalDepth_ = 0;
  Form* owner_ = nullptr;
  ModalHost* modalHost_ = nullptr;
  Control* active_ = nullptr;
  Control* announced_ = nullptr;  // the control whose GotFocus ran last, until its LostFocus
  std::vector<Control*> all_;
  std::vector<PropertyObserver*> observers_;
  void* nativeHandle_ = nullptr;
};

}  // namespace vd::forms
