// Requests to the SCADA system and the parameter lists of SCADA objects.
#include "scada/sa_data_sources.h"

#include <exception>

#include "vd/automation/conversions.h"
#include "vd/automation/error.h"

namespace vd::scada::modSADataSources {
namespace {

constexpr char16_t kLf = u'\n';

template <class T>
T& Obj(const std::shared_ptr<T>& ref) {
  if (!ref) automation::Raise(automation::err::kObjectNotSet);
  return *ref;
}

toolkit::ParamListRef ParamsOf(const toolkit::DsRef& ds) {
  const toolkit::CustomDsRef custom = Obj(ds).AsCustom();
  if (!custom) automation::Raise(automation::err::kTypeMismatch);
  return custom->GetParams();
}

}  // namespace

int16_t RunKorlRequest(const toolkit::CommunicationRef& comm, const String& request, Variant& result) noexcept {
  try {
    result = Variant();
    Obj(comm).ExecuteKorl(request, result);
    return 0;
  } catch (...) {
    return 1;  // reporting is the caller's business
  }
}

String ApplicationPathRequest() {
  return String(u"@path1=path(\"APL_\")") + kLf + u"@path1 =%path1(1)" + kLf +
         u"#return substr(%path1,1,length(%path1)-4)";
}

String GetApplicationPath(const toolkit::CommunicationRef& comm, int32_t applicationNr, forms::UiServices& ui) {
  if (!comm) return {};
  try {
    Variant result;
    RunKorlRequest(comm, ApplicationPathRequest(), result);
    return automation::CStr(result);
  } catch (const automation::AutomationError& e) {
    const String text = String(u"Could not find application path. ") + kLf +
                        u"Possibly Telvane is down or application number does not exist. " + kLf +
                        u"Requested application number was " + automation::ToDecimal(applicationNr) + kLf +
                        u"VB error description: \"" + e.Description() + u"\" (" + automation::ToDecimal(e.Number()) +
                        u")";
    ui.MsgBox(text, forms::vbOKOnly + forms::vbCritical, std::nullopt);
    return {};
  }
}

bool IsTelvaneDataSource(const toolkit::DsRef& ds) {
  if (Obj(ds).GetDsType() != toolkit::kind::kCustom) return false;
  const toolkit::ParamListRef params = ParamsOf(ds);
  if (Obj(params).ParamCount() < 2) return false;
  const toolkit::ParamRef first = params->ParamItem(1);
  if (Obj(first).GetParamType() != toolkit::paramtype::kText) return false;
  const Variant value = first->GetParamValue();
  return value.Type() == automation::VarType::kString && value.AsString() == kTelvaneDsMarker;
}

void EnsureParamCount(const toolkit::ParamListRef& list, int16_t count) {
  while (Obj(list).ParamCount() < count) list->AddParam();
}

void EnsureDsParamCount(const toolkit::DsRef& ds, int16_t count) {
  for (;;) {
    const toolkit::ParamListRef list = ParamsOf(ds);
    if (Obj(list).ParamCount() >= count) return;
    list->AddParam();
  }
}

}  // namespace vd::scada::modSADataSources
