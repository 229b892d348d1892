// Creation of the dialog: its designed look and the wiring of its handlers.
#include "browser/frm_data_browser.h"

#include "browser/frm_find_dialog.h"

#include "platform/dv_reg.h"
#include "platform/services.h"

namespace vd::browser {

frmDataBrowser::frmDataBrowser(platform::Services& platformServices)
    : Form(u"frmDataBrowser"), services(platformServices) {
  // The toolkit home is looked up through this platform's registry.
  platform::DvReg::UseRegistry(&services.registry);
  DesignControls();
  WireEvents();
  // A form is initialised when it is created; it loads on first use.
  Initialize();
}

frmDataBrowser::~frmDataBrowser() {
  // Leave no reference to a registry that may go with this dialog.
  if (platform::DvReg::InstalledRegistry() == &services.registry) platform::DvReg::UseRegistry(nullptr);
}

void frmDataBrowser::WireEvents() {
  onInitialize = [this] { Form_Initialize(); };
  onLoad = [this] { Form_Load(); };
  onUnload = [this](bool& cancel) { Form_Unload(cancel); };

  dbOK.onClick = [this] { dbOK_Click(); };
  dbClose.onClick = [this] { dbClose_Click(); };
  dbEdit.onClick = [this] { dbEdit_Click(); };

  treDataSources.onNodeClick = [this](const forms::NodeRef& node) { treDataSources_NodeClick(node); };
  treDataSources.onCollapse = [this](const forms::NodeRef& node) { treDataSources_Collapse(node); };
  treDataSources.onDblClick = [this] { treDataSources_DblClick(); };
  treDataSources.onMouseMove = [this](int16_t button, int16_t shift, float x, float y) {
    treDataSources_MouseMove(button, shift, x, y);
  };
  treDataSources.onKeyPress = [this](int16_t& keyAscii) { treDataSources_KeyPress(keyAscii); };
  WireTreeCommands();
  cmdFind.onClick = [this] { cmdFind_Click(); };
  // The find keys reach the form whichever control has the focus.
  SetKeyPreview(true);
  onKeyDown = [this](int16_t& keyCode, int16_t shift) { Form_KeyDown(keyCode, shift); };

  WireDsPanelEvents();
  WireDsvPanelEvents();
  WireScadaEvents();
}

}  // namespace vd::browser
