// What the user does in the data source frame. Every change goes to the data
// source at once; nothing happens while a fill is under way.
#include <exception>

#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "platform/common_dialog.h"
#include "platform/services.h"

namespace vd::browser {
namespace {
constexpr char16_t kBrowseTitle[] = u"File Datasource Origin";
constexpr char16_t kBrowseFilter[] = u"Data Files (*.dat)|*.dat|All Files (*.*)|*.*|";
}  // namespace

void frmDataBrowser::WireDsPanelEvents() {
  optASCII.onClick = [this] { optASCII_Click(); };
  optBinary.onClick = [this] { optBinary_Click(); };
  txtDsName.onChange = [this] { txtDsName_Change(); };
  cmdBrowse.onClick = [this] { cmdBrowse_Click(); };
  cmdDSCustom.onClick = [this] { cmdDSCustom_Click(); };
}

void frmDataBrowser::optASCII_Click() {
  if (PanelFilling) return;
  Obj(Obj(dsList).DsItem(Obj(treDataSources.SelectedItem()).Index())).SetDsAscii(true);
  modified = true;
}

void frmDataBrowser::optBinary_Click() {
  if (PanelFilling) return;
  Obj(Obj(dsList).DsItem(Obj(treDataSources.SelectedItem()).Index())).SetDsAscii(false);
  modified = true;
}

void frmDataBrowser::txtDsName_Change() {
  if (PanelFilling) return;
  // Every keystroke renames, an empty or a taken name too: the toolkit decides.
  forms::Node& node = Obj(treDataSources.SelectedItem());
  const toolkit::DsRef ds = Obj(dsList).DsItem(node.Index());
  node.SetText(txtDsName.Text());
  Obj(ds).SetDsName(txtDsName.Text());
  modified = true;
}

void frmDataBrowser::cmdBrowse_Click() {
  const String path = platform::modCommonDialog::ShowOpenFileDialog(services.ui, static_cast<const forms::Form*>(this),
                                                                    kBrowseTitle, kBrowseFilter, u"", false, false);
  if (path.empty()) return;
  txtDsName.SetText(path);  // renames the data source through txtDsName_Change
  modified = true;
}

void frmDataBrowser::cmdDSCustom_Click() {
  // The host edits the custom data source in its own dialog and may hand back
  // another object; whatever fails on the way ends the command quietly.
  try {
    const toolkit::DsRef ds = Obj(dsList).DsItem(Obj(treDataSources.SelectedItem()).Index());
    automation::ObjectRef obj = ds;
    if (EditCustomDs) EditCustomDs(obj);
    RebuildDsvNodes(GetCurrentDsIndex());
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
  }
}

}  // namespace vd::browser
