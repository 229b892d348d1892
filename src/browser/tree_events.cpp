// What the user does to the tree, and the tool tips that name the selection.
#include "browser/frm_data_browser.h"
#include "browser/object_access.h"

namespace vd::browser {

void frmDataBrowser::treDataSources_NodeClick(const forms::NodeRef& node) {
  const bool variableNode = node->Index() > dsNodeCount;
  if (mode == dialog_mode::kPickAny) {
    // Picking a variable ends the pick; data source nodes are ignored.
    if (variableNode) SetDialogMode(previousMode);
    return;
  }
  if (variableNode) {
    FillDsvPanel();
  } else {
    FillDsPanel();
  }
  UpdateButtonToolTips();
}

void frmDataBrowser::treDataSources_Collapse(const forms::NodeRef& node) {
  if (node == treDataSources.SelectedItem()) treDataSources_NodeClick(node);
}

void frmDataBrowser::treDataSources_DblClick() {
  const forms::NodeRef node = treDataSources.SelectedItem();
  if (!node) return;
  const bool variableNode = node->Index() > dsNodeCount;
  if (mode == dialog_mode::kPickAny) {
    if (variableNode) SetDialogMode(previousMode);
    return;
  }
  if (variableNode) {
    FillDsvPanel();
    // A variable that fits the filter ends the run as OK does.
    if (dbOK.Enabled()) Hide();
  }
  UpdateButtonToolTips();
}

void frmDataBrowser::treDataSources_MouseMove(int16_t /*button*/, int16_t /*shift*/, float x, float y) {
  if (nodeToReselect && mode != dialog_mode::kPickAny) {
    nodeToReselect->EnsureVisible();
    nodeToReselect->SetSelected(true);
    nodeToReselect = nullptr;
  }
  switch (mode) {
    case dialog_mode::kEdit:
    case dialog_mode::kEditInSelect:
    case dialog_mode::kSelectPanelOpen:
      treDataSources.SetMousePointer(forms::vbDefault);
      break;
    case dialog_mode::kSelect:
    case dialog_mode::kPickAny: {
      // A data source cannot be chosen where only a variable is wanted.
      const forms::NodeRef node = treDataSources.HitTest(x, y);
      const bool overDataSource = node && !node->Parent();
      treDataSources.SetMousePointer(overDataSource ? forms::vbNoDrop : forms::vbDefault);
      break;
    }
    default:
      break;
  }
}

void frmDataBrowser::treDataSources_KeyPress(int16_t& /*keyAscii*/) {}

void frmDataBrowser::UpdateButtonToolTips() {
  String namePart = u" ";
  const forms::NodeRef node = treDataSources.SelectedItem();
  if (node) {
    const int32_t index = node->Index();
    const String name =
        index <= dsNodeCount ? Obj(Obj(dsList).DsItem(index)).GetDsName() : Obj(NodeDsv(node)).GetDsvName();
    namePart = u" '" + name + u"' ";
  }
  cmdDelete.SetToolTipText(u"Delete" + namePart);
  cmdMoveUp.SetToolTipText(u"Move" + namePart + u"up");
  cmdMoveDown.SetToolTipText(u"Move" + namePart + u"down");
}

}  // namespace vd::browser
