#include "expose/exposed_object.h"

#include <mutex>
#include <unordered_map>

#include "com/bstr.h"
#include "convert/error_convert.h"
#include "convert/variant_convert.h"
#include "server/com_object.h"

namespace vd::win32 {
namespace {

// The live exposed objects of this module, by target and by IDispatch.
struct Registry {
  std::mutex mutex;
  std::unordered_map<const automation::Object*, ExposedObject*> byTarget;
  std::unordered_map<const IUnknown*, ExposedObject*> byDispatch;
};

Registry& TheRegistry() {
  static Registry* registry = new Registry;  // exposed objects may be released during shutdown
  return *registry;
}

constexpr wchar_t kSource[] = L"VarDeskGUI";

}  // namespace

ExposedObject::ExposedObject(automation::ObjectRef target) : target_(std::move(target)) {}
ExposedObject::~ExposedObject() = default;

HRESULT ExposedObject::QueryInterface(REFIID iid, void** out) noexcept {
  return QueryFromTable<IDispatch>(this, iid, out);
}

ULONG ExposedObject::AddRef() noexcept { return ++refs_; }

ULONG ExposedObject::Release() noexcept {
  Registry& registry = TheRegistry();
  {
    std::lock_guard lock(registry.mutex);
    ULONG left = --refs_;
    if (left != 0) return left;
    auto byTarget = registry.byTarget.find(target_.get());
    if (byTarget != registry.byTarget.end() && byTarget->second == this) registry.byTarget.erase(byTarget);
    registry.byDispatch.erase(static_cast<IDispatch*>(this));
  }
  delete this;
  return 0;
}

HRESULT ExposedObject::GetTypeInfoCount(UINT* count) noexcept {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT ExposedObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
  if (info) *info = nullptr;
  return TYPE_E_ELEMENTNOTFOUND;
}

HRESULT ExposedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
  if (!names || !ids) return E_POINTER;
  if (count == 0) return S_OK;
  HRESULT hr = HResultBoundary([&] {
    auto found = FindMember(FromWide(names[0]));
    ids[0] = found.value_or(DISPID_UNKNOWN);
    return found ? S_OK : DISP_E_UNKNOWNNAME;
  });
  if (FAILED(hr) && hr != DISP_E_UNKNOWNNAME) return hr;
  // Named arguments are not supported.
  for (UINT i = 1; i < count; ++i) {
    ids[i] = DISPID_UNKNOWN;
    hr = DISP_E_UNKNOWNNAME;
  }
  return hr;
}

HRESULT ExposedObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                              EXCEPINFO* exception, UINT*) noexcept {
  if (!params) return E_POINTER;
  if (params->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
  if (!(flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET))) return DISP_E_MEMBERNOTFOUND;
  ComPtr<IDispatch> keepAlive(this);  // a member may drop the caller's last other reference
  return InvokeBoundary(kSource, exception, [&] {
    InvokeArgs args(*params);
    std::optional<automation::Variant> value = InvokeMember(id, args);
    if (!value) return DISP_E_MEMBERNOTFOUND;
    if (result) ToVariant(*value, *result);
    return S_OK;
  });
}

ExposedObject* FindExposed(IDispatch* dispatch) {
  if (!dispatch) return nullptr;
  ComPtr<IUnknown> identity = Identity(dispatch);
  Registry& registry = TheRegistry();
  std::lock_guard lock(registry.mutex);
  auto found = registry.byDispatch.find(identity.Get());
  return found == registry.byDispatch.end() ? nullptr : found->second;
}

ComPtr<IDispatch> FindExposedFor(const automation::Object* target) {
  Registry& registry = TheRegistry();
  std::lock_guard lock(registry.mutex);
  auto found = registry.byTarget.find(target);
  if (found == registry.byTarget.end()) return nullptr;
  return ComPtr<IDispatch>(found->second);
}

ComPtr<IDispatch> FindOrAdopt(ExposedObject* created) {
  Registry& registry = TheRegistry();
  {
    std::lock_guard lock(registry.mutex);
    auto found = registry.byTarget.find(created->target_.get());
    if (found == registry.byTarget.end()) {
      registry.byTarget.emplace(created->target_.get(), created);
      registry.byDispatch.emplace(static_cast<IDispatch*>(created), created);
      return ComPtr<IDispatch>::Attach(created);
    }
    ComPtr<IDispatch> live(found->second);
    // Dropped outside the lock below; it was never registered.
    created->refs_ = 0;
    delete created;
    return live;
  }
}

}  // namespace vd::win32
