#pragma once
// The data browser over a small display, a scripted user and scripted UI
// services; a look at the state that no control shows.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

#include "browser/frm_data_browser.h"
#include "browser/frm_find_dialog.h"
#include "host/var_desk_ui.h"
#include "platform/services.h"
#include "platform/testing/fake_registry.h"
#include "platform/testing/memory_file_service.h"
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
  [[nodiscard]] bool FindDialogCreated() const { return form.findDialog != nullptr; }
};

}  // namespace vd::browser

namespace vd::treecmds_test {

using automation::String;
using automation::ToUtf8;

// Keys: _Plant1 (1:1 Level, 1:2 Flow, 1:3 Label), _Empty2, _Tank3 (3:1 Limit,
// in use), _Spare4 (4:1 Only).
inline constexpr std::string_view kPlantJson = R"({ "dataSources": [
  { "name": "Plant", "kind": "memory", "variables": [ { "name": "Level", "type": "Double" },
      { "name": "Flow", "type": "Float" }, { "name": "Label", "type": "Text", "cols": 40 } ] },
  { "name": "Empty", "kind": "memory" },
  { "name": "Tank", "kind": "constant", "variables": [ { "name": "Limit", "type": "Float", "useCount": 1 } ] },
  { "name": "Spare", "kind": "memory", "variables": [ { "name": "Only", "type": "Long" } ] } ] })";

inline toolkit::DisplayRef DisplayFromJson(std::string_view json) {
  return sample::LoadDisplayText(json, "test.json", std::filesystem::current_path()).display;
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
  toolkit::DisplayRef display;

  // An editing run over the display.
  explicit Harness(std::string_view json = kPlantJson) : display(DisplayFromJson(json)) { dlg.InitDBForEdit(display); }

  [[nodiscard]] String SelectedText() const {
    const forms::NodeRef node = dlg.treDataSources.SelectedItem();
    return node ? node->Text() : String(u"(none)");
  }
  // The names of data source ds's variables (ds 0: of the data sources), as the display holds them.
  [[nodiscard]] std::vector<String> Names(int32_t ds) const {
    std::vector<String> names;
    const toolkit::DsListRef list = display->GetDataSources();
    if (ds == 0) {
      for (int32_t i = 1; i <= list->DsCount(); ++i) names.push_back(list->DsItem(i)->GetDsName());
      return names;
    }
    const toolkit::DsvListRef vars = list->DsItem(ds)->GetDsVars();
    for (int32_t i = 1; i <= vars->DsvCount(); ++i) names.push_back(vars->DsvItem(i)->GetDsvName());
    return names;
  }
  // The texts under a tree node, in the order shown.
  [[nodiscard]] std::vector<String> Shown(const String& key) const {
    std::vector<String> texts;
    for (forms::NodeRef n = dlg.treDataSources.Nodes().Item(key)->Child(); n; n = n->Next()) texts.push_back(n->Text());
    return texts;
  }
};

}  // namespace vd::treecmds_test
