// The dialog as built: a window per control, placed from the designed twips,
// with the dialog font, tab order in creation order, version 6 controls.
#include <algorithm>
#include <vector>

#include "dialog_test.h"
#include "vd/automation/text.h"
#include "views/control_factory.h"
#include "views/control_lookup.h"
#include "views/wide_text.h"

namespace vd::win32::views::testing {
namespace {

using vd::forms::Control;
using vd::forms::ControlKind;

// The designed place in pixels (15 twips each), frames' offsets added.
RECT ExpectedPlace(const Control& control) {
  float left = control.Left();
  float top = control.Top();
  for (const Control* frame = FrameOf(control); frame != nullptr; frame = FrameOf(*frame)) {
    left += frame->Left();
    top += frame->Top();
  }
  const auto px = [](float twips) { return static_cast<LONG>(twips / 15.0f + 0.5f); };
  return {px(left), px(top), px(left) + px(control.Width()), px(top) + px(control.Height())};
}

TEST_F(DialogTest, EveryControlButTheImageListHasAWindowWithItsCaption) {
  script.Then("check", [&] {
    for (Control* control : form.AllControls()) {
      SCOPED_TRACE(Narrow(control->Name()));
      if (control->Kind() == ControlKind::kImageList) {
        EXPECT_EQ(Win(*control), nullptr);
        continue;
      }
      ASSERT_NE(Win(*control), nullptr);
      EXPECT_EQ(GetParent(Win(*control)), script.Dialog());
      if (!CaptionOf(*control).empty()) {
        EXPECT_EQ(Narrow(WindowText(Win(*control))), Narrow(CaptionOf(*control)));
      }
    }
    EXPECT_EQ(Narrow(WindowText(script.Dialog())), "Sample Browser");
  });
  script.Run();
}

TEST_F(DialogTest, ControlsSitWhereTheTwipsPutThemFramesIncluded) {
  script.Then("check", [&] {
    for (Control* control : form.AllControls()) {
      const ControlKind kind = control->Kind();
      if (kind == ControlKind::kImageList || kind == ControlKind::kStatusBar) continue;
      SCOPED_TRACE(Narrow(control->Name()));
      const RECT expected = ExpectedPlace(*control);
      const RECT place = PlaceInParent(Win(*control));
      EXPECT_EQ(place.left, expected.left);
      EXPECT_EQ(place.top, expected.top);
      EXPECT_EQ(place.right, expected.right);
      if (kind == ControlKind::kComboBox) {
        // The closed height is the combo's own; the list drops below it.
        RECT dropped{};
        SendMessageW(Win(*control), CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
        EXPECT_GT(dropped.bottom - dropped.top, 3 * (place.bottom - place.top));
      } else {
        EXPECT_EQ(place.bottom, expected.bottom);
      }
    }
    RECT outer{};
    GetWindowRect(script.Dialog(), &outer);
    EXPECT_EQ(outer.right - outer.left, 500);  // 7500 twips
    EXPECT_EQ(outer.bottom - outer.top, 420);  // 6300 twips
  });
  script.Run();
}

TEST_F(DialogTest, StatusBarLiesAlongTheBottomEdge) {
  script.Then("check", [&] {
    RECT client{};
    GetClientRect(script.Dialog(), &client);
    const RECT bar = PlaceInParent(Win(form.sbStatus));
    EXPECT_EQ(bar.bottom, client.bottom);
    EXPECT_EQ(bar.left, 0);
    EXPECT_EQ(bar.right, client.right);
  });
  script.Run();
}

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

TEST_F(DialogTest, ControlsUseTheDialogFontOfEightPoints) {
  script.Then("check", [&] {
    const auto dialogFont = reinterpret_cast<HFONT>(SendMessageW(script.Dialog(), WM_GETFONT, 0, 0));
    ASSERT_NE(dialogFont, nullptr);
    LOGFONTW font{};
    GetObjectW(dialogFont, sizeof(font), &font);
    EXPECT_EQ(font.lfHeight, -MulDiv(8, 96, 72));
    for (const Control* control :
         {static_cast<const Control*>(&form.txtName), static_cast<const Control*>(&form.cmdApply),
          static_cast<const Control*>(&form.treItems)})
      EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(Win(*control), WM_GETFONT, 0, 0)), dialogFont);
  });
  script.Run();
}

// Version 6 buttons know BCM_GETIDEALSIZE; the process's default ones (no
// manifest of the program's own) do not.
TEST_F(DialogTest, ControlsAreVersionSixCommonControls) {
  script.Then("check", [&] {
    SIZE ideal{};
    EXPECT_TRUE(SendMessageW(Win(form.cmdApply), BCM_GETIDEALSIZE, 0, reinterpret_cast<LPARAM>(&ideal)));
    EXPECT_GT(ideal.cx, 0);
    ULONG_PTR cookie = 0;
    ASSERT_TRUE(ActivateActCtx(nullptr, &cookie));  // the process's default context
    const HWND plain = CreateWindowExW(0, L"Button", L"x", WS_CHILD, 0, 0, 10, 10, script.Dialog(), nullptr,
                                       GetModuleHandleW(nullptr), nullptr);
    DeactivateActCtx(0, cookie);
    EXPECT_FALSE(SendMessageW(plain, BCM_GETIDEALSIZE, 0, reinterpret_cast<LPARAM>(&ideal)));
    DestroyWindow(plain);
  });
  script.Run();
}

TEST_F(DialogTest, FirstControlThatTakesTheFocusGetsItAtTheShow) {
  script.Then("check", [&] {
    EXPECT_EQ(GetFocus(), Win(form.txtName));
    EXPECT_EQ(form.ActiveControl(), &form.txtName);
    EXPECT_EQ(form.log, std::vector<std::string>{"txtName.GotFocus"});
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
