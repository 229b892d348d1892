#pragma once
// The data browser over a small display, a scripted user and scripted UI
// services, for the tree commands and the find dialog; a look at the state
// that no control shows.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string_view>
#include <utility>
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
  [[nodiscard]] int16_t DsNodeCount() const { return form.dsNodeCount; }
  void ClearModified() const { form.modified = false; }
  void SetPanelFilling(bool filling) const { form.PanelFilling = filling; }
  void SetDialogMode(int32_t mode) const { form.SetDialogMode(mode); }
  // The find dialog, created on first use.
  [[nodiscard]] frmFindDialog& FindDialog() const { return form.FindDialog(); }
  [[nodiscard]] bool FindDialogCreated() const { return form.findDialog != nullptr; }
  static bool NodeMatches(const forms::NodeRef& node, const String& text, bool matchCase, bool wholeWord) {
    return frmDataBrowser::NodeMatches(node, text, matchCase, wholeWord);
  }
};

}  // namespace vd::browser

namespace vd::treecmds_test {

using automation::String;
using automation::ToUtf8;

inline std::shared_ptr<sample::MemoryDisplay> DisplayFromJson(std::string_view json) {
  return sample::LoadDisplayText(json, "test.json", std::filesystem::current_path()).display;
}

// Keys: _Plant1 (1:1 Level, 1:2 Flow, 1:3 Label), _Empty2, _Tank3 (3:1 Limit, in use).
inline constexpr std::string_view kPlantJson = R"({ "dataSources": [
  { "name": "Plant", "kind": "memory", "variables": [
      { "name": "Level", "type": "Double" }, { "name": "Flow", "type": "Float" },
      { "name": "Label", "type": "Text", "cols": 40 } ] },
  { "name": "Empty", "kind": "memory" },
  { "name": "Tank", "kind": "constant", "variables": [ { "name": "Limit", "type": "Float", "useCount": 1 } ] } ] })";

struct Harness {
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
  [[nodiscard]] String SelectedText() const {
    const forms::NodeRef node = dlg.treDataSources.SelectedItem();
    return node ? node->Text() : String(u"(none)");
  }
  // The names of data source ds in the display, in order.
  [[nodiscard]] std::vector<String> VarNames(int32_t ds) const {
    std::vector<String> names;
    const auto vars = plant->DataSources()->Item(ds)->Variables();
    for (int32_t i = 1; i <= vars->DsvCount(); ++i) names.push_back(vars->Item(i)->GetDsvName());
    return names;
  }
  [[nodiscard]] std::vector<String> DsNames() const {
    std::vector<String> names;
    for (int32_t i = 1; i <= plant->DataSources()->DsCount(); ++i)
      names.push_back(plant->DataSources()->Item(i)->GetDsName());
    return names;
  }
  // The texts of the tree's nodes in index order.
  [[nodiscard]] std::vector<String> NodeTexts() const {
    std::vector<String> texts;
    const forms::Nodes& nodes = dlg.treDataSources.Nodes();
    for (int32_t i = 1; i <= nodes.Count(); ++i) texts.push_back(nodes.Item(i)->Text());
    return texts;
  }
};

}  // namespace vd::treecmds_test
