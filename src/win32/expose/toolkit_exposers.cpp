#include "expose/toolkit_exposers.h"

#include <array>

#include "expose/exposed_object.h"
#include "vd/automation/conversions.h"
#include "vd/automation/error.h"
#include "vd/toolkit/communication.h"
#include "vd/toolkit/toolkit.h"

namespace vd::win32 {
namespace {

using automation::CBool;
using automation::CDbl;
using automation::CInt;
using automation::CLng;
using automation::CStr;
using automation::Variant;
namespace tk = toolkit;

Variant Nothing() { return Variant(automation::ObjectRef()); }
template <class T>
Variant ObjectValue(std::shared_ptr<T> object) {
  if (!object) return Nothing();
  return Variant(automation::ObjectRef(std::move(object)));
}

const std::array<Member<tk::Display>, 1> kDisplayMembers{{
    {u"GetDataSources", [](tk::Display& d, const InvokeArgs&) { return ObjectValue(d.GetDataSources()); }},
}};

const std::array<Member<tk::DsList>, 3> kDsListMembers{{
    {u"DsCount", [](tk::DsList& l, const InvokeArgs&) { return Variant(l.DsCount()); }},
    {u"DsItem", [](tk::DsList& l, const InvokeArgs& a) { return ObjectValue(l.DsItem(CLng(a.Value(0)))); }},
    {u"AddDs",
     [](tk::DsList& l, const InvokeArgs& a) { return ObjectValue(l.AddDs(CLng(a.Value(0)), CStr(a.Value(1)))); }},
}};

tk::CustomDsRef CustomOf(tk::Ds& ds) {
  auto custom = ds.AsCustom();
  if (!custom) automation::Raise(automation::err::kMethodNotSupported);
  return custom;
}
tk::CustomDsvRef CustomOf(tk::Dsv& dsv) {
  auto custom = dsv.AsCustom();
  if (!custom) automation::Raise(automation::err::kMethodNotSupported);
  return custom;
}

// The custom members come last: an object that is not custom is exposed
// without them, so that asking for GetParams tells whether it is custom.
constexpr size_t kDsCustomMembers = 1;
const std::array<Member<tk::Ds>, 10> kDsMembers{{
    {u"GetDsName", [](tk::Ds& d, const InvokeArgs&) { return Variant(d.GetDsName()); }},
    {u"SetDsName",
     [](tk::Ds& d, const InvokeArgs& a) {
       d.SetDsName(CStr(a.Value(0)));
       return Variant();
     }},
    {u"GetDsType", [](tk::Ds& d, const InvokeArgs&) { return Variant(d.GetDsType()); }},
    {u"GetDsVars", [](tk::Ds& d, const InvokeArgs&) { return ObjectValue(d.GetDsVars()); }},
    {u"RemoveDs", [](tk::Ds& d, const InvokeArgs&) { return Variant(d.RemoveDs()); }},
    {u"DsMoveUp", [](tk::Ds& d, const InvokeArgs&) { return Variant(d.DsMoveUp()); }},
    {u"DsMoveDown", [](tk::Ds& d, const InvokeArgs&) { return Variant(d.DsMoveDown()); }},
    {u"GetDsAscii", [](tk::Ds& d, const InvokeArgs&) { return Variant(d.GetDsAscii()); }},
    {u"SetDsAscii",
     [](tk::Ds& d, const InvokeArgs& a) {
       d.SetDsAscii(CBool(a.Value(0)));
       return Variant();
     }},
    {u"GetParams", [](tk::Ds& d, const InvokeArgs&) { return ObjectValue(CustomOf(d)->GetParams()); }},
}};

const std::array<Member<tk::DsvList>, 3> kDsvListMembers{{
    {u"DsvCount", [](tk::DsvList& l, const InvokeArgs&) { return Variant(l.DsvCount()); }},
    {u"DsvItem", [](tk::DsvList& l, const InvokeArgs& a) { return ObjectValue(l.DsvItem(CLng(a.Value(0)))); }},
    {u"AddDsv", [](tk::DsvList& l, const InvokeArgs&) { return ObjectValue(l.AddDsv()); }},
}};

constexpr size_t kDsvCustomMembers = 2;
const std::array<Member<tk::Dsv>, 20> kDsvMembers{{
    {u"GetDsvName", [](tk::Dsv& v, const InvokeArgs&) { return Variant(v.GetDsvName()); }},
    {u"SetDsvName",
     [](tk::Dsv& v, const InvokeArgs& a) {
       v.SetDsvName(CStr(a.Value(0)));
       return Variant();
     }},
    {u"GetDsvType", [](tk::Dsv& v, const InvokeArgs&) { return Variant(v.GetDsvType()); }},
    {u"SetDsvType",
     [](tk::Dsv& v, const InvokeArgs& a) {
       v.SetDsvType(CLng(a.Value(0)));
       return Variant();
     }},
    {u"GetDsvShape", [](tk::Dsv& v, const InvokeArgs&) { return Variant(v.GetDsvShape()); }},
    {u"GetDsvRows", [](tk::Dsv& v, const InvokeArgs&) { return Variant(v.GetDsvRows()); }},
    {u"SetDsvRows",
     [](tk::Dsv& v, const InvokeArgs& a) {
       v.SetDsvRows(CLng(a.Value(0)));
       return Variant();
     }},
    {u"GetDsvCols", [](tk::Dsv& v, const InvokeArgs&) { return Variant(v.GetDsvCols()); }},
    {u"SetDsvCols",
     [](tk::Dsv& v, const InvokeArgs& a) {
       v.SetDsvCols(CLng(a.Value(0)));
       return Variant();
     }},
    {u"GetDsvScope", [](tk::Dsv& v, const InvokeArgs&) { return Variant(v.GetDsvScope()); }},
    {u"SetDsvScope",
     [](tk::Dsv& v, const InvokeArgs& a) {
       v.SetDsvScope(CLng(a.Value(0)));
       return Variant();
     }},
    {u"GetDsvValue", [](tk::Dsv& v, const InvokeArgs&) { return Variant(v.GetDsvValue()); }},
    {u"SetDsvValue",
     [](tk::Dsv& v, const InvokeArgs& a) {
       v.SetDsvValue(CDbl(a.Value(0)));
       return Variant();
     }},
    {u"GetDsvParent", [](tk::Dsv& v, const InvokeArgs&) { return ObjectValue(v.GetDsvParent()); }},
    {u"GetDsvUseCount", [](tk::Dsv& v, const InvokeArgs&) { return Variant(v.GetDsvUseCount()); }},
    {u"RemoveDsv", [](tk::Dsv& v, const InvokeArgs&) { return Variant(v.RemoveDsv()); }},
    {u"DsvMoveUp", [](tk::Dsv& v, const InvokeArgs&) { return Variant(v.DsvMoveUp()); }},
    {u"DsvMoveDown", [](tk::Dsv& v, const InvokeArgs&) { return Variant(v.DsvMoveDown()); }},
    {u"GetParams", [](tk::Dsv& v, const InvokeArgs&) { return ObjectValue(CustomOf(v)->GetParams()); }},
    {u"GetDsvAccess", [](tk::Dsv& v, const InvokeArgs&) { return Variant(CustomOf(v)->GetDsvAccess()); }},
}};

const std::array<Member<tk::ParamList>, 3> kParamListMembers{{
    {u"ParamCount", [](tk::ParamList& l, const InvokeArgs&) { return Variant(l.ParamCount()); }},
    {u"ParamItem", [](tk::ParamList& l, const InvokeArgs& a) { return ObjectValue(l.ParamItem(CInt(a.Value(0)))); }},
    {u"AddParam", [](tk::ParamList& l, const InvokeArgs&) { return ObjectValue(l.AddParam()); }},
}};

const std::array<Member<tk::Param>, 3> kParamMembers{{
    {u"GetParamType", [](tk::Param& p, const InvokeArgs&) { return Variant(p.GetParamType()); }},
    {u"GetParamValue", [](tk::Param& p, const InvokeArgs&) { return p.GetParamValue(); }},
    {u"SetParamValue",
     [](tk::Param& p, const InvokeArgs& a) {
       p.SetParamValue(CLng(a.Value(0)), a.Value(1));
       return Variant();
     }},
}};

const std::array<Member<tk::CustomDs>, 1> kCustomDsMembers{{
    {u"GetParams", [](tk::CustomDs& c, const InvokeArgs&) { return ObjectValue(c.GetParams()); }},
}};

const std::array<Member<tk::CustomDsv>, 2> kCustomDsvMembers{{
    {u"GetParams", [](tk::CustomDsv& c, const InvokeArgs&) { return ObjectValue(c.GetParams()); }},
    {u"GetDsvAccess", [](tk::CustomDsv& c, const InvokeArgs&) { return Variant(c.GetDsvAccess()); }},
}};

// Out arguments are written back through the caller's references.
const std::array<Member<tk::Communication>, 5> kCommunicationMembers{{
    {u"GetApplications",
     [](tk::Communication& c, const InvokeArgs& a) {
       Variant names = a.Value(0);
       Variant numbers = a.Value(1);
       c.GetApplications(names, numbers);
       a.SetOut(0, names);
       a.SetOut(1, numbers);
       return Variant();
     }},
    {u"ExecuteKorl",
     [](tk::Communication& c, const InvokeArgs& a) {
       Variant result = a.Value(1);
       c.ExecuteKorl(CStr(a.Value(0)), result);
       a.SetOut(1, result);
       return Variant();
     }},
    {u"ScriptFileChanged",
     [](tk::Communication& c, const InvokeArgs& a) {
       c.ScriptFileChanged(CStr(a.Value(0)));
       return Variant();
     }},
    {u"ExecuteKorlInApp",
     [](tk::Communication& c, const InvokeArgs& a) {
       Variant result = a.Value(2);
       c.ExecuteKorlInApp(CInt(a.Value(0)), CStr(a.Value(1)), result);
       a.SetOut(2, result);
       return Variant();
     }},
    {u"ValidateItem",
     [](tk::Communication& c, const InvokeArgs& a) {
       Variant value = a.Value(1);
       c.ValidateItem(CStr(a.Value(0)), value);
       a.SetOut(1, value);
       return Variant();
     }},
}};

const std::array<Member<automation::Object>, 0> kNoMembers{};

template <class I, size_t N>
bool TryExpose(const automation::ObjectRef& object, const std::array<Member<I>, N>& members,
               ComPtr<IDispatch>& exposed) {
  auto typed = std::dynamic_pointer_cast<I>(object);
  if (!typed) return false;
  exposed = ExposeWith<I>(std::move(typed), std::span<const Member<I>>(members));
  return true;
}

}  // namespace

ComPtr<IDispatch> ExposeObject(const automation::ObjectRef& object) {
  if (!object) return nullptr;
  if (auto live = FindExposedFor(object.get())) return live;
  if (auto dsv = std::dynamic_pointer_cast<tk::Dsv>(object)) {
    std::span<const Member<tk::Dsv>> members(kDsvMembers);
    if (!dsv->AsCustom()) members = members.first(members.size() - kDsvCustomMembers);
    return ExposeWith<tk::Dsv>(std::move(dsv), members);
  }
  if (auto ds = std::dynamic_pointer_cast<tk::Ds>(object)) {
    std::span<const Member<tk::Ds>> members(kDsMembers);
    if (!ds->AsCustom()) members = members.first(members.size() - kDsCustomMembers);
    return ExposeWith<tk::Ds>(std::move(ds), members);
  }
  ComPtr<IDispatch> exposed;
  if (TryExpose(object, kDsvListMembers, exposed) || TryExpose(object, kDsListMembers, exposed) ||
      TryExpose(object, kDisplayMembers, exposed) || TryExpose(object, kParamMembers, exposed) ||
      TryExpose(object, kParamListMembers, exposed) || TryExpose(object, kCustomDsvMembers, exposed) ||
      TryExpose(object, kCustomDsMembers, exposed) || TryExpose(object, kCommunicationMembers, exposed) ||
      TryExpose(object, kNoMembers, exposed))
    return exposed;
  return nullptr;
}

}  // namespace vd::win32
