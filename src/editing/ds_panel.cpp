// The data source side of the edit panels: the kinds that can be added, the
// data source frame, and the enabling of the tree's command buttons.
#include "browser/frm_data_browser.h"

namespace vd::browser {

void frmDataBrowser::LoadDsKinds() {
  cboDsAdd.Clear();
  if (!CustomDsClasses) CustomDsClasses.emplace();
  CustomDsClasses->Clear();
  // The kinds file below the toolkit home is read here once the platform
  // offers the registry; without it the built-in kinds are offered.
  if (cboDsAdd.ListCount() == 0) AddDefaultDsKinds();
  cboDsAdd.SetListIndex(0);
}

void frmDataBrowser::AddDefaultDsKinds() {
  struct Kind {
    const char16_t* name;
    int32_t code;
  };
  static constexpr Kind kBuiltIn[] = {
      {u"File", toolkit::kind::kFile}, {u"Memory", toolkit::kind::kMemory}, {u"Constant", toolkit::kind::kConstant}};
  for (const Kind& kind : kBuiltIn) {
    cboDsAdd.AddItem(kind.name);
    cboDsAdd.SetItemData(cboDsAdd.NewIndex(), kind.code);
  }
}

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
  const forms::NodeRef node = treDataSources.SelectedItem();
  if (!node) {
    EnableDsvButtons(false);
    fraDs.SetVisible(false);
    return;  // the flag stays raised until the next fill
  }
  EnableDsvButtons(true);
  fraDs.SetVisible(true);
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
