#pragma once
// The base of every control, and the containers (form, frame) that hold them.
//
// Controls are members of their form class, created with the container they sit
// in: `Frame fraFormat{*this, u"fraFormat"}; OptionButton optASCII{fraFormat, u"optASCII"};`.
// A container must be declared before the controls it holds. Controls neither
// copy nor move: the form and the views know them by address. A control made
// at run time leaves its form (and the focus) when it is destroyed.
//
// Events are std::function members that the form class assigns, keeping the
// classic handler names: `cmdAddDs.onClick = [this] { cmdAddDs_Click(); };`.
// An event with no handler does nothing. Handlers run synchronously, inside the
// assignment or user action that raised them; an error they raise propagates to
// whoever made that assignment or action.
//
// The User* members are the entry points through which a view (or the test
// driver) reports what the user did. They fire the same events that the real
// controls fire and answer false, doing nothing, when the user could not have
// done it (the control, one of its containers or the form is hidden or
// disabled; the form's own visibility is not checked, so handlers can be driven
// without a modal show).
#include <cstdint>
#include <functional>
#include <vector>

#include "vd/automation/string.h"
#include "vd/forms/observer.h"

namespace vd::forms {

using vd::automation::String;
using vd::automation::StringView;

class Form;
class Control;

enum class ControlKind : uint8_t {
  kLabel,
  kCommandButton,
  kTextBox,
  kCheckBox,
  kOptionButton,
  kComboBox,
  kFrame,
  kTreeView,
  kImageList,
  kStatusBar,
  kProgressBar,
};

// Holds controls: the form itself, and frames. Option buttons of one container
// form one group.
class Container {
 public:
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;
  virtual ~Container();

  // The controls placed directly in this container, in creation order.
  [[nodiscard]] const std::vector<Control*>& Controls() const { return children_; }
  [[nodiscard]] Form& OwnerForm() const { return *ownerForm_; }

 protected:
  explicit Container(Form& form) : ownerForm_(&form) {}

 private:
  friend class Control;
  Form* ownerForm_;
  std::vector<Control*> children_;
};

class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  [[nodiscard]] virtual ControlKind Kind() const = 0;
  [[nodiscard]] const String& Name() const { return name_; }
  [[nodiscard]] Form& OwnerForm() const { return *form_; }
  // The form or frame the control sits in.
  [[nodiscard]] Container& Parent() const { return *parent_; }
  // False only for a control that outlived its container.
  [[nodiscard]] bool HasContainer() const { return parent_ != nullptr; }

  [[nodiscard]] bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  [[nodiscard]] bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  [[nodiscard]] float Left() const { return left_; }
  void SetLeft(float left);
  [[nodiscard]] float Top() const { return top_; }
  void SetTop(float top);
  [[nodiscard]] float Width() const { return width_; }
  void SetWidth(float width);
  [[nodiscard]] float Height() const { return height_; }
  void SetHeight(float height);
  // Position and size in one call (the designer's values, or a move).
  void Move(float left, float top, float width, float height);
  [[nodiscard]] const String& ToolTipText() const { return toolTipText_; }
  void SetToolTipText(String text);
  [[nodiscard]] const String& Tag() const { return tag_; }
  void SetTag(String tag);
  [[nodiscard]] int16_t MousePointer() const { return mousePointer_; }
  void SetMousePointer(int16_t pointer);

  // Visible here and in every container up to the form.
  [[nodiscard]] bool IsShown() const;
  // Enabled here, in every container and on the form.
  [[nodiscard]] bool IsUsable() const;
  // Whether this kind of control takes the focus at all (labels, frames, ... do not).
  [[nodiscard]] virtual bool TakesFocus() const { return false; }
  // Takes the focus now: shown, usable and of a kind that takes it.
  [[nodiscard]] bool CanFocus() const { return TakesFocus() && IsShown() && IsUsable(); }
  [[nodiscard]] bool HasFocus() const;
  // Moves the focus here (LostFocus on the old control, then GotFocus here);
  // error 5 when the control cannot take it.
  void SetFocus();

  // The observer of this one control (besides the form's observers); nullptr for none.
  void SetObserver(PropertyObserver* observer) { observer_ = observer; }

  std::function<void()> onClick;
  std::function<void()> onDblClick;
  std::function<void()> onGotFocus;
  std::function<void()> onLostFocus;
  std::function<void(int16_t& keyCode, int16_t shift)> onKeyDown;
  std::function<void(int16_t& keyAscii)> onKeyPress;
  std::function<void(int16_t button, int16_t shift, float x, float y)> onMouseMove;

  // A click with the mouse: the focus comes here first when the control takes
  // it, then the control does what a click does (Click for most; check boxes
  // toggle, option buttons select themselves).
  virtual bool UserClick();
  // A double click: the click first, then DblClick.
  virtual bool UserDoubleClick();
  bool UserFocus();
  // A character typed while this control has the focus: KeyPress on the form
  // first when its KeyPreview is on, then here (a handler may zero it).
  bool UserKeyPress(int16_t keyAscii);
  bool UserMouseMove(int16_t button, int16_t shift, float x, float y);

 protected:
  Control(Container& parent, String name);

  // Reports a change to the observers; called after the value is stored.
  void Notify(Property property, int32_t index = -1, const Node* node = nullptr);
  // The user could act on this control now.
  [[nodiscard]] bool CanUse() const { return IsShown() && IsUsable(); }
  // What a click does after the focus moved (the default fires Click).
  virtual void ClickAction();
  // One typed character through KeyPress (the form's first under key
  // preview); the character that remains, 0 when a handler swallowed it.
  int16_t PressKey(int16_t keyAscii);

  template <class Handler, class... Args>
  static void Fire(const Handler& handler, Args&&... args) {
    if (!handler) return;
    auto call = handler;  // the handler may replace itself while it runs
    call(std::forward<Args>(args)...);
  }

 private:
  friend class Form;
  friend class Container;
  String name_;
  Container* parent_;
  Control* parentControl_;  // the frame holding it, nullptr on the form
  Form* form_;
  PropertyObserver* observer_ = nullptr;
  String toolTipText_;
  String tag_;
  float left_ = 0;
  float top_ = 0;
  float width_ = 0;
  float height_ = 0;
  int16_t mousePointer_ = 0;
  bool visible_ = true;
  bool enabled_ = true;
};

}  // namespace vd::forms
