// The dialog as designed, in twips: the tree frame at the left with its
// command buttons below the tree, the panel column at the right (the data
// source or the data variable frame on top, a SCADA frame below it), the
// dialog buttons under the tree frame and the status bar along the bottom.
// The variable frames are designed beside the form and moved into the panel
// column when the form loads. The Windows dialog is laid out from these values.
#include "browser/frm_data_browser.h"

namespace vd::browser {

void frmDataBrowser::DesignControls() {
  SetCaption(u"Data Selection");
  SetWidth(9825);
  SetHeight(7800);

  imgDsList.Add(u"Variable", u"variable");
  imgDsList.Add(u"DataSource", u"data_source");
  imgDsList.Add(u"DataSourceOpen", u"data_source_open");

  fraDsl.Move(120, 60, 4335, 6375);
  treDataSources.Move(120, 240, 4095, 4755);
  // The buttons below the tree share its width by the length of their captions.
  cboDsAdd.Move(120, 5100, 1695, 315);
  cmdAddDs.Move(1875, 5085, 960, 345);
  cmdAddDs.SetToolTipText(u"Add new datasource");
  cmdAddDsv.Move(2895, 5085, 1320, 345);
  cmdAddDsv.SetToolTipText(u"Add new data variable");
  cmdDelete.Move(120, 5520, 870, 345);
  cmdDelete.SetToolTipText(u"Delete data variable");
  cmdMoveUp.Move(1065, 5520, 960, 345);
  cmdMoveUp.SetToolTipText(u"Move up");
  cmdMoveDown.Move(2100, 5520, 1170, 345);
  cmdMoveDown.SetToolTipText(u"Move down");
  cmdSort.Move(3345, 5520, 870, 345);
  cmdSort.SetToolTipText(u"Sort the variables of the data source by name");
  chkSort.Move(120, 5955, 1215, 315);
  chkSort.SetToolTipText(u"Sorts the dialog view only, NOT the Data Source");
  chkExpandAll.Move(1440, 5955, 1575, 315);
  cmdFind.Move(3180, 5940, 1035, 345);

  fraDs.Move(4680, 60, 4935, 2655);
  lblDsName.Move(120, 300, 915, 255);
  txtDsName.Move(1080, 255, 3210, 315);
  cmdBrowse.Move(4350, 255, 465, 315);
  cmdBrowse.SetToolTipText(u"Choose the data file");
  lblDsTypeLabel.Move(120, 705, 915, 255);
  txtDsType.Move(1080, 660, 1935, 315);
  lblSize.Move(120, 1110, 915, 255);
  txtSize.Move(1080, 1065, 975, 315);
  fraFormat.Move(120, 1500, 2895, 615);
  optASCII.Move(120, 240, 1215, 255);
  optBinary.Move(1440, 240, 1215, 255);
  cmdDSCustom.Move(3720, 2160, 1095, 345);

  fraTelvaneDsSettings.Move(4680, 2820, 4935, 2175);
  lblApplication.Move(120, 300, 1215, 255);
  cboTelvaneApplication.Move(1440, 255, 3375, 315);
  lblBlinkPeriod.Move(120, 735, 2655, 255);
  txtBlinkPeriod.Move(2820, 690, 975, 315);
  lblMsecs.Move(3855, 735, 735, 255);
  Command1.Move(120, 1170, 1095, 345);
  Command1.SetToolTipText(u"Update possible changes of standard function configurations (.DAT files) to datavariables");
  cmdTelvaneDsApply.Move(3720, 1170, 1095, 345);
  ProgressBar1.Move(120, 1680, 3975, 255);
  lblPercent.Move(4155, 1680, 660, 255);

  fraDsv.Move(9840, 60, 4935, 3555);
  lblVarName.Move(120, 300, 1035, 255);
  txtDsvName.Move(1200, 255, 3615, 315);
  lblDsvType.Move(120, 705, 1035, 255);
  cboDsvType.Move(1200, 660, 1935, 315);
  fraVariableShape.Move(120, 1080, 2895, 1455);
  optDsvScalar.Move(120, 240, 1095, 255);
  optDsvVector.Move(120, 600, 1095, 255);
  optDsvMatrix.Move(120, 960, 1095, 255);
  lblDsvCols.Move(1320, 600, 615, 255);
  txtDsvCols.Move(1980, 555, 795, 315);
  lblDsvRows.Move(1320, 960, 615, 255);
  txtDsvRows.Move(1980, 915, 795, 315);
  fraVariableScope.Move(3120, 1080, 1695, 1455);
  optDsvPrivate.Move(120, 240, 1335, 255);
  optDsvPublic.Move(120, 600, 1335, 255);
  lblMappings.Move(120, 2700, 1035, 255);
  txtMappings.Move(1200, 2655, 975, 315);
  lblDsvValue.Move(120, 3105, 1035, 255);
  txtDsvValue.Move(1200, 3060, 1935, 315);
  cmdDSVcustom.Move(3720, 3045, 1095, 345);

  // The swap options, the colour indexes and the script file share one place:
  // the signal type shows one of them.
  fraTelvaneDsvSettings.Move(9840, 3720, 4935, 2715);
  lblObjectReference.Move(120, 300, 1575, 255);
  txtTelvaneObjectReference.Move(1740, 255, 3075, 315);
  lblSignalType.Move(120, 705, 1455, 255);
  cboTelvaneSignalType.Move(1620, 660, 1935, 315);
  cboTelvaneSignalType.AddItem(u"State indication");
  cboTelvaneSignalType.AddItem(u"Status color");
  cboTelvaneSignalType.AddItem(u"Generic signal");
  frmTelvaneSwapValues.Move(120, 1065, 4695, 555);
  optTelvaneSwap01.Move(120, 240, 1095, 255);
  optTelvaneSwap12.Move(1320, 240, 1095, 255);
  optTelvaneSwapNone.Move(2520, 240, 1095, 255);
  lblVarInfo.Move(120, 1125, 1455, 255);
  txtVarInfo.Move(1620, 1080, 3195, 315);
  txtVarInfo.SetToolTipText(
      u"<Command Event>,<Selection on Monitor>,<Control Blocking>,<Alarm>,<External Blocking>,<Open "
      u"Blocking>,<Close Blocking>");
  lblKorlFileSelect.Move(120, 1125, 1455, 255);
  cmbKorlFileSelect.Move(1620, 1080, 3195, 315);
  cmdTelvaneDsvValidate.Move(120, 2220, 1095, 345);
  cmdTelvaneDsvApply.Move(2520, 2220, 1095, 345);
  cmdTelvaneDsvUndo.Move(3720, 2220, 1095, 345);

  // OK and Close side by side at the left, Edit at the right edge of the tree
  // frame, towards the panel it opens.
  dbOK.Move(120, 6540, 1095, 375);
  dbClose.Move(1320, 6540, 1095, 375);
  dbEdit.Move(3360, 6540, 1095, 375);
  sbSelectStatus.Move(0, 7020, 9735, 300);
}

}  // namespace vd::browser
