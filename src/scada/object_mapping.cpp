// The mapping of a SCADA variable to a process object: its mapping code and
// the variable's mapping frame.
#include "browser/frm_data_browser.h"

namespace vd::browser {
namespace {
// The mapping code holds the swap code above the signal type, 4 bits each.
constexpr int32_t kSignalTypeBits = 15;
}  // namespace

int32_t frmDataBrowser::DecodeSignalType(int32_t code) { return code & kSignalTypeBits; }

void frmDataBrowser::FillTelvaneDsvPanel(const toolkit::DsvRef& /*dsv*/) {
  // The variable panel has already shown the frame; its object reference,
  // signal type and script file boxes come with the frame's own logic.
}

}  // namespace vd::browser
