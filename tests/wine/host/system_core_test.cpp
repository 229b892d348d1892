// The component's own core behind the COM class: the system's VarDeskUI and
// its data browser form, driven through _VarDeskUI as a host drives it, with a
// scripted user in place of the dialog's windows. The display is a stranger's
// IDispatch, so every call reaches it by name as it would from another module.
#include <windows.h>

#include <olectl.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "VarDeskGUI.h"
#include "browser/frm_data_browser.h"
#include "com/bstr.h"
#include "component/system_ui_core.h"
#include "dispatch/adapt.h"
#include "expose/toolkit_exposers.h"
#include "forwarding_dispatch.h"
#include "platform/services.h"
#include "platform/std_file_service.h"
#include "recording_sink.h"
#include "server/var_desk_ui_object.h"
#include "vd/forms/testing/scripted_ui_services.h"
#include "vd/forms/testing/test_driver.h"
#include "vd/sample/sample_file.h"
#include "win32/services/windows_registry.h"

namespace vd::testhost {
namespace {

using win32::ComPtr;

constexpr char kDisplay[] = R"({ "dataSources": [
  { "name": "Levels", "kind": "memory", "variables": [
      { "name": "LT101", "type": "Double" },
      { "name": "Operator", "type": "Text", "cols": 20 } ] },
  { "name": "Flows", "kind": "memory", "variables": [
      { "name": "FT201", "type": "Float" },
      { "name": "FT202", "type": "Long" } ] },
  { "name": "Lab", "kind": "custom", "className": "Riverside.LabSampler", "variables": [
      { "name": "Turbidity", "type": "Double", "access": 1 },
      { "name": "Dose", "type": "Double" } ] } ] })";

// The services of a headless run: the scripted UI answers, the registry and
// the files are the machine's own.
struct HeadlessPlatform {
  forms::testing::ScriptedUiServices ui;
  win32::services::WindowsRegistry registry;
  platform::StdFileService files;
  platform::Services services{.ui = ui, .registry = registry, .files = files};
};

struct SystemFixture {
  HeadlessPlatform platform;
  win32::SystemUiCore* core = nullptr;
  ComPtr<_VarDeskUI> ui;
  sample::SampleDisplay sample = sample::LoadDisplayText(kDisplay, "core-test.json", ".");
  ComPtr<IDispatch> display;

  SystemFixture() {
    auto owned = std::make_unique<win32::SystemUiCore>(platform.services);
    core = owned.get();
    ui = win32::VarDeskUIObject::CreateWithCore(std::move(owned));
    display = Forward(win32::ExposeObject(sample.display).Get(), NameLookup::kGetIDsOfNames, GUID_NULL,
                      std::make_shared<LookupCounts>());
  }
  browser::frmDataBrowser& Form() const { return *core->System().DataBrowser(); }
  // The variable's name as the host reads it; "" for Nothing.
  static automation::String NameOf(IDispatch* variable) {
    if (!variable) return u"";
    return win32::AdaptAs<toolkit::Dsv>(variable)->GetDsvName();
  }
};

struct PickCase {
  int32_t context;
  const char16_t* caption;
  const char16_t* key;
  const char16_t* picked;
};

TEST(SystemCoreTest, OkReturnsTheVariablePickedInTheTree) {
  const PickCase cases[] = {
      {1, u"Data Selection for Dynamics", u"2:1", u"FT201"},
      {0, u"Data Selection for Graphs", u"1:1", u"LT101"},
      {5, u"Data Selection for Writable Vars", u"3:2", u"Dose"},
      {7, u"Data Selection", u"2:2", u"FT202"},
  };
  for (const PickCase& c : cases) {
    SCOPED_TRACE(std::to_string(c.context));
    SystemFixture f;
    forms::testing::TestDriver user;
    browser::frmDataBrowser& form = f.Form();
    user.Check([&] { EXPECT_EQ(form.Caption(), c.caption); })
        .SelectNode(form.treDataSources, c.key)
        .Check([&] { EXPECT_TRUE(form.dbOK.Enabled()); })
        .Click(form.dbOK);
    ComPtr<IDispatch> selected;
    ASSERT_EQ(f.ui->SelectDataVar(f.display.Get(), c.context, 501, 0, 0, selected.Put()), S_OK);
    EXPECT_EQ(SystemFixture::NameOf(selected.Get()), c.picked);
    EXPECT_FALSE(form.Visible()) << "OK hides the dialog";
  }
}

// The form raises its events while the dialog is shown; here they are raised
// as its custom-object buttons raise them.
TEST(SystemCoreTest, TheFormsEventsReachTheSinksAndTheirReplacementComesBack) {
  SystemFixture f;
  auto container = f.ui.As<IConnectionPointContainer>();
  ComPtr<IConnectionPoint> point;
  ASSERT_EQ(container->FindConnectionPoint(DIID___VarDeskUI, point.Put()), S_OK);
  RecordingSink sink;
  auto flows = f.sample.display->DataSources()->Item(2);
  sink.replacement = win32::ExposeObject(flows);
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);

  automation::ObjectRef ds = f.sample.display->DataSources()->Item(1);
  f.Form().EditCustomDs(ds);
  EXPECT_EQ(ds.get(), flows.get()) << "the data source the host put in its place";

  automation::ObjectRef dsv = f.sample.display->DataSources()->Item(1)->Variables()->Item(1);
  sink.replacement = nullptr;
  const automation::Object* before = dsv.get();
  f.Form().EditCustomDsv(dsv);
  EXPECT_EQ(dsv.get(), before) << "a sink that replaces nothing leaves the object";

  const std::vector<DISPID> expected{win32::kEditCustomDsEvent, win32::kEditCustomDsvEvent};
  EXPECT_EQ(sink.events, expected);
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

}  // namespace
}  // namespace vd::testhost
