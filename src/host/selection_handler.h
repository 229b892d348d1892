#pragma once
// A get/set pair for a selected variable that keeps no state: what is set is
// never seen again.
#include "vd/automation/object.h"
#include "vd/automation/variant.h"
#include "vd/toolkit/toolkit.h"

namespace vd::host {

class SelectionHandler {
 public:
  // Takes the object and lets it go again; answers Empty.
  automation::Variant SetSelectedVariable(const automation::ObjectRef& var);
  // Always nullptr.
  toolkit::DsvRef GetSelectedVariable();
};

}  // namespace vd::host
