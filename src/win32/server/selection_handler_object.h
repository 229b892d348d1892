#pragma once
// The COM class SelectionHandler: a get/set pair for a selected variable that
// keeps nothing.
#include <windows.h>

#include <ocidl.h>

#include "VarDeskGUI.h"
#include "server/dual_dispatch.h"
#include "server/ref_count.h"

namespace vd::win32 {

class SelectionHandlerObject final : public DualDispatch<_SelectionHandler>,
                                     public IProvideClassInfo,
                                     public ISupportErrorInfo {
 public:
  static HRESULT Create(REFIID iid, void** out) noexcept;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return refs_.Up(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override;

  HRESULT STDMETHODCALLTYPE SetSelectedVariable(IDispatch* var, VARIANT* result) noexcept override;
  HRESULT STDMETHODCALLTYPE GetSelectedVariable(IDispatch** selected) noexcept override;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) noexcept override;

 private:
  SelectionHandlerObject() = default;
  ~SelectionHandlerObject() = default;
  RefCount refs_;
};

}  // namespace vd::win32
