// The rescan of a SCADA data source: every variable's offsets asked of the
// SCADA system again, with the progress shown as the loop runs.
#include <cmath>

#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "platform/services.h"
#include "scada/sa_data_sources.h"
#include "vd/automation/numeric.h"

namespace vd::browser {
namespace {

constexpr double kFullBar = 100;

// The value as a whole number, a half away from zero, as the "0" pattern formats it.
String WholePercent(float value) {
  return automation::FormatGeneral(std::floor(static_cast<double>(value) + 0.5)) + u" %";
}

}  // namespace

void frmDataBrowser::Command1_Click() {
  lblPercent.SetVisible(true);
  ProgressBar1.SetVisible(true);
  const toolkit::DsRef ds = GetCurrentDs();
  const int16_t count = ToInteger(Obj(Obj(ds).GetDsVars()).DsvCount());
  for (int16_t i = 1; i <= count; ++i) {
    const toolkit::DsvRef dsv = Obj(ds->GetDsVars()).DsvItem(i);
    scada::modSADataSources::UpdateDsvOffsets(communication, dsv);
    ProgressBar1.SetValue(static_cast<float>(static_cast<double>(i) / count * kFullBar));
    lblPercent.SetCaption(WholePercent(ProgressBar1.Value()));
    services.ui.RefreshNow(lblPercent);
  }
  ProgressBar1.SetVisible(false);
  lblPercent.SetVisible(false);
  modified = true;
}

}  // namespace vd::browser
