// Keys: the form hears them first whichever control has the focus (key
// preview), Tab and access keys move through the dialog, Enter and Escape
// press the buttons named for them.
#include <string>
#include <vector>

#include "dialog_test.h"

namespace vd::win32::views::testing {
namespace {

using Log = std::vector<std::string>;

struct KeyCase {
  std::string name;
  UINT key;
  bool shift;
  bool ctrl;
  std::string expected;  // the form's KeyDown
};

class KeyPreviewTest : public DialogTest, public ::testing::WithParamInterface<KeyCase> {};

TEST_P(KeyPreviewTest, ReachesTheFormFromEveryControl) {
  const KeyCase& key = GetParam();
  for (const vd::forms::Control* control :
       {static_cast<const vd::forms::Control*>(&form.txtName), static_cast<const vd::forms::Control*>(&form.treItems),
        static_cast<const vd::forms::Control*>(&form.cboType)}) {
    script.Then("press in " + Narrow(control->Name()), [this, control, key] {
      SetFocus(Win(*control));
      form.log.clear();
      PostKey(Win(*control), key.key, key.shift, key.ctrl);
    });
    script.Then("check " + Narrow(control->Name()), [this, key] {
      ReleaseModifiers();
      EXPECT_EQ(form.Events({"Form.KeyDown"}), Log{key.expected});
    });
  }
  script.Run();
}

const KeyCase kKeys[] = {
    {"F3", VK_F3, false, false, "Form.KeyDown:114:0"},
    {"ShiftF3", VK_F3, true, false, "Form.KeyDown:114:1"},
    {"CtrlF", 'F', false, true, "Form.KeyDown:70:2"},
};

INSTANTIATE_TEST_SUITE_P(Keys, KeyPreviewTest, ::testing::ValuesIn(kKeys),
                         [](const ::testing::TestParamInfo<KeyCase>& param) { return param.param.name; });

TEST_F(DialogTest, AccessKeyPressesTheButton) {
  script.Then("alt+a", [&] { PostMessageW(Win(form.txtName), WM_SYSCHAR, 'a', static_cast<LPARAM>(1u << 29)); })
      .Then("check", [&] { EXPECT_EQ(form.Count("cmdApply.Click"), 1u); });
  script.Run();
}

TEST_F(DialogTest, EnterAndEscapePressTheButtonsNamedForThem) {
  form.cmdApply.SetDefault(true);
  form.cmdClose.SetCancel(true);
  script.Then("enter", [&] { PostKey(Win(form.txtName), VK_RETURN); })
      .Then("check enter", [&] { EXPECT_EQ(form.Count("cmdApply.Click"), 1u); })
      .Then("escape", [&] { PostKey(GetFocus(), VK_ESCAPE); });
  script.Run();  // Escape pressed Close, which hid the form
  EXPECT_EQ(form.Count("cmdClose.Click"), 1u);
  EXPECT_FALSE(form.Visible());
}

TEST_F(DialogTest, EscapeWithoutACancelButtonDoesNothing) {
  script.Then("escape", [&] { PostKey(Win(form.txtName), VK_ESCAPE); }).Then("check", [&] {
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(form.Events({"cmdClose.Click", "cmdApply.Click"}), Log{});
    EXPECT_EQ(form.Events({"Form.KeyDown"}), Log{"Form.KeyDown:27:0"});
  });
  script.Run();
}

}  // namespace
}  // namespace vd::win32::views::testing
