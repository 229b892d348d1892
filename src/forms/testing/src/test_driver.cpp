#include "vd/forms/testing/test_driver.h"

#include <gtest/gtest.h>

namespace vd::forms::testing {
namespace {
using vd::automation::ToUtf8;

std::string Named(const Control& control) { return ToUtf8(control.Name()); }

std::string Done(bool done, const Control& control) { return done ? std::string() : WhyUnusable(control); }
}  // namespace

std::string WhyUnusable(const Control& control) {
  if (!control.IsShown()) return Named(control) + " is hidden";
  if (!control.OwnerForm().Enabled()) return "the form " + ToUtf8(control.OwnerForm().Name()) + " is disabled";
  if (!control.IsUsable()) return Named(control) + " is disabled";
  return Named(control) + " did not take the action";
}

TestDriver::TestDriver() : previous_(Form::DefaultModalHost()) { Form::SetDefaultModalHost(this); }

TestDriver::~TestDriver() {
  if (Form::DefaultModalHost() == this) Form::SetDefaultModalHost(previous_);
  if (!steps_.empty()) {
    ADD_FAILURE() << steps_.size() << " scripted step(s) never ran; the first: " << steps_.front().label;
  }
}

TestDriver& TestDriver::Queue(std::string label, std::function<std::string()> run) {
  steps_.push_back(Step{std::move(label), std::move(run)});
  return *this;
}

void TestDriver::RunNext() {
  Step step = std::move(steps_.front());
  steps_.pop_front();
  ++stepsRun_;
  const std::string failure = step.run();
  if (!failure.empty()) ADD_FAILURE() << "step " << stepsRun_ << " (" << step.label << "): " << failure;
}

void TestDriver::RunAll() {
  while (!steps_.empty()) RunNext();
}

void TestDriver::RunModal(Form& form) {
  while (form.Visible()) {
    if (steps_.empty()) {
      ADD_FAILURE() << "the script ran out while " << ToUtf8(form.Name()) << " was still shown; hiding it";
      form.Hide();
      return;
    }
    RunNext();
  }
}

TestDriver& TestDriver::Click(Control& control) {
  return Queue("click " + Named(control), [&control] { return Done(control.UserClick(), control); });
}

TestDriver& TestDriver::DoubleClick(Control& control) {
  return Queue("double-click " + Named(control), [&control] { return Done(control.UserDoubleClick(), control); });
}

TestDriver& TestDriver::Tick(CheckBox& box, bool ticked) {
  return Queue((ticked ? "tick " : "untick ") + Named(box), [&box, ticked]() -> std::string {
    if ((box.Value() == vbChecked) == ticked) return Named(box) + " already is " + (ticked ? "ticked" : "unticked");
    return Done(box.UserClick(), box);
  });
}

TestDriver& TestDriver::Type(TextBox& box, String text) {
  return Queue("type into " + Named(box), [&box, text] { return Done(box.UserType(text), box); });
}

TestDriver& TestDriver::TypeKeys(TextBox& box, String keys) {
  return Queue("type keys into " + Named(box), [&box, keys] { return Done(box.UserTypeKeys(keys), box); });
}

TestDriver& TestDriver::Type(ComboBox& combo, String text) {
  return Queue("type into " + Named(combo), [&combo, text]() -> std::string {
    if (!combo.Editable()) return Named(combo) + " is a drop-down list";
    return Done(combo.UserType(text), combo);
  });
}

TestDriver& TestDriver::TypeKeys(ComboBox& combo, String keys) {
  return Queue("type keys into " + Named(combo), [&combo, keys]() -> std::string {
    if (!combo.Editable()) return Named(combo) + " is a drop-down list";
    return Done(combo.UserTypeKeys(keys), combo);
  });
}

TestDriver& TestDriver::Pick(ComboBox& combo, String entryText) {
  return Queue("pick \"" + ToUtf8(entryText) + "\" in " + Named(combo), [&combo, entryText]() -> std::string {
    if (!combo.CanFocus()) return WhyUnusable(combo);
    if (combo.UserPick(entryText)) return {};
    return Named(combo) + " has no entry \"" + ToUtf8(entryText) + "\"";
  });
}

TestDriver& TestDriver::Pick(ComboBox& combo, int32_t index) {
  return Queue("pick entry " + std::to_string(index) + " in " + Named(combo), [&combo, index]() -> std::string {
    if (!combo.CanFocus()) return WhyUnusable(combo);
    if (combo.UserPick(index)) return {};
    return Named(combo) + " has no entry " + std::to_string(index);
  });
}

TestDriver& TestDriver::DropDown(ComboBox& combo) {
  return Queue("drop down " + Named(combo), [&combo] { return Done(combo.UserDropDown(), combo); });
}

namespace {
// The node with the key, or why there is none.
std::pair<NodeRef, std::string> NodeOf(const TreeView& tree, const String& key) {
  NodeRef node = tree.Nodes().Find(key);
  if (!node) return {nullptr, Named(tree) + " has no node with key \"" + ToUtf8(key) + "\""};
  return {node, {}};
}
}  // namespace

TestDriver& TestDriver::SelectNode(TreeView& tree, String key) {
  return Queue("select node " + ToUtf8(key), [&tree, key]() -> std::string {
    auto [node, missing] = NodeOf(tree, key);
    if (!node) return missing;
    return Done(tree.UserSelectNode(node), tree);
  });
}

TestDriver& TestDriver::CollapseNode(TreeView& tree, String key) {
  return Queue("collapse node " + ToUtf8(key), [&tree, key]() -> std::string {
    auto [node, missing] = NodeOf(tree, key);
    if (!node) return missing;
    if (!node->Expanded() || node->Children() == 0) return "node " + ToUtf8(key) + " shows no minus sign";
    return Done(tree.UserCollapse(node), tree);
  });
}

TestDriver& TestDriver::ExpandNode(TreeView& tree, String key) {
  return Queue("expand node " + ToUtf8(key), [&tree, key]() -> std::string {
    auto [node, missing] = NodeOf(tree, key);
    if (!node) return missing;
    if (node->Expanded() || node->Children() == 0) return "node " + ToUtf8(key) + " shows no plus sign";
    return Done(tree.UserExpand(node), tree);
  });
}

TestDriver& TestDriver::DoubleClickNode(TreeView& tree, String key) {
  return Queue("double-click node " + ToUtf8(key), [&tree, key]() -> std::string {
    NodeRef node;
    if (!key.empty()) {
      auto [found, missing] = NodeOf(tree, key);
      if (!found) return missing;
      node = found;
    }
    return Done(tree.UserDoubleClickNode(node), tree);
  });
}

TestDriver& TestDriver::MouseMove(TreeView& tree, float x, float y, String keyUnderMouse, int16_t button,
                                  int16_t shift) {
  return Queue("move the mouse over " + Named(tree), [&tree, x, y, keyUnderMouse, button, shift]() -> std::string {
    NodeRef node;
    if (!keyUnderMouse.empty()) {
      auto [found, missing] = NodeOf(tree, keyUnderMouse);
      if (!found) return missing;
      node = found;
    }
    return Done(tree.UserMouseMove(button, shift, x, y, node), tree);
  });
}

TestDriver& TestDriver::KeyPress(Control& control, int16_t keyAscii) {
  return Queue("key press in " + Named(control), [&control, keyAscii]() -> std::string {
    if (!control.UserFocus() && control.TakesFocus()) return WhyUnusable(control);
    return Done(control.UserKeyPress(keyAscii), control);
  });
}

TestDriver& TestDriver::KeyDown(Form& form, int16_t keyCode, int16_t shift) {
  return Queue("key down " + std::to_string(keyCode) + " on " + ToUtf8(form.Name()), [&form, keyCode, shift] {
    return form.UserKeyDown(keyCode, shift) ? std::string() : "the form " + ToUtf8(form.Name()) + " is disabled";
  });
}

TestDriver& TestDriver::Focus(Control& control) {
  return Queue("focus " + Named(control), [&control]() -> std::string {
    if (!control.TakesFocus()) return Named(control) + " does not take the focus";
    return Done(control.UserFocus(), control);
  });
}

TestDriver& TestDriver::Close(Form& form) {
  return Queue("close " + ToUtf8(form.Name()), [&form] {
    return form.UserClose() ? std::string() : "the form " + ToUtf8(form.Name()) + " is disabled";
  });
}

TestDriver& TestDriver::Check(std::function<void()> check) {
  return Queue("check", [check = std::move(check)] {
    check();
    return std::string();
  });
}

}  // namespace vd::forms::testing
