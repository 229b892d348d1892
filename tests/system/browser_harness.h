#pragma once
// One component as a host holds it, a scripted user and scripted UI services,
// and sample displays described as JSON.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

#include "browser/frm_data_browser.h"
#include "data_browser_inspector.h"
#include "host/var_desk_ui.h"
#include "platform/services.h"
#include "platform/testing/fake_registry.h"
#include "platform/testing/memory_file_service.h"
#include "vd/automation/error.h"
#include "vd/forms/testing/scripted_ui_services.h"
#include "vd/forms/testing/test_driver.h"
#include "vd/sample/sample_file.h"

namespace vd::system_test {

using automation::String;
using automation::ToUtf8;
using namespace browser::dialog_mode;  // NOLINT(google-build-using-namespace)

inline std::shared_ptr<sample::MemoryDisplay> DisplayFromJson(std::string_view json) {
  return sample::LoadDisplayText(json, "test.json", std::filesystem::current_path()).display;
}

// Three data sources: two named alike, one without variables.
inline constexpr std::string_view kPlantJson = R"({ "dataSources": [
  { "name": "Plant", "kind": "memory", "variables": [
      { "name": "Level", "type": "Double" },
      { "name": "Flow", "type": "Float", "cols": 3 },
      { "name": "Label", "type": "Text", "cols": 40 } ] },
  { "name": "Empty", "kind": "memory" },
  { "name": "Plant", "kind": "constant", "variables": [ { "name": "Limit", "type": "Float" } ] } ] })";

inline toolkit::DsvRef Variable(const std::shared_ptr<sample::MemoryDisplay>& display, int32_t ds, int32_t dsv) {
  return display->DataSources()->Item(ds)->Variables()->Item(dsv);
}

// The Automation error number the action raised, 0 for none.
inline int32_t ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const automation::AutomationError& e) {
    return e.Number();
  }
  return 0;
}

struct BrowserHarness {
  forms::testing::ScriptedUiServices ui;
  platform::testing::FakeRegistry registry;
  platform::testing::MemoryFileService files;
  platform::Services services{ui, registry, files};
  forms::testing::TestDriver user;
  host::VarDeskUI desk{services};
  browser::frmDataBrowser& dlg = *desk.DataBrowser();
  browser::DataBrowserInspector inside{dlg};
  std::shared_ptr<sample::MemoryDisplay> plant = DisplayFromJson(kPlantJson);

  forms::NodeRef Node(const String& key) const { return dlg.treDataSources.Nodes().Item(key); }
  String Selected() const { return dlg.treDataSources.SelectedItem()->Key(); }
  bool Click(const String& key) const { return dlg.treDataSources.UserSelectNode(Node(key)); }
};

}  // namespace vd::system_test
