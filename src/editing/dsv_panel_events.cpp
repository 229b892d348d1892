// What the user does in the data variable frame. Every change goes to the
// variable at once; the change handlers do nothing while a fill is under way,
// the focus handlers of the value box act always.
#include <exception>

#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "platform/services.h"
#include "vd/automation/conversions.h"
#include "vd/automation/numeric.h"
#include "vd/automation/text.h"

namespace vd::browser {
namespace {
// Switching a variable to Text gives it this length.
constexpr int32_t kTextLength = 255;
constexpr int32_t kMatrixRows = 2;
constexpr int32_t kMinVectorCols = 2;
}  // namespace

void frmDataBrowser::WireDsvPanelEvents() {
  cboDsvType.onClick = [this] { cboDsvType_Click(); };
  optDsvPrivate.onClick = [this] { optDsvPrivate_Click(); };
  optDsvPublic.onClick = [this] { optDsvPublic_Click(); };
  optDsvScalar.onClick = [this] { optDsvScalar_Click(); };
  optDsvVector.onClick = [this] { optDsvVector_Click(); };
  optDsvMatrix.onClick = [this] { optDsvMatrix_Click(); };
  txtDsvCols.onChange = [this] { txtDsvCols_Change(); };
  txtDsvRows.onChange = [this] { txtDsvRows_Change(); };
  txtDsvName.onChange = [this] { txtDsvName_Change(); };
  txtDsvValue.onGotFocus = [this] { txtDsvValue_GotFocus(); };
  txtDsvValue.onLostFocus = [this] { txtDsvValue_LostFocus(); };
  txtDsvValue.onChange = [this] { txtDsvValue_Change(); };
  cmdDSVcustom.onClick = [this] { cmdDSVcustom_Click(); };
}

void frmDataBrowser::ShowEntryMessage(const String& text) {
  services.ui.MsgBox(text, forms::vbOKOnly + forms::vbExclamation, Caption());
}

void frmDataBrowser::cboDsvType_Click() {
  if (PanelFilling) return;
  const toolkit::DsvRef dsv = SelectedNodeDsv();
  toolkit::Dsv& variable = Obj(dsv);
  const int32_t newType = cboDsvType.ItemData(cboDsvType.ListIndex());
  if (newType != variable.GetDsvType()) {
    variable.SetDsvType(newType);
    if (variable.GetDsvType() != toolkit::dsvtype::kText) {
      // Back to a scalar.
      variable.SetDsvCols(1);
      variable.SetDsvRows(1);
    } else {
      PanelFilling = true;
      variable.SetDsvRows(1);
      variable.SetDsvCols(kTextLength);
      PanelFilling = false;
    }
  }
  FillDsvShape(dsv);
  modified = true;
}

void frmDataBrowser::optDsvPrivate_Click() {
  if (PanelFilling) return;
  Obj(SelectedNodeDsv()).SetDsvScope(toolkit::scope::kPrivate);
  modified = true;
}

void frmDataBrowser::optDsvPublic_Click() {
  if (PanelFilling) return;
  Obj(SelectedNodeDsv()).SetDsvScope(toolkit::scope::kPublic);
  modified = true;
}

void frmDataBrowser::optDsvScalar_Click() {
  if (PanelFilling) return;
  const toolkit::DsvRef dsv = SelectedNodeDsv();
  Obj(dsv).SetDsvCols(1);
  dsv->SetDsvRows(1);
  modified = true;
  FillDsvShape(dsv);
}

void frmDataBrowser::optDsvVector_Click() {
  if (PanelFilling) return;
  const toolkit::DsvRef dsv = SelectedNodeDsv();
  if (Obj(dsv).GetDsvCols() < kMinVectorCols) dsv->SetDsvCols(kMinVectorCols);
  dsv->SetDsvRows(1);
  modified = true;
  FillDsvShape(dsv);
}

void frmDataBrowser::optDsvMatrix_Click() {
  if (PanelFilling) return;
  const toolkit::DsvRef dsv = SelectedNodeDsv();
  if (Obj(dsv).GetDsvCols() < kMinVectorCols) dsv->SetDsvCols(kMinVectorCols);
  dsv->SetDsvRows(kMatrixRows);  // whatever the row count was
  modified = true;
  FillDsvShape(dsv);
}

void frmDataBrowser::txtDsvCols_Change() {
  if (PanelFilling) return;
  CheckDimensionEntry(SelectedNodeDsv(), false);
}

void frmDataBrowser::txtDsvRows_Change() {
  if (PanelFilling) return;
  CheckDimensionEntry(SelectedNodeDsv(), true);
}

void frmDataBrowser::CheckDimensionEntry(const toolkit::DsvRef& dsv, bool isRows) {
  forms::TextBox& box = isRows ? txtDsvRows : txtDsvCols;
  const String text = automation::Trim(box.Text());
  if (automation::IsNumeric(text)) {
    // Zero, negative and fractional entries are written as they convert; the
    // toolkit refuses what it cannot hold.
    const int32_t count = automation::CLng(Variant(text));
    if (isRows) {
      Obj(dsv).SetDsvRows(count);
    } else {
      Obj(dsv).SetDsvCols(count);
    }
    modified = true;
  } else if (!text.empty()) {
    ShowEntryMessage(u"Invalid nummeric entry, '" + text + u"'.  Entry must be a positive whole number.");
    // Raises Change again, which writes the same count back.
    box.SetText(automation::ToDecimal(isRows ? Obj(dsv).GetDsvRows() : Obj(dsv).GetDsvCols()));
  }
}

void frmDataBrowser::txtDsvName_Change() {
  if (PanelFilling) return;
  const toolkit::DsvRef dsv = SelectedNodeDsv();
  Obj(treDataSources.SelectedItem()).SetText(txtDsvName.Text());
  Obj(dsv).SetDsvName(txtDsvName.Text());
  modified = true;
}

void frmDataBrowser::txtDsvValue_GotFocus() { SavedDsvValue = Obj(SelectedNodeDsv()).GetDsvValue(); }

void frmDataBrowser::txtDsvValue_Change() {
  if (PanelFilling) return;
  // An unfinished entry ("-", "1e") stays in the box unwritten.
  const String text = automation::NormalizeBlanks(txtDsvValue.Text());
  if (text.empty() || text == u"." || !automation::IsNumeric(text)) return;
  Obj(SelectedNodeDsv()).SetDsvValue(automation::CDbl(Variant(text)));
  modified = true;
}

void frmDataBrowser::txtDsvValue_LostFocus() {
  const String text = automation::NormalizeBlanks(txtDsvValue.Text());
  if (automation::IsNumeric(text)) return;  // written while it was typed
  if (!text.empty()) ShowEntryMessage(u"Invalid numeric value: '" + text + u"'");
  txtDsvValue.SetText(automation::FormatGeneral(SavedDsvValue));
}

void frmDataBrowser::cmdDSVcustom_Click() {
  // The host edits the custom variable in its own dialog and may hand back
  // another object; whatever fails on the way ends the command quietly.
  try {
    const toolkit::DsvRef dsv = SelectedNodeDsv();
    automation::ObjectRef obj = dsv;
    if (EditCustomDsv) EditCustomDsv(obj);
    RebuildDsvNodes(GetCurrentDsIndex());
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
  }
}

}  // namespace vd::browser
