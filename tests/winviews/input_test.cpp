// Real input to the controls' windows fires the events the form's rules give,
// once each, and the windows then show what the form holds.
#include <string>
#include <vector>

#include "dialog_test.h"
#include "vd/automation/text.h"
#include "views/wide_text.h"

namespace vd::win32::views::testing {
namespace {

using Log = std::vector<std::string>;

TEST_F(DialogTest, ChangeHandlerRewritingTheTextIsShownAndNotReportedAgain) {
  form.txtName.onChange = [&] {
    form.log.push_back("txtName.Change:" + Narrow(form.txtName.Text()));
    form.txtName.SetText(vd::automation::UCase(form.txtName.Text()));
  };
  script.Then("type", [&] { PostChars(Win(form.txtName), u"a"); })
      .WaitFor("the text", [&] { return form.Count("txtName.KeyPress:97") == 1; })
      .Then("check", [&] {
        EXPECT_EQ(form.Events({"txtName.Change"}), (Log{"txtName.Change:a", "txtName.Change:A"}));
        EXPECT_EQ(WindowText(Win(form.txtName)), u"A");
      });
  script.Run();
}

TEST_F(DialogTest, ClicksOnALabelRaiseItsClickAndDblClick) {
  form.lblName.onClick = [&] { form.log.push_back("lblName.Click"); };
  form.lblName.onDblClick = [&] { form.log.push_back("lblName.DblClick"); };
  script.Then("click",
              [&] {
                PostMouseClick(Win(form.lblName), {5, 5});
              })
      .Then("check the click", [&] { EXPECT_EQ(form.Events({"lblName.Click"}), Log{"lblName.Click"}); })
      .Then("double click",
            [&] {
              PostMouseDoubleClick(Win(form.lblName), {5, 5});
            })
      .Then("check", [&] {
        // The double click's first press is a click; its second, click then DblClick.
        EXPECT_EQ(form.Events({"lblName.Click", "lblName.DblClick"}),
                  (Log{"lblName.Click", "lblName.Click", "lblName.Click", "lblName.DblClick"}));
        EXPECT_EQ(form.ActiveControl(), &form.txtName) << "a label takes no focus";
      });
  script.Run();
}

TEST_F(DialogTest, CloseBoxCancelledInUnloadKeepsTheDialog) {
  form.cancelUnload = true;
  script.Then("close", [&] { PostMessageW(script.Dialog(), WM_SYSCOMMAND, SC_CLOSE, 0); }).Then("check", [&] {
    EXPECT_EQ(form.Count("Form.Unload"), 1u);
    EXPECT_TRUE(IsWindowVisible(script.Dialog()));
    EXPECT_TRUE(form.Visible());
  });
  script.Run();
}

}  // namespace
}  // namespace vd::win32::views::testing
