#include "convert/object_convert.h"

#include "dispatch/dispatch_holder.h"
#include "expose/exposed_object.h"
#include "expose/toolkit_exposers.h"

namespace vd::win32 {

ComPtr<IDispatch> DispatchFromObject(const automation::ObjectRef& object) {
  if (!object) return nullptr;
  if (auto* holder = dynamic_cast<DispatchHolder*>(object.get())) return ComPtr<IDispatch>(holder->Dispatch());
  return ExposeObject(object);
}

automation::ObjectRef ObjectFromDispatch(IDispatch* dispatch) {
  if (!dispatch) return nullptr;
  if (ExposedObject* own = FindExposed(dispatch)) return own->Target();
  return std::make_shared<PlainDispatchObject>(ComPtr<IDispatch>(dispatch));
}

}  // namespace vd::win32
