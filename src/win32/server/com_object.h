#pragma once
// The one base of the component's COM objects: QueryInterface from the list of
// interfaces the object implements, the reference count (which also keeps the
// module alive, RefCount), and deletion on the last Release.
//
//   class Thing final : public ComObject<Thing, DualDispatch<_Thing>, ISupportErrorInfo> {
//     friend ComObject;  // Release deletes a Thing
//     ...
//   };
#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>

#include <new>
#include <type_traits>
#include <utility>

#include "convert/error_convert.h"
#include "server/ref_count.h"

namespace vd::win32 {

// The COM interface a base of an object stands for: the base itself, or the
// interface an implementation helper (DualDispatch<I>) names as Interface.
template <class Base, class = void>
struct InterfaceOf {
  using Type = Base;
};
template <class Base>
struct InterfaceOf<Base, std::void_t<typename Base::Interface>> {
  using Type = typename Base::Interface;
};

// Whether a base answers iid: its own interface and the interfaces it extends
// that a client may ask for (IDispatch of a dual interface, IProvideClassInfo
// of IProvideClassInfo2).
template <class Base>
bool Answers(REFIID iid) noexcept {
  using I = typename InterfaceOf<Base>::Type;
  if (IsEqualIID(iid, __uuidof(I))) return true;
  if constexpr (std::is_base_of_v<IDispatch, I>) {
    if (IsEqualIID(iid, IID_IDispatch)) return true;
  }
  if constexpr (std::is_base_of_v<IProvideClassInfo, I>) {
    if (IsEqualIID(iid, IID_IProvideClassInfo)) return true;
  }
  return false;
}

// QueryInterface over a list of bases of self; IUnknown is the first one.
template <class First, class... Rest, class Self>
HRESULT QueryFromTable(Self* self, REFIID iid, void** out) noexcept {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (IsEqualIID(iid, IID_IUnknown) || Answers<First>(iid)) {
    *out = static_cast<First*>(self);
  } else {
    (void)((Answers<Rest>(iid) && (*out = static_cast<Rest*>(self), true)) || ...);
  }
  if (!*out) return E_NOINTERFACE;
  static_cast<IUnknown*>(static_cast<First*>(self))->AddRef();
  return S_OK;
}

template <class Derived, class... Bases>
class ComObject : public Bases... {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) noexcept override {
    return QueryFromTable<Bases...>(this, iid, out);
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return refs_.Up(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const ULONG left = refs_.Down();
    if (left == 0) delete static_cast<Derived*>(this);
    return left;
  }

  // A new object of the class (reference count 1) queried for iid.
  template <class... Args>
  static HRESULT Make(REFIID iid, void** out, Args&&... args) noexcept {
    if (!out) return E_POINTER;
    *out = nullptr;
    return HResultBoundary([&] {
      Derived* created = new (std::nothrow) Derived(std::forward<Args>(args)...);
      if (!created) return E_OUTOFMEMORY;
      const HRESULT hr = created->QueryInterface(iid, out);
      created->Release();
      return hr;
    });
  }

 protected:
  ComObject() = default;
  ~ComObject() = default;

 private:
  RefCount refs_;
};

}  // namespace vd::win32
