#pragma once
// A scripted user for headless tests. The test queues what the user does; when
// a form is shown modally the driver, as the modal host, performs the steps in
// order through the controls' User* entry points until that form hides itself.
// A form shown modally from a step (a dialog of the dialog) takes the next
// steps until it hides in turn.
//
//   vd::forms::testing::TestDriver user;  // the modal host while it lives
//   user.SelectNode(dlg.treDataSources, u"2:1")
//       .Type(dlg.txtDsvName, u"Level")
//       .Check([&] { EXPECT_TRUE(dlg.dbOK.Enabled()); })
//       .Click(dlg.dbOK);
//   dlg.Show(true);
//
// The test fails (ADD_FAILURE) when a step cannot be done as a user could
// (a hidden or disabled control, a missing node or entry), when the steps run
// out while a form is still shown (the driver then hides it, so nothing
// hangs), and when steps are left over at the driver's end.
#include <cstdint>
#include <deque>
#include <functional>
#include <string>

#include "vd/forms/forms.h"

namespace vd::forms::testing {

class TestDriver : public ModalHost {
 public:
  // Installs the driver as the default modal host; the previous one comes back at its end.
  TestDriver();
  ~TestDriver() override;

  // Buttons, labels, check boxes (toggle), option buttons (select), any control.
  TestDriver& Click(Control& control);
  TestDriver& DoubleClick(Control& control);
  // Clicks a check box only when its value is not yet the wanted one (1 or 0);
  // fails when it already is.
  TestDriver& Tick(CheckBox& box, bool ticked = true);
  // Replaces the whole text (one Change), or types key by key (KeyPress and Change each).
  TestDriver& Type(TextBox& box, String text);
  TestDriver& TypeKeys(TextBox& box, String keys);
  TestDriver& Type(ComboBox& combo, String text);
  TestDriver& TypeKeys(ComboBox& combo, String keys);
  // Opens the list (DropDown) and picks the entry with this text, or at this index.
  TestDriver& Pick(ComboBox& combo, String entryText);
  TestDriver& Pick(ComboBox& combo, int32_t index);
  TestDriver& DropDown(ComboBox& combo);
  // Tree nodes are named by key and looked up when the step runs.
  TestDriver& SelectNode(TreeView& tree, String key);
  TestDriver& CollapseNode(TreeView& tree, String key);
  TestDriver& ExpandNode(TreeView& tree, String key);
  // key "" double-clicks the tree where there is no node.
  TestDriver& DoubleClickNode(TreeView& tree, String key);
  // The mouse moves to (x, y) over the node with this key ("" for none).
  TestDriver& MouseMove(TreeView& tree, float x, float y, String keyUnderMouse, int16_t button = 0, int16_t shift = 0);
  TestDriver& KeyPress(Control& control, int16_t keyAscii);
  TestDriver& KeyDown(Form& form, int16_t keyCode, int16_t shift = 0);
  TestDriver& Focus(Control& control);
  // The form's close box.
  TestDriver& Close(Form& form);
  // Runs any code at this point of the script: checks, or actions of its own.
  TestDriver& Check(std::function<void()> check);

  // Performs the queued steps now, without a modal show.
  void RunAll();
  [[nodiscard]] size_t Remaining() const { return steps_.size(); }

  void RunModal(Form& form) override;

 private:
  struct Step {
    std::string label;
    std::function<std::string()> run;  // answers why it could not be done, "" when done
  };
  TestDriver& Queue(std::string label, std::function<std::string()> run);
  void RunNext();

  std::deque<Step> steps_;
  int stepsRun_ = 0;
  ModalHost* previous_;
};

// Why a user could not act on the control now ("" when they could).
std::string WhyUnusable(const Control& control);

}  // namespace vd::forms::testing
