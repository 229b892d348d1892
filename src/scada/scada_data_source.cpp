// Telling a SCADA data source from other custom data sources.
#include "browser/frm_data_browser.h"
#include "browser/object_access.h"

namespace vd::browser {
namespace {
constexpr char16_t kScadaDsMarker[] = u"Telvane DV DataSource";
}  // namespace

bool frmDataBrowser::IsTelvaneDataSource(const toolkit::DsRef& ds) {
  // A custom data source whose first parameter is the marker text; the
  // parameter list is only read, never grown.
  if (Obj(ds).GetDsType() != toolkit::kind::kCustom) return false;
  const toolkit::CustomDsRef custom = ds->AsCustom();
  if (!custom) automation::Raise(automation::err::kTypeMismatch);
  const toolkit::ParamListRef params = custom->GetParams();
  if (Obj(params).ParamCount() < 2) return false;
  const toolkit::ParamRef first = params->ParamItem(1);
  if (Obj(first).GetParamType() != toolkit::paramtype::kText) return false;
  const Variant value = first->GetParamValue();
  return value.Type() == automation::VarType::kString && value.AsString() == kScadaDsMarker;
}

}  // namespace vd::browser
