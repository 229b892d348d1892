// An error raised by a handler while the dialog reports the user's input is
// shown in a message box titled with the form's caption; the dialog stays.
#include <stdexcept>
#include <string>

#include "dialog_test.h"
#include "vd/automation/error.h"
#include "views/wide_text.h"

namespace vd::win32::views::testing {
namespace {

struct ErrorCase {
  std::string name;
  std::function<void()> raise;
  std::string text;  // the message box's text
};

class HandlerErrorTest : public DialogTest, public ::testing::WithParamInterface<ErrorCase> {};

TEST_P(HandlerErrorTest, IsShownAndTheDialogStays) {
  const HICON exclamation = LoadIconW(nullptr, IDI_EXCLAMATION);
  HWND box = nullptr;
  form.applyAction = GetParam().raise;
  script.Then("click", [&] { PostClick(Win(form.cmdApply)); })
      .WaitFor("the message box", [&] { return (box = FindOwnedDialog(script.Dialog())) != nullptr; })
      .Then("check it and press OK",
            [&] {
              EXPECT_EQ(Narrow(WindowText(box)), "Sample Browser");
              EXPECT_EQ(Narrow(MessageBoxText(box)), GetParam().text);
              EXPECT_EQ(MessageBoxIcon(box), exclamation);
              EXPECT_FALSE(IsWindowEnabled(script.Dialog())) << "the box is modal to the dialog";
              PostMessageW(box, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
            })
      .WaitFor("the box to go", [&] { return !IsWindow(box); })
      .Then("click again",
            [&] {
              EXPECT_TRUE(IsWindowVisible(script.Dialog()));
              EXPECT_TRUE(IsWindowEnabled(script.Dialog()));
              form.applyAction = nullptr;
              PostClick(Win(form.cmdApply));
            })
      .Then("check", [&] { EXPECT_EQ(form.Count("cmdApply.Click"), 2u); });
  script.Run();
}

const ErrorCase kErrors[] = {
    {"AutomationError", [] { vd::automation::Raise(vd::automation::err::kTreeKeyNotUnique); },
     "Run-time error '35602':\r\n\r\nKey is not unique in collection"},
    {"OwnDescription", [] { vd::automation::Raise(5, u"Invalid  name"); }, "Run-time error '5':\r\n\r\nInvalid  name"},
    {"StandardException", [] { throw std::runtime_error("disk full"); }, "Run-time error '440':\r\n\r\ndisk full"},
};

INSTANTIATE_TEST_SUITE_P(Errors, HandlerErrorTest, ::testing::ValuesIn(kErrors),
                         [](const ::testing::TestParamInfo<ErrorCase>& param) { return param.param.name; });

TEST_F(DialogTest, ErrorInAKeyDownHandlerIsShownToo) {
  form.keyDownAction = [] { vd::automation::Raise(vd::automation::err::kTypeMismatch); };
  HWND box = nullptr;
  script.Then("press F3", [&] { PostKey(Win(form.txtName), VK_F3); })
      .WaitFor("the message box", [&] { return (box = FindOwnedDialog(script.Dialog())) != nullptr; })
      .Then("check and close",
            [&] {
              EXPECT_EQ(Narrow(MessageBoxText(box)), "Run-time error '13':\r\n\r\nType mismatch");
              PostMessageW(box, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
            })
      .WaitFor("the box to go", [&] { return !IsWindow(box); })
      .Then("check", [&] { EXPECT_TRUE(form.Visible()); });
  script.Run();
}

TEST_F(DialogTest, ErrorInANodeClickHandlerGoesToTheReporter) {
  std::vector<std::string> reports;
  host.SetErrorReporter([&](HWND owner, StringView title, const ReportedError& error) {
    EXPECT_EQ(owner, script.Dialog());
    reports.push_back(Narrow(String(title)) + "|" + std::to_string(error.number) + "|" + Narrow(error.description));
  });
  form.nodeClickAction = [] { vd::automation::Raise(vd::automation::err::kObjectNotSet); };
  script.Then("click", [&] { PostMouseClick(Tree(), NodePoint(SampleForm::DsKey(1))); }).Then("check", [&] {
    EXPECT_EQ(reports, std::vector<std::string>{"Sample Browser|91|Object variable or With block variable not set"});
    EXPECT_EQ(form.treItems.SelectedItem()->Key(), SampleForm::DsKey(1));
  });
  script.Run();
}

}  // namespace
}  // namespace vd::win32::views::testing
