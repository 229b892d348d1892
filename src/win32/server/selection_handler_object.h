#pragma once
// The COM class SelectionHandler: a get/set pair for a selected variable that
// keeps nothing.
#include <windows.h>

#include <ocidl.h>

#include "VarDeskGUI.h"
#include "server/com_object.h"
#include "server/dual_dispatch.h"

namespace vd::win32 {

class SelectionHandlerObject final
    : public ComObject<SelectionHandlerObject, DualDispatch<_SelectionHandler>, IProvideClassInfo, ISupportErrorInfo> {
  friend ComObject;

 public:
  static HRESULT Create(REFIID iid, void** out) noexcept;

  HRESULT STDMETHODCALLTYPE SetSelectedVariable(IDispatch* var, VARIANT* result) noexcept override;
  HRESULT STDMETHODCALLTYPE GetSelectedVariable(IDispatch** selected) noexcept override;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) noexcept override;

 private:
  SelectionHandlerObject() = default;
  ~SelectionHandlerObject() = default;
};

}  // namespace vd::win32
