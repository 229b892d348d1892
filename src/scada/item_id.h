#pragma once
// The OPC item id of a mapped variable and the object reference the user types
// for it. A reference is "LN:" + a one-letter object kind + the rest; the kind
// decides the form of the id:
//   B         "\\" + LN + ["\" + digits] + ":" + rest          (no application)
//   S and D   "\\APL\<app>\K\LN:" + attribute + "(" + index + ")"
//   others    "\\APL\<app>\K\LN" + ["\" + index] + [":" + attribute]
#include <cstdint>

#include "vd/automation/string.h"

namespace vd::scada {

using automation::String;

// The item id of the reference (upper-cased first) in the application; false
// when the reference has no ":", no kind letter or an empty logical name.
bool BuildItemId(const String& objectReference, int32_t applicationNr, String& itemId);
// The upper-case reference back from an item id, parentheses dropped; false
// when the id is not of either form.
bool ParseItemId(const String& itemId, String& objectReference);
// Puts the application number into an id of the "\\APL\<app>\" form; false,
// and the id untouched, for any other id.
bool SetItemIdApplication(String& itemId, int32_t applicationNr);

}  // namespace vd::scada
