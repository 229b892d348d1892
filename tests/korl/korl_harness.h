#pragma once
// The SCADA dialog with a fake editor process and an in-memory disk; the
// SCADA system answers the application path with a Windows directory.
#include "platform/testing/fake_process_service.h"
#include "platform/testing/memory_file_system.h"
#include "scada/sa_data_sources.h"
#include "scada_harness.h"

namespace vd::system_test {

inline constexpr char16_t kAppPath[] = u"C:\\kv\\apl\\PLANT\\";
inline constexpr char16_t kPict[] = u"C:\\kv\\apl\\PLANT\\PICT\\";
inline constexpr char16_t kCreate[] = u"Create and edit new file...";
inline constexpr char16_t kEdit[] = u"Edit selected file...";

struct KorlHarness : ScadaHarness {
  platform::testing::FakeProcessService processes;
  platform::testing::MemoryFileSystem disk;

  KorlHarness() {
    services.fileSystem = &disk;
    services.processes = &processes;
    scada.scada->SetAnswer(scada::modSADataSources::ApplicationPathRequest(), automation::Variant(kAppPath));
  }
  // The generic signal "Level" (stored file "Level.korl") shown in the mapping frame.
  void ShowLevel() const { Look(u"2:3"); }
  std::vector<String> ComboList() const {
    std::vector<String> list;
    for (int32_t i = 0; i < dlg.cmbKorlFileSelect.ListCount(); ++i) list.push_back(dlg.cmbKorlFileSelect.List(i));
    return list;
  }
};

}  // namespace vd::system_test
