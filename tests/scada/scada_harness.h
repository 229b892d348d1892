#pragma once
// A display with one SCADA data source, mapped variables of every signal
// type and a simulated SCADA system handed to the dialog; for the script
// files, a fake editor process and an in-memory disk.
#include <string_view>

#include "harness.h"
#include "platform/testing/fake_process_service.h"
#include "platform/testing/memory_file_system.h"
#include "scada/sa_data_sources.h"
#include "vd/automation/conversions.h"

namespace vd::feature_test {

// Keys: _Mem1 (1:1), _Telvane2 with 2:1 P101 state indication, 2:2 status
// colour, 2:3 generic signal, 2:4 unmapped, 2:5 kind B, 2:6 signal type 5.
inline constexpr std::string_view kScadaJson = R"({ "dataSources": [
  { "name": "Mem", "kind": "memory", "variables": [ { "name": "M", "type": "Double" } ] },
  { "name": "Telvane", "kind": "custom", "className": "TelvaneDV.DataSource", "params": [
      { "type": "text", "value": "Telvane DV DataSource" }, { "type": "number", "value": 1 },
      { "type": "number", "value": 500 } ],
    "variables": [
      { "name": "Run", "type": "Long", "params": [ { "type": "empty" },
          { "type": "text", "value": "\\\\APL\\1\\P\\P101\\10:OV" }, { "type": "number", "value": 16 },
          { "type": "text", "value": "" }, { "type": "text", "value": "" } ] },
      { "name": "Colour", "type": "Long", "params": [ { "type": "empty" },
          { "type": "text", "value": "\\\\APL\\1\\P\\P101\\11:OV" }, { "type": "number", "value": 1 },
          { "type": "text", "value": "3,5,7" }, { "type": "text", "value": "" } ] },
      { "name": "Level", "type": "Double", "params": [ { "type": "empty" },
          { "type": "text", "value": "\\\\APL\\1\\P\\LT1\\1:OV" }, { "type": "number", "value": 2 },
          { "type": "text", "value": "" }, { "type": "text", "value": "Level.korl" } ] },
      { "name": "Spare", "type": "Double", "params": [ { "type": "empty" }, { "type": "text", "value": "" },
          { "type": "number", "value": 0 } ] },
      { "name": "Watch", "type": "Long", "params": [ { "type": "empty" },
          { "type": "text", "value": "\\\\WD\\1:OV" }, { "type": "number", "value": 0 } ] },
      { "name": "Odd", "type": "Long", "params": [ { "type": "empty" },
          { "type": "text", "value": "\\\\APL\\1\\P\\P101\\10:OV" }, { "type": "number", "value": 5 } ] } ] } ],
  "scada": { "applications": [ { "number": 1, "name": "RAW", "directory": "." },
                               { "number": 12, "name": "Main", "directory": "." } ],
    "objects": [ { "application": 1, "name": "P101", "kind": "P", "index": 10, "attributes": { "OV": 1 } },
                 { "application": 1, "name": "LT1", "kind": "P", "index": 1, "attributes": { "OV": [ 1, 2 ] } } ] } })";

struct ScadaHarness : Harness {
  ScadaHarness() : Harness(kScadaJson) {}
  toolkit::ParamListRef Params(int32_t dsv) const {
    auto ds = sample.display->DataSources()->Item(2);
    return dsv == 0 ? ds->AsCustom()->GetParams() : ds->Variables()->Item(dsv)->AsCustom()->GetParams();
  }
  automation::Variant Param(int32_t dsv, int16_t index) const { return Params(dsv)->ParamItem(index)->GetParamValue(); }
  String Text(int32_t dsv, int16_t index) const { return automation::CStr(Param(dsv, index)); }
};

// A communication object that does what the test says.
struct Probe final : toolkit::Communication {
  std::function<void(const String&, automation::Variant&)> korl, korlInApp;
  void GetApplications(automation::Variant&, automation::Variant&) override { automation::Raise(5); }
  void ExecuteKorl(const String& request, automation::Variant& result) override { korl(request, result); }
  void ScriptFileChanged(const String&) override { automation::Raise(5); }
  void ExecuteKorlInApp(int16_t, const String& request, automation::Variant& result) override {
    korlInApp(request, result);
  }
  void ValidateItem(const String&, automation::Variant&) override { automation::Raise(5); }
};

inline constexpr char16_t kAppPath[] = u"C:\\kv\\apl\\PLANT\\";
inline constexpr char16_t kPict[] = u"C:\\kv\\apl\\PLANT\\PICT\\";

// The SCADA system answers the application path with a Windows directory.
struct KorlHarness : ScadaHarness {
  platform::testing::FakeProcessService processes;
  platform::testing::MemoryFileSystem disk;

  KorlHarness() {
    services.fileSystem = &disk;
    services.processes = &processes;
    sample.scada->SetAnswer(scada::modSADataSources::ApplicationPathRequest(), automation::Variant(kAppPath));
  }
  // The generic signal "Level" (stored file "Level.korl") shown in the mapping frame.
  void ShowLevel() const { Look(u"2:3"); }
};

}  // namespace vd::feature_test
