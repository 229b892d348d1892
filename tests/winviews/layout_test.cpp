// The dialog as built: the tab order in creation order, the owner disabled
// under a dialog (the focus at the show: the robot's target run, whose log
// begins with it; the controls' captions: the robot's checks in every scenario).
#include <vector>

#include "dialog_test.h"
#include "views/control_lookup.h"

namespace vd::win32::views::testing {
namespace {

using vd::forms::Control;
using vd::forms::ControlKind;

TEST_F(DialogTest, TabOrderIsCreationOrderWithOneStopPerOptionGroup) {
  script.Then("check", [&] {
    // An option group is one stop: the option that is selected.
    std::vector<HWND> expected;
    for (Control* control : form.AllControls()) {
      const bool unselectedOption =
          control->Kind() == ControlKind::kOptionButton && !static_cast<vd::forms::OptionButton*>(control)->Value();
      if (control->TakesFocus() && !unselectedOption) expected.push_back(Win(*control));
    }
    std::vector<HWND> order;
    HWND at = expected.front();
    for (size_t i = 0; i < expected.size(); ++i) {
      order.push_back(at);
      at = GetNextDlgTabItem(script.Dialog(), at, FALSE);
    }
    EXPECT_EQ(order, expected);
    EXPECT_EQ(at, expected.front()) << "the order wraps round";
  });
  script.Run();
}

TEST_F(DialogTest, OwnerIsDisabledWhileADialogOfTheDialogIsShown) {
  SmallForm small;
  small.SetModalHost(&host);
  bool ownerWasEnabled = true;
  bool smallWasShown = false;
  HWND smallWindow = nullptr;
  form.applyAction = [&] { small.Show(true, &form); };
  small.onLoad = [&] {};
  script.Then("show the small form", [&] { PostClick(Win(form.cmdApply)); })
      .WaitFor("the small form", [&] { return small.NativeHandle() != nullptr; })
      .Then("check and close it",
            [&] {
              smallWindow = static_cast<HWND>(small.NativeHandle());
              smallWasShown = IsWindowVisible(smallWindow) != FALSE;
              ownerWasEnabled = IsWindowEnabled(script.Dialog()) != FALSE;
              EXPECT_EQ(GetWindow(smallWindow, GW_OWNER), script.Dialog());
              EXPECT_EQ(host.ActiveWindow(), smallWindow);
              PostClick(FindControlWindow(smallWindow, u"cmdOK"));
            })
      .WaitFor("the small form to go", [&] { return small.NativeHandle() == nullptr; })
      .Then("check", [&] {
        EXPECT_TRUE(IsWindowEnabled(script.Dialog()));
        EXPECT_FALSE(IsWindow(smallWindow));
        EXPECT_EQ(host.ActiveWindow(), script.Dialog());
      });
  script.Run();
  EXPECT_TRUE(smallWasShown);
  EXPECT_FALSE(ownerWasEnabled);
}

}  // namespace
}  // namespace vd::win32::views::testing
