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
  static HRESULT Create(REFIID iid, void** out);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return refs_.Up(); }
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE SetSelectedVariable(IDispatch* var, VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE GetSelectedVariable(IDispatch** selected) override;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

 private:
  SelectionHandlerObject() = default;
  ~SelectionHandlerObject() = default;
  RefCount refs_;
};

}  // namespace vd::win32
