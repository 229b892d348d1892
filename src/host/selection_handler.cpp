#include "host/selection_handler.h"

namespace vd::host {

automation::Variant SelectionHandler::SetSelectedVariable(const automation::ObjectRef& var) {
  automation::Variant held(var);
  held = automation::Variant();
  return {};
}

toolkit::DsvRef SelectionHandler::GetSelectedVariable() {
  const automation::Variant nothing;
  return nothing.ObjectAs<toolkit::Dsv>();
}

}  // namespace vd::host
