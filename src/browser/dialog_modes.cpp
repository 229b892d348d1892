// The dialog's modes, the collapsible edit panel and the three dialog buttons.
#include "browser/frm_data_browser.h"

namespace vd::browser {

void frmDataBrowser::SetDialogMode(int32_t newMode) {
  // Both stores happen for every value; one above 4 changes nothing else.
  previousMode = mode;
  mode = newMode;
  if (newMode > dialog_mode::kPickAny) return;

  switch (newMode) {
    case dialog_mode::kEdit:
      dbOK.SetVisible(false);
      dbEdit.SetVisible(false);
      dbClose.SetLeft(closeLeftAlone);
      dbClose.SetCaption(u"&Close");
      EnableDsButtons(true);
      ExpandEditPanel();
      break;
    case dialog_mode::kEditInSelect:
    case dialog_mode::kSelectPanelOpen:
      dbOK.SetVisible(true);
      dbEdit.SetVisible(true);
      dbClose.SetLeft(closeLeftWithButtons);
      dbClose.SetCaption(u"&Close");
      EnableDsButtons(true);
      ExpandEditPanel();
      break;
    case dialog_mode::kSelect:
      dbOK.SetVisible(true);
      dbEdit.SetVisible(true);
      dbClose.SetLeft(closeLeftWithButtons);
      dbClose.SetCaption(u"&Close");
      CollapseEditPanel();
      break;
    case dialog_mode::kPickAny:
      dbOK.SetVisible(false);
      dbEdit.SetVisible(false);
      dbClose.SetLeft(closeLeftAlone);
      dbClose.SetCaption(u"Stop");
      ShowSelectStatus();
      EnableDsButtons(false);
      CollapseEditPanel();
      break;
    default:
      break;
  }
}

void frmDataBrowser::CollapseEditPanel() {
  SetWidth(collapsedWidth);
  dbEdit.SetCaption(u"&Edit >>");
}

void frmDataBrowser::ExpandEditPanel() {
  SetWidth(expandedWidth);
  dbEdit.SetCaption(u"<< &Edit");
}

void frmDataBrowser::dbEdit_Click() {
  // From the open panel the button closes it, from the closed one it opens it.
  if (mode != dialog_mode::kSelect) {
    SetDialogMode(dialog_mode::kSelect);
  } else {
    SetDialogMode(dialog_mode::kSelectPanelOpen);
  }
}

void frmDataBrowser::dbOK_Click() { Hide(); }

void frmDataBrowser::dbClose_Click() {
  if (mode == dialog_mode::kPickAny) {
    SetDialogMode(previousMode);
    return;
  }
  CurrentDsv = nullptr;
  Hide();
}

}  // namespace vd::browser
