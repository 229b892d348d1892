// The data variable side of the edit panels: from a tree node to its
// variable, and the variable frame.
#include "browser/frm_data_browser.h"
#include "browser/object_access.h"

namespace vd::browser {

toolkit::DsvRef frmDataBrowser::NodeDsv(const forms::NodeRef& node, int16_t* index) {
  const forms::NodeRef parent = node->Parent();
  if (!parent) {
    if (index != nullptr) *index = -1;
    return nullptr;
  }
  const toolkit::DsRef ds = Obj(dsList).DsItem(parent->Index());
  // The tag is the variable's position in its data source.
  const int16_t position = automation::CInt(node->Tag());
  if (index != nullptr) *index = position;
  return Obj(Obj(ds).GetDsVars()).DsvItem(position);
}

toolkit::DsvRef frmDataBrowser::SelectedNodeDsv(int16_t* index) {
  return NodeDsv(treDataSources.SelectedItem(), index);
}

void frmDataBrowser::FillDsvPanel() {
  PanelFilling = true;
  HideEditPanels();
  const toolkit::DsvRef dsv = SelectedNodeDsv();
  fraDsv.SetVisible(true);
  CurrentDsv = dsv;
  dbOK.SetEnabled(IsDsvSelectable(dsv));
  if (const forms::NodeRef node = treDataSources.SelectedItem()) node->EnsureVisible();
  PanelFilling = false;
}

}  // namespace vd::browser
