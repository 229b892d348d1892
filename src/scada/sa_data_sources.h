#pragma once
// The thin layer between the SCADA frames and the SCADA system's
// communication object, and the growing of custom parameter lists.
#include <cstdint>

#include "vd/automation/string.h"
#include "vd/automation/variant.h"
#include "vd/forms/ui_services.h"
#include "vd/toolkit/communication.h"
#include "vd/toolkit/toolkit.h"

namespace vd::scada::modSADataSources {

using automation::String;
using automation::Variant;

// The marker text of parameter 1 of a SCADA data source.
inline constexpr char16_t kTelvaneDsMarker[] = u"Telvane DV DataSource";

// Runs one KORL request: 0 when it came back, 1 on any failure (no object, a
// raising call), with result as far as the call left it. Never raises.
int16_t RunKorlRequest(const toolkit::CommunicationRef& comm, const String& request, Variant& result) noexcept;
// The request for the applications' root directory: three lines joined by LF.
String ApplicationPathRequest();
// The applications' root directory as the running system answers it; "" when
// there is no object or the request fails. A result that does not read as
// text shows the critical message (default title) and gives "".
String GetApplicationPath(const toolkit::CommunicationRef& comm, int32_t applicationNr, forms::UiServices& ui);
// Whether the data source is of the custom kind and carries the marker as its
// first of at least two parameters. Only reads the list.
bool IsTelvaneDataSource(const toolkit::DsRef& ds);
// Appends parameters until the list holds at least count entries.
void EnsureParamCount(const toolkit::ParamListRef& list, int16_t count);
// The same on a data source's list, fetched afresh on every pass.
void EnsureDsParamCount(const toolkit::DsRef& ds, int16_t count);

}  // namespace vd::scada::modSADataSources
