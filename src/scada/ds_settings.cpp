// The SCADA settings frame of a data source: its application and the blink
// period of blinking colours.
#include "browser/frm_data_browser.h"

namespace vd::browser {

void frmDataBrowser::FillTelvaneDsPanel(const toolkit::DsRef& /*ds*/) {
  // The data source panel has already shown the frame and the kind text; the
  // application and blink period boxes come with the frame's own logic.
}

}  // namespace vd::browser
