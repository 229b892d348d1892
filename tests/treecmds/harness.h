#pragma once
// The data browser as a host holds it over a display described as JSON, a
// scripted user and scripted UI services; a look at the state no control shows.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

#include "browser/frm_data_browser.h"
#include "browser/frm_find_dialog.h"
#include "host/var_desk_ui.h"
#include "platform/services.h"
#include "platform/testing/fake_registry.h"
#include "platform/testing/memory_file_service.h"
#include "vd/automation/error.h"
#include "vd/forms/testing/scripted_ui_services.h"
#include "vd/forms/testing/test_driver.h"
#include "vd/sample/sample_file.h"

namespace vd::browser {

struct DataBrowserInspector {
  frmDataBrowser& form;
  [[nodiscard]] std::vector<bool> DsSortFlags() const {
    std::vector<bool> flags;
    for (int32_t i = 1; i <= form.DsSortFlags.Count(); ++i) flags.push_back(form.DsSortFlags.Item(i));
    return flags;
  }
  void ClearModified() const { form.modified = false; }
  void SetPanelFilling(bool filling) const { form.PanelFilling = filling; }
  [[nodiscard]] frmFindDialog& FindDialog() const { return form.FindDialog(); }
};

}  // namespace vd::browser

namespace vd::feature_test {

using automation::String;
using automation::ToUtf8;

// The Automation error number the action raised, 0 for none.
inline int32_t ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const automation::AutomationError& e) {
    return e.Number();
  }
  return 0;
}

inline sample::SampleDisplay FromJson(std::string_view json) {
  return sample::LoadDisplayText(json, "test.json", std::filesystem::current_path());
}

struct Harness {
  forms::testing::ScriptedUiServices ui;
  platform::testing::FakeRegistry registry;
  platform::testing::MemoryFileService files;
  platform::Services services{ui, registry, files};
  forms::testing::TestDriver user;
  host::VarDeskUI desk{services};
  browser::frmDataBrowser& dlg = *desk.DataBrowser();
  browser::DataBrowserInspector inside{dlg};
  sample::SampleDisplay sample;

  // An editing run over the display, with its SCADA system when it has one.
  explicit Harness(std::string_view json) : sample(FromJson(json)) {
    dlg.SetCommunication(sample.scada);
    dlg.InitDBForEdit(sample.display);
  }
  [[nodiscard]] bool Click(const String& key) const {
    return dlg.treDataSources.UserSelectNode(dlg.treDataSources.Nodes().Item(key));
  }
  void Look(const String& key) const { ASSERT_TRUE(Click(key)) << ToUtf8(key); }
  [[nodiscard]] String SelectedText() const {
    const forms::NodeRef node = dlg.treDataSources.SelectedItem();
    return node ? node->Text() : String(u"(none)");
  }
  // The names of data source ds's variables (ds 0: of the data sources), as the display holds them.
  [[nodiscard]] std::vector<String> Names(int32_t ds) const {
    std::vector<String> names;
    const toolkit::DsListRef list = sample.display->GetDataSources();
    for (int32_t i = 1; ds == 0 && i <= list->DsCount(); ++i) names.push_back(list->DsItem(i)->GetDsName());
    if (ds == 0) return names;
    const toolkit::DsvListRef vars = list->DsItem(ds)->GetDsVars();
    for (int32_t i = 1; i <= vars->DsvCount(); ++i) names.push_back(vars->DsvItem(i)->GetDsvName());
    return names;
  }
};

// Keys: _Plant1 (1:1 Level, 1:2 Flow, 1:3 Label), _Empty2, _Tank3 (3:1 Limit,
// in use), _Spare4 (4:1 Only).
inline constexpr std::string_view kPlantJson = R"({ "dataSources": [
  { "name": "Plant", "kind": "memory", "variables": [ { "name": "Level", "type": "Double" },
      { "name": "Flow", "type": "Float" }, { "name": "Label", "type": "Text", "cols": 40 } ] },
  { "name": "Empty", "kind": "memory" },
  { "name": "Tank", "kind": "constant", "variables": [ { "name": "Limit", "type": "Float", "useCount": 1 } ] },
  { "name": "Spare", "kind": "memory", "variables": [ { "name": "Only", "type": "Long" } ] } ] })";

}  // namespace vd::feature_test
