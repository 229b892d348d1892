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

// --- The rescan of item offsets (sa_offsets.cpp) ---

// The control object that every offsets request addresses.
inline constexpr char16_t kOffsetsControlObject[] = u"BGU_CONTROL:CCP";
// The offsets text stored for an answer without offsets.
inline constexpr char16_t kNoOffsets[] = u"0,0,0";
// Runs one KORL request in application applicationNr: 0 when it came back, 1
// when the call raised (or there is no object), with result as far as the
// call left it. Never raises.
int16_t RunKorlRequestInApp(const toolkit::CommunicationRef& comm, int16_t applicationNr, const String& request,
                            Variant& result) noexcept;
// #return do(BGU_CONTROL:CCP, ("<name>",<index>),"GET_OFFSETS")
String OffsetsRequest(const String& objectName, int32_t index);
// Asks the SCADA system for the offsets of a status colour variable (signal
// type 1) and stores them as its parameter 4; grows every variable's list to
// 4 entries first. Nothing at all without an object. An item id that does
// not name an application, an object and a numeric index raises; what fails
// after that (the request, storing the answer) only ends this variable.
void UpdateDsvOffsets(const toolkit::CommunicationRef& comm, const toolkit::DsvRef& dsv);

}  // namespace vd::scada::modSADataSources
