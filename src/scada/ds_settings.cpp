// The SCADA settings frame of a data source: its application and the blink
// period of blinking colours, read from the data source's parameters 2 and 3.
#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "platform/services.h"
#include "scada/item_id.h"
#include "scada/sa_data_sources.h"
#include "vd/automation/conversions.h"
#include "vd/automation/numeric.h"

namespace vd::browser {
namespace {

constexpr int16_t kApplicationParam = 2;
constexpr int16_t kBlinkPeriodParam = 3;
constexpr int16_t kItemIdParam = 2;

toolkit::ParamListRef DsParams(const toolkit::DsRef& ds) {
  const toolkit::CustomDsRef custom = Obj(ds).AsCustom();
  if (!custom) automation::Raise(automation::err::kTypeMismatch);
  return custom->GetParams();
}

}  // namespace

void frmDataBrowser::FillTelvaneDsPanel(const toolkit::DsRef& ds) {
  // The data source panel has shown the frame and the kind text; the combo
  // shows the bare number, not a list entry.
  cboTelvaneApplication.SetText(automation::ToDecimal(GetDsApplicationNr(ds)));
  txtBlinkPeriod.SetText(automation::ToDecimal(GetDsBlinkPeriod(ds)));
  UpdateDsApplyButton(ds, false);
}

int32_t frmDataBrowser::GetDsApplicationNr(const toolkit::DsRef& ds) {
  return automation::CLng(Obj(Obj(DsParams(ds)).ParamItem(kApplicationParam)).GetParamValue());
}

int32_t frmDataBrowser::GetDsBlinkPeriod(const toolkit::DsRef& ds) {
  const toolkit::ParamListRef params = DsParams(ds);
  if (Obj(params).ParamCount() < kBlinkPeriodParam) return 0;
  return automation::CLng(Obj(params->ParamItem(kBlinkPeriodParam)).GetParamValue());
}

void frmDataBrowser::SetDsBlinkPeriod(const toolkit::DsRef& ds, int32_t period) {
  scada::modSADataSources::EnsureDsParamCount(ds, kBlinkPeriodParam);
  Obj(Obj(DsParams(ds)).ParamItem(kBlinkPeriodParam))
      .SetParamValue(toolkit::paramtype::kNumber, static_cast<double>(period));
}

bool frmDataBrowser::SetDsApplicationNr(const toolkit::DsRef& ds, int32_t applicationNr) {
  Obj(Obj(DsParams(ds)).ParamItem(kApplicationParam))
      .SetParamValue(toolkit::paramtype::kNumber, static_cast<double>(applicationNr));
  try {
    const toolkit::DsvListRef variables = ds->GetDsVars();
    const int16_t count = ToInteger(Obj(variables).DsvCount());
    for (int16_t i = 1; i <= count; ++i) SetDsvItemIdApplication(variables->DsvItem(i), applicationNr);
  } catch (const automation::AutomationError&) {
    return false;  // the variables before this one stay rewritten
  }
  return true;
}

void frmDataBrowser::SetDsvItemIdApplication(const toolkit::DsvRef& dsv, int32_t applicationNr) {
  const toolkit::CustomDsvRef custom = Obj(dsv).AsCustom();
  if (!custom) automation::Raise(automation::err::kTypeMismatch);
  const toolkit::ParamListRef params = custom->GetParams();
  // An unmapped variable may have no item id at all.
  if (Obj(params).ParamCount() < kItemIdParam) return;
  const toolkit::ParamRef param = params->ParamItem(kItemIdParam);
  String itemId = automation::CStr(Obj(param).GetParamValue());
  if (scada::SetItemIdApplication(itemId, applicationNr)) param->SetParamValue(toolkit::paramtype::kText, itemId);
}

int32_t frmDataBrowser::GetSelectedApplicationNr() {
  const double value = automation::Val(cboTelvaneApplication.Text());
  int32_t number = 0;
  try {
    number = automation::RoundToLong(value);
  } catch (const automation::AutomationError&) {
    return 0;  // beyond a Long: no application
  }
  return number < 1 ? 0 : number;
}

toolkit::DsRef frmDataBrowser::GetCurrentDs() {
  const int16_t index = GetCurrentDsIndex();
  if (index <= 0) return nullptr;
  return Obj(dsList).DsItem(index);
}

void frmDataBrowser::UpdateDsApplyButton(const toolkit::DsRef& /*ds*/, bool applyNow) {
  cmdTelvaneDsApply.SetEnabled(GetSelectedApplicationNr() != 0);
  if (cmdTelvaneDsApply.Enabled() && applyNow) cmdTelvaneDsApply_Click();
}

void frmDataBrowser::SetMousePointer(int16_t pointer) { services.ui.SetScreenMousePointer(pointer); }

}  // namespace vd::browser
