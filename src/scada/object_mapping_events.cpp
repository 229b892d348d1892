// What the user does in a SCADA variable's mapping frame: Apply stores the
// panel, Undo shows the stored mapping again, Validate asks the SCADA system,
// and a click on the reference's label shows the item ids.
#include <exception>

#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "platform/services.h"
#include "vd/automation/conversions.h"
#include "vd/automation/text.h"

namespace vd::browser {
namespace {

constexpr char16_t kCrLf[] = u"\r\n";

String Quoted(const String& text) { return u"\"" + text + u"\""; }

String InvalidReferenceText(const String& reference) { return u"Invalid object reference: " + Quoted(reference); }

}  // namespace

void frmDataBrowser::cmdTelvaneDsvApply_Click() {
  const toolkit::DsvRef dsv = SelectedNodeDsv();
  if (ApplyDsvMapping(dsv)) FillTelvaneDsvPanel(dsv);
  // The signal type may free or fix the variable's shape.
  FillDsvShape(dsv);
  modified = true;
}

void frmDataBrowser::cmdTelvaneDsvUndo_Click() { FillTelvaneDsvPanel(SelectedNodeDsv()); }

void frmDataBrowser::cmdTelvaneDsvValidate_Click() {
  txtTelvaneObjectReference.SetText(automation::UCase(txtTelvaneObjectReference.Text()));
  if (!communication) return;
  const String reference = txtTelvaneObjectReference.Text();
  String itemId;
  if (!BuildItemId(reference, GetDsApplicationNr(GetCurrentDs()), itemId)) {
    ShowEntryMessage(InvalidReferenceText(reference));
    return;
  }
  String text;
  try {
    Variant value;
    communication->ValidateItem(itemId, value);
    text = u"Object reference " + Quoted(reference) + u" is valid." + kCrLf + kCrLf + u"Current value: " +
           Quoted(value.IsArray() ? String(u"<vector>") : automation::CStr(value));
  } catch (const std::exception&) {
    ShowEntryMessage(u"Could not validate object reference " + Quoted(reference) + u"." + kCrLf + kCrLf +
                     u"Generated OPC itemid: " + itemId);
    return;
  }
  services.ui.MsgBox(text, forms::vbOKOnly, Caption());
}

void frmDataBrowser::lblObjectReference_Click() {
  const String reference = txtTelvaneObjectReference.Text();
  String itemId;
  String text;
  if (BuildItemId(reference, GetDsApplicationNr(GetCurrentDs()), itemId)) {
    const toolkit::CustomDsvRef custom = Obj(SelectedNodeDsv()).AsCustom();
    if (!custom) automation::Raise(automation::err::kTypeMismatch);
    const toolkit::ParamListRef params = custom->GetParams();
    const Variant stored = Obj(params).ParamCount() < 2 ? Variant() : Obj(params->ParamItem(2)).GetParamValue();
    text = u"Current itemID: \t" + itemId + kCrLf + u"Stored itemID: \t" + automation::CStr(stored);
  } else {
    text = InvalidReferenceText(reference);
  }
  services.ui.MsgBox(text, forms::vbOKOnly + forms::vbInformation, Caption());
}

}  // namespace vd::browser
