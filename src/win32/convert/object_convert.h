#pragma once
// Objects across the COM boundary. An object that came in through COM goes back
// out as the very IDispatch it came from; an object of this module's own goes
// out as a dispatch object over it and comes back as itself.
#include <windows.h>

#include <oaidl.h>

#include "com/com_ptr.h"
#include "vd/automation/object.h"

namespace vd::win32 {

// The IDispatch standing for the object (nullptr for Nothing).
ComPtr<IDispatch> DispatchFromObject(const automation::ObjectRef& object);
// The object standing for the IDispatch (nullptr for Nothing): this module's
// own object when it exposed it, otherwise a plain dispatch object.
automation::ObjectRef ObjectFromDispatch(IDispatch* dispatch);

}  // namespace vd::win32
