// The data source frame: what it shows of the selected data source, and the
// enabling of the tree's command buttons.
#include "browser/frm_data_browser.h"
#include "browser/object_access.h"

namespace vd::browser {

void frmDataBrowser::HideEditPanels() {
  fraDs.SetVisible(false);
  fraDsv.SetVisible(false);
  fraTelvaneDsSettings.SetVisible(false);
  fraTelvaneDsvSettings.SetVisible(false);
}

void frmDataBrowser::FillDsPanel() {
  PanelFilling = true;
  HideEditPanels();
  // A data source cannot be chosen where a variable is wanted.
  if (mode == dialog_mode::kSelectPanelOpen || mode == dialog_mode::kSelect) dbOK.SetEnabled(false);
  cmdDSCustom.SetVisible(false);
  cmdBrowse.SetVisible(false);
  fraFormat.SetVisible(false);

  const forms::NodeRef node = treDataSources.SelectedItem();
  if (!node) {
    EnableDsvButtons(false);
    fraDs.SetVisible(false);
    return;  // the flag stays raised until the next fill
  }
  EnableDsvButtons(true);
  fraDs.SetVisible(true);
  const toolkit::DsRef ds = Obj(dsList).DsItem(node->Index());
  txtDsName.SetText(node->Text());

  const int32_t kind = Obj(ds).GetDsType();
  lblDsName.SetCaption(kind == toolkit::kind::kFile ? u"File:" : u"&Name:");
  switch (kind) {
    case toolkit::kind::kFile:
      cmdBrowse.SetVisible(true);
      fraFormat.SetVisible(true);
      if (ds->GetDsAscii()) {
        optASCII.SetValue(true);
      } else {
        optBinary.SetValue(true);
      }
      txtDsType.SetText(FileDsTypeName);
      break;
    case toolkit::kind::kConstant:
      txtDsType.SetText(ConstantDsTypeName);
      break;
    case toolkit::kind::kMemory:
      txtDsType.SetText(MemoryDsTypeName);
      break;
    case toolkit::kind::kCustom:
      cmdDSCustom.SetVisible(true);
      txtDsType.SetText(u"Custom");
      break;
    default:
      break;  // an unknown kind leaves the kind text as it was
  }
  txtSize.SetText(automation::ToDecimal(Obj(ds->GetDsVars()).DsvCount()));

  chkSort.SetEnabled(false);
  const int16_t dsIndex = GetCurrentDsIndex();
  if (dsIndex >= 0) chkSort.SetValue(DsSortFlags.Item(dsIndex) ? forms::vbChecked : forms::vbUnchecked);
  cmdMoveUp.SetEnabled(true);
  cmdMoveDown.SetEnabled(true);

  if (IsTelvaneDataSource(ds)) {
    fraTelvaneDsSettings.SetVisible(true);
    cmdDSCustom.SetVisible(false);
    txtDsType.SetText(u"Telvane");
    FillTelvaneDsPanel(ds);
  }
  PanelFilling = false;
}

void frmDataBrowser::EnableDsvButtons(bool enabled) {
  cmdAddDsv.SetEnabled(enabled);
  cmdDelete.SetEnabled(enabled);
  cmdMoveUp.SetEnabled(enabled);
  cmdMoveDown.SetEnabled(enabled);
}

void frmDataBrowser::EnableDsButtons(bool enabled) {
  cmdAddDs.SetEnabled(enabled);
  cboDsAdd.SetEnabled(enabled);
  EnableDsvButtons(enabled);
}

}  // namespace vd::browser
