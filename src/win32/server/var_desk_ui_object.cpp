#include "server/var_desk_ui_object.h"

#include <windows.h>

#include <olectl.h>

#include "com/bstr.h"
#include "convert/object_convert.h"
#include "dispatch/adapt.h"

namespace vd::win32 {
namespace {

constexpr wchar_t kSource[] = L"VarDeskGUI.VarDeskUI";

template <class Body>
HRESULT Boundary(Body&& body) noexcept {
  return ComBoundary(kSource, IID__VarDeskUI, std::forward<Body>(body));
}

// Releases the reference a by-reference slot holds when the call ends.
class SlotReference {
 public:
  explicit SlotReference(IDispatch*& slot) : slot_(slot) {}
  SlotReference(const SlotReference&) = delete;
  SlotReference& operator=(const SlotReference&) = delete;
  ~SlotReference() {
    if (slot_) slot_->Release();
  }

 private:
  IDispatch*& slot_;
};

}  // namespace

VarDeskUIObject::VarDeskUIObject(std::unique_ptr<UiCore> core)
    : events_(static_cast<IConnectionPointContainer*>(this), DIID___VarDeskUI), core_(std::move(core)) {
  core_->onEditCustomDs = [this](automation::ObjectRef& obj) { RaiseObjectEvent(kEditCustomDsEvent, obj); };
  core_->onEditCustomDsv = [this](automation::ObjectRef& obj) { RaiseObjectEvent(kEditCustomDsvEvent, obj); };
}

// The form goes first, then the connections.
VarDeskUIObject::~VarDeskUIObject() {
  core_.reset();
  events_.DisconnectAll();
}

ComPtr<_VarDeskUI> VarDeskUIObject::CreateWithCore(std::unique_ptr<UiCore> core) {
  return ComPtr<_VarDeskUI>::Attach(new VarDeskUIObject(std::move(core)));
}

HRESULT VarDeskUIObject::IsModified(VARIANT_BOOL* modified) noexcept {
  if (!modified) return E_POINTER;
  *modified = VARIANT_FALSE;
  return Boundary([&] { *modified = core_->IsModified() ? VARIANT_TRUE : VARIANT_FALSE; });
}

HRESULT VarDeskUIObject::EditDataSources(IDispatch* display) noexcept {
  ComPtr<IUnknown> keepAlive(static_cast<_VarDeskUI*>(this));  // a sink may drop the host's reference
  return Boundary([&] { core_->EditDataSources(AdaptAs<toolkit::Display>(display)); });
}

HRESULT VarDeskUIObject::SelectDataVar(IDispatch* display, LONG context, LONG dsvType, LONG rows, LONG cols,
                                       IDispatch** selected) noexcept {
  if (!selected) return E_POINTER;
  *selected = nullptr;
  ComPtr<IUnknown> keepAlive(static_cast<_VarDeskUI*>(this));
  return Boundary([&] {
    toolkit::DsvRef dsv = core_->SelectDataVar(AdaptAs<toolkit::Display>(display), context, dsvType, rows, cols);
    *selected = DispatchFromObject(dsv).Detach();
  });
}

HRESULT VarDeskUIObject::get_HelpFile(BSTR* path) noexcept {
  if (!path) return E_POINTER;
  *path = nullptr;
  return Boundary([&] { *path = Bstr(core_->HelpFile()).Detach(); });
}

HRESULT VarDeskUIObject::put_HelpFile(BSTR path) noexcept {
  return Boundary([&] { core_->SetHelpFile(ToString(path)); });
}

HRESULT VarDeskUIObject::SetCommunication(IDispatch* comm) {
  return Boundary([&] { core_->SetCommunication(AdaptAs<toolkit::Communication>(comm)); });
}

HRESULT VarDeskUIObject::putref_Communication(IDispatch* comm) noexcept { return SetCommunication(comm); }
HRESULT VarDeskUIObject::put_Communication(IDispatch* comm) noexcept { return SetCommunication(comm); }

// The object handed in is kept by the form only; reading gives Nothing.
HRESULT VarDeskUIObject::get_Communication(IDispatch** comm) noexcept {
  if (!comm) return E_POINTER;
  *comm = nullptr;
  return S_OK;
}

HRESULT VarDeskUIObject::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
  return EnumerateConnectionPoints(this, &events_, points);
}

HRESULT VarDeskUIObject::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
  if (!point) return E_POINTER;
  *point = nullptr;
  if (!IsEqualIID(iid, events_.EventIid())) return CONNECT_E_NOCONNECTION;
  events_.AddRef();
  *point = &events_;
  return S_OK;
}

HRESULT VarDeskUIObject::GetClassInfo(ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  return ContainOr(TYPE_E_CANTLOADLIBRARY, [&] {
    *info = ModuleTypeInfo(CLSID_VarDeskUI).Detach();
    return S_OK;
  });
}

HRESULT VarDeskUIObject::GetGUID(DWORD kind, GUID* guid) noexcept {
  if (!guid) return E_POINTER;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) {
    *guid = GUID_NULL;
    return E_INVALIDARG;
  }
  *guid = DIID___VarDeskUI;
  return S_OK;
}

HRESULT VarDeskUIObject::InterfaceSupportsErrorInfo(REFIID iid) noexcept {
  return IsEqualIID(iid, IID__VarDeskUI) ? S_OK : S_FALSE;
}

void VarDeskUIObject::RaiseObjectEvent(DISPID event, automation::ObjectRef& obj) {
  ComPtr<IUnknown> keepAlive(static_cast<_VarDeskUI*>(this));
  ComPtr<IDispatch> original = DispatchFromObject(obj);
  IDispatch* slot = ComPtr<IDispatch>(original).Detach();
  SlotReference slotReference(slot);
  VARIANT arg;
  VariantInit(&arg);
  arg.vt = VT_BYREF | VT_DISPATCH;
  arg.ppdispVal = &slot;
  events_.Fire(event, &arg, 1);
  if (slot != original.Get()) obj = AdaptLike(obj, slot);
}

}  // namespace vd::win32
