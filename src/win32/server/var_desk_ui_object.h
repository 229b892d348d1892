#pragma once
// The COM class VarDeskUI: the dual interface _VarDeskUI over one UiCore, and
// the events EditCustomDs / EditCustomDsv through a connection point.
#include <windows.h>

#include <ocidl.h>

#include <memory>

#include "VarDeskGUI.h"
#include "host/ui_core.h"
#include "server/com_object.h"
#include "server/connection_point.h"
#include "server/dual_dispatch.h"

namespace vd::win32 {

using host::UiCore;

// The core every new VarDeskUI COM object gets: the system's own VarDeskUI over
// the Windows platform of the calling apartment's thread (the component's
// library defines it; see component/default_ui_core.cpp).
std::unique_ptr<UiCore> MakeDefaultUiCore();

// DISPIDs of the source dispinterface __VarDeskUI.
inline constexpr DISPID kEditCustomDsEvent = 1;
inline constexpr DISPID kEditCustomDsvEvent = 2;

class VarDeskUIObject final : public ComObject<VarDeskUIObject, DualDispatch<_VarDeskUI>, IConnectionPointContainer,
                                               IProvideClassInfo2, ISupportErrorInfo> {
  friend ComObject;

 public:
  // The class factory's creation: an object over the default core (defined
  // with MakeDefaultUiCore, in the component's own library).
  static HRESULT Create(REFIID iid, void** out) noexcept;
  // An object over the given core (a host program may bring its own).
  static ComPtr<_VarDeskUI> CreateWithCore(std::unique_ptr<UiCore> core);

  HRESULT STDMETHODCALLTYPE IsModified(VARIANT_BOOL* modified) noexcept override;
  HRESULT STDMETHODCALLTYPE EditDataSources(IDispatch* display) noexcept override;
  HRESULT STDMETHODCALLTYPE SelectDataVar(IDispatch* display, LONG context, LONG dsvType, LONG rows, LONG cols,
                                          IDispatch** selected) noexcept override;
  HRESULT STDMETHODCALLTYPE get_HelpFile(BSTR* path) noexcept override;
  HRESULT STDMETHODCALLTYPE put_HelpFile(BSTR path) noexcept override;
  HRESULT STDMETHODCALLTYPE putref_Communication(IDispatch* comm) noexcept override;
  HRESULT STDMETHODCALLTYPE put_Communication(IDispatch* comm) noexcept override;
  HRESULT STDMETHODCALLTYPE get_Communication(IDispatch** comm) noexcept override;

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) noexcept override;

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) noexcept override;

 private:
  explicit VarDeskUIObject(std::unique_ptr<UiCore> core);
  ~VarDeskUIObject();

  // Raises the event with the object by reference (VT_BYREF|VT_DISPATCH); when
  // a sink replaces it, obj becomes the replacement.
  void RaiseObjectEvent(DISPID event, automation::ObjectRef& obj);
  HRESULT SetCommunication(IDispatch* comm);

  ConnectionPoint events_;
  std::unique_ptr<UiCore> core_;
};

}  // namespace vd::win32
