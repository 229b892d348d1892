// A look never writes: clicking through every data source and variable of the
// sample plant, with no edit, leaves every parameter as it was and asks the
// SCADA system nothing but the application path.
#include <cstdlib>

#include "browser_harness.h"
#include "scada/sa_data_sources.h"

namespace vd::system_test {
namespace {

TEST(LookNeverWrites, ClickingThroughThePlantChangesNoParameterAndCallsNoScada) {
  const char* source = std::getenv("VD_SOURCE_DIR");
  ASSERT_NE(source, nullptr);
  const std::filesystem::path file = std::filesystem::path(source) / "samples" / "plant.json";
  sample::SampleDisplay plant = sample::LoadDisplayFile(file);
  const std::string before = sample::WriteDisplayJson(plant, file.parent_path());
  BrowserHarness h;
  h.dlg.SetCommunication(plant.scada);
  h.dlg.InitDBForEdit(plant.display);

  int32_t scadaFrames = 0;
  for (int32_t round = 0; round < 2; ++round) {  // the second round leaves other panels first
    for (int32_t i = 1; i <= h.dlg.treDataSources.Nodes().Count(); ++i) {
      const forms::NodeRef node = h.dlg.treDataSources.Nodes().Item(i);
      ASSERT_TRUE(h.dlg.treDataSources.UserSelectNode(node)) << ToUtf8(node->Key());
      if (h.dlg.fraTelvaneDsSettings.Visible() || h.dlg.fraTelvaneDsvSettings.Visible()) ++scadaFrames;
      EXPECT_FALSE(h.dlg.cmdTelvaneDsvApply.Enabled() && h.dlg.fraTelvaneDsvSettings.Visible()) << ToUtf8(node->Key());
    }
  }
  EXPECT_GT(scadaFrames, 20);
  EXPECT_EQ(sample::WriteDisplayJson(plant, file.parent_path()), before);
  // The only question is the application path, for a generic signal's script file list.
  for (const sample::ScadaCallRecord& call : plant.scada->Calls()) {
    EXPECT_TRUE(call.call == sample::ScadaCall::kExecuteKorl &&
                call.text == scada::modSADataSources::ApplicationPathRequest());
  }
  EXPECT_TRUE(h.ui.MessageBoxes().empty());
}

}  // namespace
}  // namespace vd::system_test
