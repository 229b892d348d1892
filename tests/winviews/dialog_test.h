#pragma once
// The fixture of the dialog tests: the sample form, the Win32 modal host and
// a script that drives the dialog from inside its message loop.
#include <gtest/gtest.h>

#include "dialog_script.h"
#include "sample_form.h"
#include "views/form_view.h"
#include "views/win32_modal_host.h"
#include "win_robot.h"

namespace vd::win32::views::testing {

class DialogTest : public ::testing::Test {
 protected:
  [[nodiscard]] HWND Win(const vd::forms::Control& control) const { return script.Window(control); }
  [[nodiscard]] HWND Tree() const { return Win(form.treItems); }
  [[nodiscard]] HTREEITEM Item(const String& key) const {
    return script.View().TreeOf(form.treItems)->ItemOf(*form.treItems.Nodes().Item(key));
  }
  [[nodiscard]] vd::forms::NodeRef Node(const String& key) const { return form.treItems.Nodes().Item(key); }
  // The point a robot clicks to click the node with this key.
  [[nodiscard]] POINT NodePoint(const String& key) const;

  Win32ModalHost host;
  SampleForm form;
  DialogScript script{form, host};
};

}  // namespace vd::win32::views::testing
