#pragma once
// The toolkit's and the communication object's C++ implementations offered to
// COM clients under the operations' own names, so that a host written in C++
// (or the embedded sample) can hand its objects through COM.
#include <windows.h>

#include <oaidl.h>

#include "com/com_ptr.h"
#include "vd/automation/object.h"

namespace vd::win32 {

// The IDispatch over the object: the members of the toolkit interface it
// implements (a custom data source or variable also answers GetParams and
// GetDsvAccess); an object of no known interface has no members.
ComPtr<IDispatch> ExposeObject(const automation::ObjectRef& object);

}  // namespace vd::win32
