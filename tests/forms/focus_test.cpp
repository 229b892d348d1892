#include <gtest/gtest.h>

#include "event_log_form.h"
#include "vd/automation/error.h"

namespace vd::forms::test {
namespace {

using Logs = std::vector<std::string>;

Control& Named(EventLogForm& form, const char16_t* name) { return *form.FindControl(name); }

TEST(Focus, MovingFiresLostFocusOnTheOldControlThenGotFocusOnTheNew) {
  const struct {
    const char16_t* first;
    const char16_t* second;
    Logs events;
  } cases[] = {
      {u"txtName", u"txtValue", {"txtName.LostFocus", "txtValue.GotFocus"}},
      {u"txtValue", u"cboEdit", {"txtValue.LostFocus", "cboEdit.GotFocus"}},
      {u"treItems", u"chkAll", {"treItems.LostFocus", "chkAll.GotFocus"}},
      {u"txtInFrame", u"txtName", {"txtInFrame.LostFocus", "txtName.GotFocus"}},
      {u"txtName", u"txtName", {}},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    Named(form, c.first).SetFocus();
    form.log.clear();
    Named(form, c.second).SetFocus();
    EXPECT_EQ(form.log, c.events) << vd::automation::ToUtf8(c.second);
    EXPECT_EQ(form.ActiveControl(), &Named(form, c.second));
  }
}

TEST(Focus, AControlThatCannotTakeItRaisesInvalidProcedureCall) {
  const struct {
    const char* name;
    std::function<void(EventLogForm&)> prepare;
    const char16_t* target;
  } cases[] = {
      {"Disabled", [](EventLogForm& f) { f.txtName.SetEnabled(false); }, u"txtName"},
      {"Hidden", [](EventLogForm& f) { f.txtName.SetVisible(false); }, u"txtName"},
      {"InHiddenFrame", [](EventLogForm& f) { f.fraRight.SetVisible(false); }, u"txtInFrame"},
      {"InDisabledFrame", [](EventLogForm& f) { f.fraRight.SetEnabled(false); }, u"txtInFrame"},
      {"OnDisabledForm", [](EventLogForm& f) { f.SetEnabled(false); }, u"txtName"},
      {"Label", [](EventLogForm&) {}, u"lblName"},
      {"Frame", [](EventLogForm&) {}, u"fraLeft"},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    form.cmdOK.SetFocus();
    c.prepare(form);
    form.log.clear();
    try {
      Named(form, c.target).SetFocus();
      ADD_FAILURE() << c.name << ": focus taken";
    } catch (const vd::automation::AutomationError& e) {
      EXPECT_EQ(e.Number(), vd::automation::err::kInvalidProcedureCall) << c.name;
    }
    EXPECT_EQ(form.ActiveControl(), &form.cmdOK) << c.name;
    EXPECT_TRUE(form.log.empty()) << c.name;
  }
}

TEST(Focus, ALostFocusHandlerThatTakesTheFocusBackCancelsTheGotFocus) {
  EventLogForm form;
  form.txtValue.SetFocus();
  form.txtValue.onLostFocus = [&] {
    form.log.push_back("txtValue.LostFocus");
    form.txtValue.SetFocus();
  };
  form.log.clear();
  form.txtName.SetFocus();
  EXPECT_EQ(form.ActiveControl(), &form.txtValue);
  EXPECT_EQ(form.log, (Logs{"txtValue.LostFocus", "txtValue.GotFocus"}));
}

TEST(Focus, AClickOnAButtonTakesTheFocusBeforeClick) {
  EventLogForm form;
  form.txtValue.SetFocus();
  form.log.clear();
  ASSERT_TRUE(form.cmdOK.UserClick());
  EXPECT_EQ(form.log, (Logs{"txtValue.LostFocus", "cmdOK.GotFocus", "cmdOK.Click"}));
}

TEST(Focus, TheUserCannotActOnHiddenOrDisabledControls) {
  const struct {
    const char* name;
    std::function<void(EventLogForm&)> prepare;
  } cases[] = {
      {"ButtonDisabled", [](EventLogForm& f) { f.cmdOK.SetEnabled(false); }},
      {"ButtonHidden", [](EventLogForm& f) { f.cmdOK.SetVisible(false); }},
      {"FormDisabled", [](EventLogForm& f) { f.SetEnabled(false); }},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    c.prepare(form);
    EXPECT_FALSE(form.cmdOK.UserClick()) << c.name;
    EXPECT_FALSE(form.cmdOK.UserFocus()) << c.name;
    EXPECT_TRUE(form.log.empty()) << c.name;
  }
}

}  // namespace
}  // namespace vd::forms::test
