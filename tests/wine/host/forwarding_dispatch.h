#pragma once
// Test-only: an IDispatch that forwards to another one, so that an object this
// module exposed reaches the adapters as a stranger's object would (a new
// identity, no unwrapping). Objects it returns are forwarded likewise. It can
// answer names only through IDispatchEx, as script class instances do, and
// can claim a type GUID so that DISPIDs are shared per type.
#include <windows.h>

#include <dispex.h>

#include <memory>

#include "com/com_ptr.h"

namespace vd::testhost {

enum class NameLookup { kGetIDsOfNames, kDispatchExOnly };

struct LookupCounts {
  int getIDsOfNames = 0;  // calls that reached the target
  int getDispID = 0;
  int invoke = 0;
};

// typeGuid: GUID_NULL for no type info, else one of the component's type
// library (only its GUID matters). Returned objects get no type info.
win32::ComPtr<IDispatch> Forward(IDispatch* target, NameLookup lookup, const GUID& typeGuid,
                                 std::shared_ptr<LookupCounts> counts);

}  // namespace vd::testhost
