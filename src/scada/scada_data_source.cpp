// Telling a SCADA data source from other custom data sources, and the
// applications' directory, for the SCADA frames.
#include "browser/frm_data_browser.h"
#include "platform/services.h"
#include "scada/sa_data_sources.h"

namespace vd::browser {

bool frmDataBrowser::IsTelvaneDataSource(const toolkit::DsRef& ds) {
  return scada::modSADataSources::IsTelvaneDataSource(ds);
}

String frmDataBrowser::GetApplicationPath(int32_t applicationNr) {
  return scada::modSADataSources::GetApplicationPath(communication, applicationNr, services.ui);
}

}  // namespace vd::browser
