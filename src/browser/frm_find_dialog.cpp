// The find dialog: its design, and how leaving it keeps the text and the history.
#include "browser/frm_find_dialog.h"

namespace vd::browser {

frmFindDialog::frmFindDialog() : Form(u"frmFindDialog") {
  DesignControls();
  onInitialize = [this] { Form_Initialize(); };
  onLoad = [this] { Form_Load(); };
  cboFindWhat.onChange = [this] { cboFindWhat_Change(); };
  OKButton.onClick = [this] { OKButton_Click(); };
  CancelButton.onClick = [this] { CancelButton_Click(); };
  Initialize();
}

void frmFindDialog::DesignControls() {
  SetCaption(u"Find source/variable");
  SetWidth(5700);
  SetHeight(2190);
  Label1.Move(120, 195, 735, 255);
  cboFindWhat.Move(900, 150, 3255, 315);
  chkMatchCase.Move(120, 660, 2055, 255);
  chkFindWholeWord.Move(120, 1020, 2295, 255);
  groupDirection.Move(2520, 555, 1635, 735);
  optUp.Move(120, 300, 615, 255);
  optDown.Move(780, 300, 735, 255);
  optDown.SetValue(true);
  OKButton.Move(4320, 150, 1215, 375);
  CancelButton.Move(4320, 630, 1215, 375);
  OKButton.SetDefault(true);
  CancelButton.SetCancel(true);
}

void frmFindDialog::Form_Initialize() { Cancelled = false; }

void frmFindDialog::Form_Load() {
  cboFindWhat.SetText(LastFindText);
  OKButton.SetEnabled(!LastFindText.empty());
}

void frmFindDialog::cboFindWhat_Change() { OKButton.SetEnabled(!cboFindWhat.Text().empty()); }

void frmFindDialog::OKButton_Click() { CloseFindDialog(false); }

void frmFindDialog::CancelButton_Click() { CloseFindDialog(true); }

void frmFindDialog::CloseFindDialog(bool cancel) {
  Cancelled = cancel;
  cboFindWhat.SetFocus();
  Hide();
  if (cancel) {
    // An edit that was not confirmed is undone.
    cboFindWhat.SetText(LastFindText);
    return;
  }
  LastFindText = cboFindWhat.Text();
  // Up to one beyond the last entry, which reads as empty and never matches a
  // confirmed text.
  const int32_t count = cboFindWhat.ListCount();
  for (int32_t i = 0; i <= count; ++i) {
    if (cboFindWhat.List(i) == LastFindText) return;  // the history keeps its order
  }
  if (count >= kHistoryLimit) cboFindWhat.RemoveItem(0);
  cboFindWhat.AddItem(LastFindText);
}

}  // namespace vd::browser
