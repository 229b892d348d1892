#include <gtest/gtest.h>

#include "event_log_form.h"
#include "vd/automation/error.h"
#include "vd/forms/testing/test_driver.h"

namespace vd::forms::test {
namespace {

using Logs = std::vector<std::string>;
using testing::TestDriver;

class LifeCycleForm : public EventLogForm {
 public:
  LifeCycleForm() {
    onInitialize = [this] { log.push_back("Initialize"); };
    onLoad = [this] { log.push_back("Load"); };
    onUnload = [this](bool& cancel) {
      log.push_back("Unload");
      cancel = cancelUnload;
    };
    cmdOK.onClick = [this] { Hide(); };
  }
  bool cancelUnload = false;
};

TEST(FormLifeCycle, InitializeOnceLoadOnEachLoading) {
  const struct {
    const char* name;
    std::function<void(LifeCycleForm&)> run;
    Logs events;
    bool loaded;
  } cases[] = {{"LoadTwice",
                [](LifeCycleForm& f) {
                  f.Load();
                  f.Load();
                },
                {"Initialize", "Load"},
                true},
               {"UnloadThenLoad",
                [](LifeCycleForm& f) {
                  f.Load();
                  f.Unload();
                  f.Load();
                },
                {"Initialize", "Load", "Unload", "Load"},
                true},
               {"UnloadCancelled",
                [](LifeCycleForm& f) {
                  f.cancelUnload = true;
                  f.Show();
                  f.Unload();
                },
                {"Initialize", "Load", "Unload"},
                true},
               {"UnloadOfUnloadedForm", [](LifeCycleForm& f) { f.Unload(); }, {}, false}};
  for (const auto& c : cases) {
    LifeCycleForm form;
    c.run(form);
    EXPECT_EQ(form.log, c.events) << c.name;
    EXPECT_EQ(form.Loaded(), c.loaded) << c.name;
  }
}

TEST(FormLifeCycle, UnloadHidesAndDropsTheFocus) {
  LifeCycleForm form;
  form.Show();
  form.txtName.SetFocus();
  form.Unload();
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(form.ActiveControl(), nullptr);
  EXPECT_EQ(form.txtName.Text(), u"");
}

TEST(ModalShow, EndsWhenTheFormIsUnloaded) {
  LifeCycleForm form;
  TestDriver user;
  user.Close(form);
  form.Show(true);
  EXPECT_FALSE(form.Loaded());
  EXPECT_EQ(form.log, (Logs{"Initialize", "Load", "Unload"}));
}

TEST(ModalShow, IsRefusedForAShownFormAndWithoutAHost) {
  LifeCycleForm form;
  EXPECT_EQ(ErrorOf([&] { form.Show(true); }), vd::automation::err::kInvalidProcedureCall);
  EXPECT_FALSE(form.Visible());
  TestDriver user;
  form.Show();
  EXPECT_EQ(ErrorOf([&] { form.Show(true); }), err::kFormAlreadyShownModally);
}

TEST(ModalShow, ADialogShownFromAHandlerTakesTheNextSteps) {
  LifeCycleForm outer;
  LifeCycleForm inner;
  outer.cmdOK.onClick = [&] {
    inner.Show(true, &outer);
    outer.log.push_back("inner returned, text " + vd::automation::ToUtf8(inner.txtName.Text()));
  };
  inner.cmdOK.onClick = [&] { inner.Hide(); };
  TestDriver user;
  user.Click(outer.cmdOK)
      .Type(inner.txtName, u"Level")
      .Check([&] { EXPECT_EQ(inner.Owner(), &outer); })
      .Click(inner.cmdOK)
      .Close(outer);
  outer.Show(true);
  EXPECT_FALSE(outer.Visible());
  EXPECT_EQ(inner.Owner(), nullptr);
  EXPECT_NE(std::find(outer.log.begin(), outer.log.end(), "inner returned, text Level"), outer.log.end());
}

}  // namespace
}  // namespace vd::forms::test

namespace vd::forms::test {
namespace {

TEST(RunTimeControls, LeaveTheFormAndTheFocusWhenDestroyed) {
  EventLogForm form;
  const size_t designed = form.AllControls().size();
  auto extra = std::make_unique<TextBox>(form.fraRight, u"txtExtra");
  EXPECT_EQ(form.AllControls().size(), designed + 1);
  EXPECT_EQ(form.FindControl(u"txtExtra"), extra.get());
  extra->SetFocus();
  extra.reset();
  EXPECT_EQ(form.ActiveControl(), nullptr);
  EXPECT_EQ(form.FindControl(u"txtExtra"), nullptr);
  EXPECT_EQ(form.fraRight.Controls().size(), 3u);
  form.txtName.SetFocus();
  EXPECT_EQ(form.log.back(), "txtName.GotFocus");
}

}  // namespace
}  // namespace vd::forms::test
