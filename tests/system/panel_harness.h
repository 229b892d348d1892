#pragma once
// A display with a data source of every kind for the panel tests, and a
// recorder of what the panels set, in order, with the filling flag of the moment.
#include <string>
#include <vector>

#include "browser_harness.h"
#include "vd/forms/observer.h"

namespace vd::system_test {

// Keys: _Plant1 (1:1..1:4), _Limits2 (2:1, 2:2), _C:\data\in.dat3 (3:1),
// _bin.dat4 (4:1), _Alarms5 (5:1, 5:2), _Scada6 (6:1..6:4).
inline constexpr std::string_view kPanelsJson = R"({ "dataSources": [
  { "name": "Plant", "kind": "memory", "variables": [
      { "name": "Level", "type": "Double", "scope": "public" },
      { "name": "Flow", "type": "Float", "rows": 3, "cols": 5 },
      { "name": "Label", "type": "Text", "cols": 40 },
      { "name": "Count", "type": "Long", "cols": 4, "useCount": 2 } ] },
  { "name": "Limits", "kind": "constant", "variables": [
      { "name": "High", "type": "Double", "value": 1.5, "scope": "public" },
      { "name": "Low", "type": "Float", "value": -0.25 } ] },
  { "name": "C:\\data\\in.dat", "kind": "file", "variables": [ { "name": "T", "type": "Long" } ] },
  { "name": "bin.dat", "kind": "file", "ascii": false, "variables": [ { "name": "B", "type": "Long" } ] },
  { "name": "Alarms", "kind": "custom", "className": "Acme.Alarms", "variables": [
      { "name": "A1", "type": "Double", "rows": 3, "cols": 4 }, { "name": "A2", "type": "Text", "cols": 40 } ] },
  { "name": "Scada", "kind": "custom", "className": "TelvaneDV.DataSource", "variables": [
      { "name": "Free", "type": "Double", "rows": 2, "cols": 3, "params": [ { "type": "text", "value": "" },
          { "type": "text", "value": "" }, { "type": "number", "value": 2 } ] },
      { "name": "Colour", "type": "Double", "rows": 2, "cols": 3, "params": [ { "type": "text", "value": "" },
          { "type": "text", "value": "" }, { "type": "number", "value": 33 } ] },
      { "name": "Swapped", "type": "Double", "cols": 3, "params": [ { "type": "text", "value": "" },
          { "type": "text", "value": "" }, { "type": "number", "value": 18 } ] },
      { "name": "Short", "type": "Double", "cols": 3, "params": [ { "type": "text", "value": "" } ] } ] } ] })";

struct PanelHarness : BrowserHarness {
  std::shared_ptr<sample::MemoryDisplay> panels = DisplayFromJson(kPanelsJson);

  std::shared_ptr<sample::MemoryDs> Ds(int32_t ds) const { return panels->DataSources()->Item(ds); }
  std::shared_ptr<sample::MemoryDsv> Var(int32_t ds, int32_t dsv) const { return Ds(ds)->Variables()->Item(dsv); }
};

// The texts, values and list selections the panels set, each as the control's
// name, followed by " filling" when the filling flag was up as it changed.
// An option button is noted only when it becomes the selected one.
class PanelRecorder : public forms::PropertyObserver {
 public:
  explicit PanelRecorder(BrowserHarness& h) : h_(h) { h_.dlg.AddObserver(*this); }
  ~PanelRecorder() override { h_.dlg.RemoveObserver(*this); }
  PanelRecorder(const PanelRecorder&) = delete;
  PanelRecorder& operator=(const PanelRecorder&) = delete;

  void PropertyChanged(const forms::Change& change) override {
    const forms::Control* control = change.control;
    if (control == nullptr) return;
    const forms::ControlKind kind = control->Kind();
    const bool noted =
        (change.property == forms::Property::kText && kind == forms::ControlKind::kTextBox) ||
        change.property == forms::Property::kListIndex ||
        (change.property == forms::Property::kValue &&
         (kind != forms::ControlKind::kOptionButton || static_cast<const forms::OptionButton*>(control)->Value()));
    if (noted) log.push_back(ToUtf8(control->Name()) + (h_.inside.PanelFilling() ? " filling" : ""));
  }

  std::vector<std::string> log;

 private:
  BrowserHarness& h_;
};

}  // namespace vd::system_test
