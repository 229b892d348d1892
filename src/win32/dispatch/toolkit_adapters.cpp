// Adapters from late-bound display objects to the toolkit's interfaces: each
// operation is a call by the operation's own name.
#include <typeindex>

#include "com/com_ptr.h"
#include "convert/object_convert.h"
#include "dispatch/adapt.h"
#include "dispatch/adapter_cache.h"
#include "dispatch/dispatch_caller.h"
#include "dispatch/dispatch_holder.h"
#include "dispatch/results.h"
#include "expose/exposed_object.h"
#include "vd/automation/error.h"

namespace vd::win32 {
namespace {

using automation::String;
using automation::Variant;

// The common part of every adapter: the caller and the IDispatch it holds.
class AdapterBase : public DispatchHolder {
 public:
  explicit AdapterBase(IDispatch* dispatch) : caller_(ComPtr<IDispatch>(dispatch)) {}
  [[nodiscard]] IDispatch* Dispatch() const override { return caller_.Dispatch(); }

 protected:
  DispatchCaller caller_;
};

class ParamAdapter final : public toolkit::Param, public AdapterBase {
 public:
  using AdapterBase::AdapterBase;
  int32_t GetParamType() override { return LongOf(caller_.Call(u"GetParamType")); }
  Variant GetParamValue() override { return ValueOf(caller_.Call(u"GetParamValue")); }
  void SetParamValue(int32_t typeCode, const Variant& value) override {
    caller_.Call(u"SetParamValue", {Variant(typeCode), value});
  }
};

class ParamListAdapter final : public toolkit::ParamList, public AdapterBase {
 public:
  using AdapterBase::AdapterBase;
  int32_t ParamCount() override { return LongOf(caller_.Call(u"ParamCount")); }
  toolkit::ParamRef ParamItem(int16_t index) override {
    return ObjectResult<toolkit::Param>(caller_.Call(u"ParamItem", {Variant(index)}));
  }
  toolkit::ParamRef AddParam() override { return ObjectResult<toolkit::Param>(caller_.Call(u"AddParam")); }
};

class CustomDsAdapter final : public toolkit::CustomDs, public AdapterBase {
 public:
  using AdapterBase::AdapterBase;
  toolkit::ParamListRef GetParams() override { return ObjectResult<toolkit::ParamList>(caller_.Call(u"GetParams")); }
};

class CustomDsvAdapter final : public toolkit::CustomDsv, public AdapterBase {
 public:
  using AdapterBase::AdapterBase;
  toolkit::ParamListRef GetParams() override { return ObjectResult<toolkit::ParamList>(caller_.Call(u"GetParams")); }
  int32_t GetDsvAccess() override { return LongOf(caller_.Call(u"GetDsvAccess")); }
};

class DsAdapter final : public toolkit::Ds, public AdapterBase {
 public:
  using AdapterBase::AdapterBase;
  String GetDsName() override { return TextOf(caller_.Call(u"GetDsName")); }
  void SetDsName(const String& name) override { caller_.Call(u"SetDsName", {Variant(name)}); }
  int32_t GetDsType() override { return LongOf(caller_.Call(u"GetDsType")); }
  toolkit::DsvListRef GetDsVars() override { return ObjectResult<toolkit::DsvList>(caller_.Call(u"GetDsVars")); }
  bool RemoveDs() override { return BooleanOf(caller_.Call(u"RemoveDs")); }
  bool DsMoveUp() override { return BooleanOf(caller_.Call(u"DsMoveUp")); }
  bool DsMoveDown() override { return BooleanOf(caller_.Call(u"DsMoveDown")); }
  bool GetDsAscii() override { return BooleanOf(caller_.Call(u"GetDsAscii")); }
  void SetDsAscii(bool ascii) override { caller_.Call(u"SetDsAscii", {Variant(ascii)}); }
  // A data source is custom when it answers GetParams.
  toolkit::CustomDsRef AsCustom() override {
    return caller_.Has(u"GetParams") ? AdaptAs<toolkit::CustomDs>(Dispatch()) : nullptr;
  }
};

class DsListAdapter final : public toolkit::DsList, public AdapterBase {
 public:
  using AdapterBase::AdapterBase;
  int32_t DsCount() override { return LongOf(caller_.Call(u"DsCount")); }
  toolkit::DsRef DsItem(int32_t index) override {
    return ObjectResult<toolkit::Ds>(caller_.Call(u"DsItem", {Variant(index)}));
  }
  toolkit::DsRef AddDs(int32_t kind, const String& creationText) override {
    return ObjectResult<toolkit::Ds>(caller_.Call(u"AddDs", {Variant(kind), Variant(creationText)}));
  }
};

class DsvAdapter final : public toolkit::Dsv, public AdapterBase {
 public:
  using AdapterBase::AdapterBase;
  String GetDsvName() override { return TextOf(caller_.Call(u"GetDsvName")); }
  void SetDsvName(const String& name) override { caller_.Call(u"SetDsvName", {Variant(name)}); }
  int32_t GetDsvType() override { return LongOf(caller_.Call(u"GetDsvType")); }
  void SetDsvType(int32_t type) override { caller_.Call(u"SetDsvType", {Variant(type)}); }
  int32_t GetDsvShape() override { return LongOf(caller_.Call(u"GetDsvShape")); }
  int32_t GetDsvRows() override { return LongOf(caller_.Call(u"GetDsvRows")); }
  void SetDsvRows(int32_t rows) override { caller_.Call(u"SetDsvRows", {Variant(rows)}); }
  int32_t GetDsvCols() override { return LongOf(caller_.Call(u"GetDsvCols")); }
  void SetDsvCols(int32_t cols) override { caller_.Call(u"SetDsvCols", {Variant(cols)}); }
  int32_t GetDsvScope() override { return LongOf(caller_.Call(u"GetDsvScope")); }
  void SetDsvScope(int32_t scope) override { caller_.Call(u"SetDsvScope", {Variant(scope)}); }
  double GetDsvValue() override { return DoubleOf(caller_.Call(u"GetDsvValue")); }
  void SetDsvValue(double value) override { caller_.Call(u"SetDsvValue", {Variant(value)}); }
  toolkit::DsRef GetDsvParent() override { return ObjectResult<toolkit::Ds>(caller_.Call(u"GetDsvParent")); }
  int32_t GetDsvUseCount() override { return LongOf(caller_.Call(u"GetDsvUseCount")); }
  bool RemoveDsv() override { return BooleanOf(caller_.Call(u"RemoveDsv")); }
  bool DsvMoveUp() override { return BooleanOf(caller_.Call(u"DsvMoveUp")); }
  bool DsvMoveDown() override { return BooleanOf(caller_.Call(u"DsvMoveDown")); }
  // A variable is custom when it answers GetParams.
  toolkit::CustomDsvRef AsCustom() override {
    return caller_.Has(u"GetParams") ? AdaptAs<toolkit::CustomDsv>(Dispatch()) : nullptr;
  }
};

class DsvListAdapter final : public toolkit::DsvList, public AdapterBase {
 public:
  using AdapterBase::AdapterBase;
  int32_t DsvCount() override { return LongOf(caller_.Call(u"DsvCount")); }
  toolkit::DsvRef DsvItem(int32_t index) override {
    return ObjectResult<toolkit::Dsv>(caller_.Call(u"DsvItem", {Variant(index)}));
  }
  toolkit::DsvRef AddDsv() override { return ObjectResult<toolkit::Dsv>(caller_.Call(u"AddDsv")); }
};

class DisplayAdapter final : public toolkit::Display, public AdapterBase {
 public:
  using AdapterBase::AdapterBase;
  toolkit::DsListRef GetDataSources() override {
    return ObjectResult<toolkit::DsList>(caller_.Call(u"GetDataSources"));
  }
};

// Out arguments travel as VT_BYREF|VT_VARIANT slots that start with the
// caller's current value.
class CommunicationAdapter final : public toolkit::Communication, public AdapterBase {
 public:
  using AdapterBase::AdapterBase;
  void GetApplications(Variant& names, Variant& numbers) override {
    UniqueVariant namesSlot = ToVariant(names);
    UniqueVariant numbersSlot = ToVariant(numbers);
    caller_.Call(u"GetApplications", {CallArg::ByRef(namesSlot), CallArg::ByRef(numbersSlot)});
    names = ValueOf(namesSlot);
    numbers = ValueOf(numbersSlot);
  }
  void ExecuteKorl(const String& request, Variant& result) override {
    UniqueVariant slot = ToVariant(result);
    caller_.Call(u"ExecuteKorl", {Variant(request), CallArg::ByRef(slot)});
    result = ValueOf(slot);
  }
  void ScriptFileChanged(const String& path) override { caller_.Call(u"ScriptFileChanged", {Variant(path)}); }
  void ExecuteKorlInApp(int16_t applicationNr, const String& request, Variant& result) override {
    UniqueVariant slot = ToVariant(result);
    caller_.Call(u"ExecuteKorlInApp", {Variant(applicationNr), Variant(request), CallArg::ByRef(slot)});
    result = ValueOf(slot);
  }
  void ValidateItem(const String& itemId, Variant& value) override {
    UniqueVariant slot = ToVariant(value);
    caller_.Call(u"ValidateItem", {Variant(itemId), CallArg::ByRef(slot)});
    value = ValueOf(slot);
  }
};

template <class I>
struct AdapterOf;
template <>
struct AdapterOf<toolkit::Display> {
  using Type = DisplayAdapter;
};
template <>
struct AdapterOf<toolkit::DsList> {
  using Type = DsListAdapter;
};
template <>
struct AdapterOf<toolkit::Ds> {
  using Type = DsAdapter;
};
template <>
struct AdapterOf<toolkit::DsvList> {
  using Type = DsvListAdapter;
};
template <>
struct AdapterOf<toolkit::Dsv> {
  using Type = DsvAdapter;
};
template <>
struct AdapterOf<toolkit::ParamList> {
  using Type = ParamListAdapter;
};
template <>
struct AdapterOf<toolkit::Param> {
  using Type = ParamAdapter;
};
template <>
struct AdapterOf<toolkit::CustomDs> {
  using Type = CustomDsAdapter;
};
template <>
struct AdapterOf<toolkit::CustomDsv> {
  using Type = CustomDsvAdapter;
};
template <>
struct AdapterOf<toolkit::Communication> {
  using Type = CommunicationAdapter;
};

}  // namespace

template <class I>
std::shared_ptr<I> AdaptAs(IDispatch* dispatch) {
  if (!dispatch) return nullptr;
  if (ExposedObject* own = FindExposed(dispatch)) {
    auto typed = std::dynamic_pointer_cast<I>(own->Target());
    if (!typed) automation::Raise(automation::err::kTypeMismatch);
    return typed;
  }
  ComPtr<IUnknown> identity = Identity(dispatch);
  const std::type_index kind(typeid(I));
  if (auto existing = std::dynamic_pointer_cast<I>(FindAdapter(identity.Get(), kind))) return existing;
  auto created = std::make_shared<typename AdapterOf<I>::Type>(dispatch);
  RememberAdapter(identity.Get(), kind, created);
  return created;
}

template <class I>
std::shared_ptr<I> ObjectResult(const UniqueVariant& result) {
  const VARIANT& v = result.Ref();
  switch (v.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return nullptr;
    case VT_DISPATCH:
      return AdaptAs<I>(v.pdispVal);
    case VT_UNKNOWN: {
      if (!v.punkVal) return nullptr;
      ComPtr<IDispatch> dispatch;
      if (FAILED(v.punkVal->QueryInterface(IID_IDispatch, dispatch.PutVoid())) || !dispatch) break;
      return AdaptAs<I>(dispatch.Get());
    }
    default:
      break;
  }
  automation::Raise(automation::err::kTypeMismatch);
}

automation::ObjectRef AdaptLike(const automation::ObjectRef& model, IDispatch* dispatch) {
  if (!dispatch) return nullptr;
  automation::Object* raw = model.get();
  if (dynamic_cast<toolkit::Ds*>(raw)) return AdaptAs<toolkit::Ds>(dispatch);
  if (dynamic_cast<toolkit::Dsv*>(raw)) return AdaptAs<toolkit::Dsv>(dispatch);
  if (dynamic_cast<toolkit::Display*>(raw)) return AdaptAs<toolkit::Display>(dispatch);
  if (dynamic_cast<toolkit::DsList*>(raw)) return AdaptAs<toolkit::DsList>(dispatch);
  if (dynamic_cast<toolkit::DsvList*>(raw)) return AdaptAs<toolkit::DsvList>(dispatch);
  if (dynamic_cast<toolkit::ParamList*>(raw)) return AdaptAs<toolkit::ParamList>(dispatch);
  if (dynamic_cast<toolkit::Param*>(raw)) return AdaptAs<toolkit::Param>(dispatch);
  if (dynamic_cast<toolkit::CustomDs*>(raw)) return AdaptAs<toolkit::CustomDs>(dispatch);
  if (dynamic_cast<toolkit::CustomDsv*>(raw)) return AdaptAs<toolkit::CustomDsv>(dispatch);
  if (dynamic_cast<toolkit::Communication*>(raw)) return AdaptAs<toolkit::Communication>(dispatch);
  return ObjectFromDispatch(dispatch);
}

#define VD_ADAPT_INSTANTIATE(I)                       \
  template std::shared_ptr<I> AdaptAs<I>(IDispatch*); \
  template std::shared_ptr<I> ObjectResult<I>(const UniqueVariant&);
VD_ADAPT_INSTANTIATE(toolkit::Display)
VD_ADAPT_INSTANTIATE(toolkit::DsList)
VD_ADAPT_INSTANTIATE(toolkit::Ds)
VD_ADAPT_INSTANTIATE(toolkit::DsvList)
VD_ADAPT_INSTANTIATE(toolkit::Dsv)
VD_ADAPT_INSTANTIATE(toolkit::ParamList)
VD_ADAPT_INSTANTIATE(toolkit::Param)
VD_ADAPT_INSTANTIATE(toolkit::CustomDs)
VD_ADAPT_INSTANTIATE(toolkit::CustomDsv)
VD_ADAPT_INSTANTIATE(toolkit::Communication)
#undef VD_ADAPT_INSTANTIATE

}  // namespace vd::win32
