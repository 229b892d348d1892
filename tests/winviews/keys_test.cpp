// Keys: access keys move through the dialog, Enter and Escape press the
// buttons named for them (key preview from every control and Tab: the robot's
// target run).
#include <string>
#include <vector>

#include "dialog_test.h"

namespace vd::win32::views::testing {
namespace {

using Log = std::vector<std::string>;

TEST_F(DialogTest, AccessKeyPressesTheButton) {
  script.Then("alt+a", [&] { PostMessageW(Win(form.txtName), WM_SYSCHAR, 'a', static_cast<LPARAM>(1u << 29)); })
      .Then("check", [&] { EXPECT_EQ(form.Count("cmdApply.Click"), 1u); });
  script.Run();
}

TEST_F(DialogTest, EnterAndEscapePressTheButtonsNamedForThem) {
  host.SetDialogKeys(u"frmSample", {u"cmdApply", u"cmdClose"});
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
