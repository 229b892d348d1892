// The mapping of a SCADA variable to a process object: the object reference
// and its item id, the mapping code, and what the mapping frame shows.
//
// Parameters of a mapped variable: 2 the item id (text), 3 the mapping code
// (number), 4 the status colour indexes (text), 5 the data-change script file
// (text). Parameter 1 is not this frame's.
#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "scada/item_id.h"
#include "scada/sa_data_sources.h"
#include "vd/automation/conversions.h"
#include "vd/automation/text.h"

namespace vd::browser {
namespace {

constexpr int16_t kItemIdParam = 2;
constexpr int16_t kMappingCodeParam = 3;
constexpr int16_t kVarInfoParam = 4;
constexpr int16_t kScriptFileParam = 5;
// The mapping code holds the swap code above the signal type, 4 bits each.
constexpr int32_t kFieldBits = 15;
constexpr int32_t kSwapShift = 16;

namespace signal {
constexpr int32_t kStateIndication = 0;
constexpr int32_t kStatusColor = 1;
constexpr int32_t kGeneric = 2;
constexpr int32_t kGenericUnlisted = 3;
}  // namespace signal
constexpr int32_t kSwap01 = 1;
constexpr int32_t kSwap12 = 2;

toolkit::ParamListRef DsvParams(const toolkit::DsvRef& dsv) {
  const toolkit::CustomDsvRef custom = Obj(dsv).AsCustom();
  if (!custom) automation::Raise(automation::err::kTypeMismatch);
  return custom->GetParams();
}

// A parameter's value, Empty when the list is shorter.
Variant ParamValue(const toolkit::ParamListRef& params, int16_t index) {
  if (Obj(params).ParamCount() < index) return {};
  return Obj(params->ParamItem(index)).GetParamValue();
}

// The reference an item id stands for; "" when it does not parse.
String ReferenceOf(const Variant& itemId) {
  String reference;
  if (!scada::ParseItemId(automation::CStr(itemId), reference)) return {};
  return reference;
}

}  // namespace

bool frmDataBrowser::BuildItemId(const String& objectReference, int32_t applicationNr, String& itemId) {
  return scada::BuildItemId(objectReference, applicationNr, itemId);
}

bool frmDataBrowser::ParseItemId(const String& itemId, String& objectReference) {
  return scada::ParseItemId(itemId, objectReference);
}

bool frmDataBrowser::SetItemIdApplication(String& itemId, int32_t applicationNr) {
  return scada::SetItemIdApplication(itemId, applicationNr);
}

int32_t frmDataBrowser::DecodeSignalType(int32_t code) { return code & kFieldBits; }

int32_t frmDataBrowser::DecodeSwap(int32_t code) { return (code / kSwapShift) & kFieldBits; }

int32_t frmDataBrowser::EncodeMapping(int32_t signalType, int32_t swap) { return (swap * kSwapShift) | signalType; }

int32_t frmDataBrowser::GetSignalType() {
  // A stored type without a list entry is kept as it was filled.
  const int32_t index = cboTelvaneSignalType.ListIndex();
  return index >= 0 ? index : FilledSignalType;
}

int32_t frmDataBrowser::GetSwapOption() {
  if (optTelvaneSwap01.Value()) return kSwap01;
  if (optTelvaneSwap12.Value()) return kSwap12;
  return 0;
}

void frmDataBrowser::SetSwapOption(int32_t swap) {
  if (swap == kSwap01) {
    optTelvaneSwap01.SetValue(true);
  } else if (swap == kSwap12) {
    optTelvaneSwap12.SetValue(true);
  } else {
    optTelvaneSwapNone.SetValue(true);
  }
}

void frmDataBrowser::ShowSignalTypeControls() {
  int32_t shown = GetSignalType();
  if (shown == signal::kGenericUnlisted) shown = signal::kGeneric;
  if (shown < signal::kStateIndication || shown > signal::kGeneric) shown = signal::kStateIndication;
  frmTelvaneSwapValues.SetVisible(shown == signal::kStateIndication);
  lblVarInfo.SetVisible(shown == signal::kStatusColor);
  txtVarInfo.SetVisible(shown == signal::kStatusColor);
  lblKorlFileSelect.SetVisible(shown == signal::kGeneric);
  cmbKorlFileSelect.SetVisible(shown == signal::kGeneric);
}

int32_t frmDataBrowser::GetDsvMappingCode(const toolkit::DsvRef& dsv) {
  return automation::CLng(ParamValue(DsvParams(dsv), kMappingCodeParam)) & kFieldBits;
}

void frmDataBrowser::SetDsvVarInfo(const toolkit::DsvRef& dsv, const String& text) {
  const toolkit::ParamListRef params = DsvParams(dsv);
  scada::modSADataSources::EnsureParamCount(params, kVarInfoParam);
  Obj(params->ParamItem(kVarInfoParam)).SetParamValue(toolkit::paramtype::kText, text);
}

bool frmDataBrowser::ApplyDsvMapping(const toolkit::DsvRef& dsv) {
  const int32_t applicationNr = GetDsApplicationNr(Obj(dsv).GetDsvParent());
  txtTelvaneObjectReference.SetText(automation::UCase(txtTelvaneObjectReference.Text()));
  const int32_t signalType = GetSignalType();
  const int32_t code = EncodeMapping(signalType, GetSwapOption());

  bool applied = false;
  const toolkit::ParamListRef params = DsvParams(dsv);
  String itemId;
  if (BuildItemId(txtTelvaneObjectReference.Text(), applicationNr, itemId)) {
    scada::modSADataSources::EnsureParamCount(params, kMappingCodeParam);
    Obj(params->ParamItem(kItemIdParam)).SetParamValue(toolkit::paramtype::kText, itemId);
    Obj(params->ParamItem(kMappingCodeParam)).SetParamValue(toolkit::paramtype::kNumber, static_cast<double>(code));
    applied = true;
  }
  // The colour indexes and the script file are stored even for a bad reference.
  if (signalType == signal::kStatusColor) SetDsvVarInfo(dsv, txtVarInfo.Text());
  scada::modSADataSources::EnsureParamCount(params, kScriptFileParam);
  Obj(params->ParamItem(kScriptFileParam)).SetParamValue(toolkit::paramtype::kText, cmbKorlFileSelect.Text());
  return applied;
}

void frmDataBrowser::FillTelvaneDsvPanel(const toolkit::DsvRef& dsv) {
  PanelFilling = true;
  const toolkit::ParamListRef params = DsvParams(dsv);
  txtTelvaneObjectReference.SetText(ReferenceOf(ParamValue(params, kItemIdParam)));
  const int32_t code = automation::CLng(ParamValue(params, kMappingCodeParam));
  FilledSignalType = DecodeSignalType(code);
  cboTelvaneSignalType.SetListIndex(FilledSignalType < cboTelvaneSignalType.ListCount() ? FilledSignalType : -1);
  SetSwapOption(DecodeSwap(code));
  const String varInfo = automation::CStr(ParamValue(params, kVarInfoParam));
  txtVarInfo.SetText(varInfo);
  txtVarInfo.SetTag(varInfo);
  FillKorlFileList(dsv, automation::CStr(ParamValue(params, kScriptFileParam)));
  ShowSignalTypeControls();
  UpdateTelvaneDsvButtons(false);
  PanelFilling = false;
}

void frmDataBrowser::UpdateTelvaneDsvButtons(bool applyNow) {
  const toolkit::ParamListRef params = DsvParams(SelectedNodeDsv());
  const int32_t code = automation::CLng(ParamValue(params, kMappingCodeParam));
  // The reference and the script file name ignore case, the colour indexes do not.
  const bool differs =
      !automation::EqualsIgnoreCase(txtTelvaneObjectReference.Text(), ReferenceOf(ParamValue(params, kItemIdParam))) ||
      GetSignalType() != DecodeSignalType(code) || GetSwapOption() != DecodeSwap(code) ||
      txtVarInfo.Text() != txtVarInfo.Tag() ||
      !automation::EqualsIgnoreCase(cmbKorlFileSelect.Text(), automation::CStr(ParamValue(params, kScriptFileParam)));
  cmdTelvaneDsvApply.SetEnabled(differs);
  cmdTelvaneDsvUndo.SetEnabled(differs);
  const bool swaps = GetSignalType() == signal::kStateIndication;
  optTelvaneSwap01.SetEnabled(swaps);
  optTelvaneSwap12.SetEnabled(swaps);
  optTelvaneSwapNone.SetEnabled(swaps);
  ShowSignalTypeControls();
  if (differs && applyNow) cmdTelvaneDsvApply_Click();
}

}  // namespace vd::browser
