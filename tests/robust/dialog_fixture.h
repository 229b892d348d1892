#pragma once
// The component as a host holds it over an in-memory display, with UI
// services (scripted unless a test needs its own) and a scripted user.
#include "browser/frm_data_browser.h"
#include "host/var_desk_ui.h"
#include "platform/services.h"
#include "platform/testing/fake_registry.h"
#include "platform/testing/memory_file_service.h"
#include "vd/forms/testing/scripted_ui_services.h"
#include "vd/forms/testing/test_driver.h"
#include "vd/sample/memory_toolkit.h"

namespace vd::robust_test {

template <class Ui = forms::testing::ScriptedUiServices>
struct DialogFixture {
  Ui ui;
  platform::testing::FakeRegistry registry;
  platform::testing::MemoryFileService files;
  platform::Services services{ui, registry, files};
  forms::testing::TestDriver user;
  host::VarDeskUI desk{services};
  browser::frmDataBrowser& dlg = *desk.DataBrowser();
};

}  // namespace vd::robust_test
