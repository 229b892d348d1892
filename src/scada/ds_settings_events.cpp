// What the user does in a SCADA data source's settings frame. Choosing an
// application applies it at once; the handlers ignore what a fill or the
// rebuild of the application list does to the combo.
#include <exception>
#include <initializer_list>

#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "platform/services.h"
#include "vd/automation/conversions.h"
#include "vd/automation/numeric.h"

namespace vd::browser {
namespace {
constexpr int16_t kHourglass = 11;
constexpr int16_t kDefaultPointer = 0;
}  // namespace

void frmDataBrowser::WireScadaEvents() {
  cboTelvaneApplication.onClick = [this] { cboTelvaneApplication_Click(); };
  cboTelvaneApplication.onChange = [this] { cboTelvaneApplication_Change(); };
  cboTelvaneApplication.onDropDown = [this] { cboTelvaneApplication_DropDown(); };
  cmdTelvaneDsApply.onClick = [this] { cmdTelvaneDsApply_Click(); };
  Command1.onClick = [this] { Command1_Click(); };

  txtTelvaneObjectReference.onChange = [this] {
    if (!PanelFilling) UpdateTelvaneDsvButtons(false);
  };
  txtTelvaneObjectReference.onLostFocus = [this] {
    if (!PanelFilling) UpdateTelvaneDsvButtons(true);
  };
  cmbKorlFileSelect.onChange = [this] { cmbKorlFileSelect_Change(); };
  cmbKorlFileSelect.onClick = [this] { cmbKorlFileSelect_Click(); };
  cmbKorlFileSelect.onLostFocus = [this] {
    if (!PanelFilling) UpdateTelvaneDsvButtons(true);
  };
  for (forms::Control* control : std::initializer_list<forms::Control*>{&cboTelvaneSignalType, &optTelvaneSwap01,
                                                                        &optTelvaneSwap12, &optTelvaneSwapNone}) {
    control->onClick = [this] {
      if (!PanelFilling) UpdateTelvaneDsvButtons(true);
    };
  }
  // Every keystroke of the colour indexes is stored.
  txtVarInfo.onChange = [this] {
    if (!PanelFilling) UpdateTelvaneDsvButtons(true);
  };
  cmdTelvaneDsvApply.onClick = [this] { cmdTelvaneDsvApply_Click(); };
  cmdTelvaneDsvUndo.onClick = [this] { cmdTelvaneDsvUndo_Click(); };
  cmdTelvaneDsvValidate.onClick = [this] { cmdTelvaneDsvValidate_Click(); };
  lblObjectReference.onClick = [this] { lblObjectReference_Click(); };
}

void frmDataBrowser::LoadApplications() {
  if (!communication) return;
  LoadingApplications = true;
  try {
    const String text = cboTelvaneApplication.Text();
    cboTelvaneApplication.Clear();
    cboTelvaneApplication.SetText(text);
    Variant names;
    Variant numbers;
    communication->GetApplications(names, numbers);
    const automation::Array& numberList = numbers.AsArray();
    const automation::Array& nameList = names.AsArray();
    // The entries in the order the SCADA system gives them, from each array's lower bound.
    for (int32_t i = numberList.lowerBound; i <= numberList.UpperBound(); ++i) {
      const int32_t position = i - nameList.lowerBound;
      if (position < 0 || position >= static_cast<int32_t>(nameList.items.size())) {
        automation::Raise(automation::err::kSubscriptOutOfRange);
      }
      cboTelvaneApplication.AddItem(automation::CStr(numberList.items[static_cast<size_t>(i - numberList.lowerBound)]) +
                                    u" - " + automation::CStr(nameList.items[static_cast<size_t>(position)]));
    }
  } catch (const std::exception&) {
    LoadingApplications = false;
    services.ui.MsgBox(u"Unable to load applications", forms::vbOKOnly, std::nullopt);
    return;
  }
  LoadingApplications = false;
}

void frmDataBrowser::cboTelvaneApplication_Click() {
  if (LoadingApplications || PanelFilling) return;
  UpdateDsApplyButton(GetCurrentDs(), true);
}

void frmDataBrowser::cboTelvaneApplication_Change() { cboTelvaneApplication_Click(); }

void frmDataBrowser::cboTelvaneApplication_DropDown() { LoadApplications(); }

void frmDataBrowser::cmdTelvaneDsApply_Click() {
  SetMousePointer(kHourglass);
  const bool ok = SetDsApplicationNr(GetCurrentDs(), GetSelectedApplicationNr());
  SetDsBlinkPeriod(GetCurrentDs(), automation::RoundToLong(automation::Val(txtBlinkPeriod.Text())));
  // A fractional or non-numeric entry is shown as it was stored.
  txtBlinkPeriod.SetText(automation::ToDecimal(GetDsBlinkPeriod(GetCurrentDs())));
  UpdateDsApplyButton(GetCurrentDs(), false);
  SetMousePointer(kDefaultPointer);
  if (!ok) {
    ShowEntryMessage(u"Could not update the application nr for all data variables");
  }
  modified = true;
}

}  // namespace vd::browser
