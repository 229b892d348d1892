#include "harness.h"

#include <array>

#include "convert/object_convert.h"
#include "dispatch/adapt.h"
#include "display_description.h"
#include "expose/exposed_object.h"
#include "relay_core.h"
#include "server/var_desk_ui_object.h"
#include "vd/automation/conversions.h"
#include "vd/automation/error.h"

namespace vd::testbridge {
namespace {

using automation::CLng;
using automation::CStr;
using automation::Variant;
using win32::InvokeArgs;

class Harness : public automation::Object {
 public:
  std::shared_ptr<RelayRecord> record = std::make_shared<RelayRecord>();
};

template <class I>
std::shared_ptr<I> Arg(const InvokeArgs& args, size_t i) {
  Variant value = args.Value(i);
  if (!value.IsObject()) automation::Raise(automation::err::kObjectRequired);
  return win32::AdaptAs<I>(win32::DispatchFromObject(value.AsObject()).Get());
}

toolkit::DsRef DsArg(const InvokeArgs& args) {
  return Arg<toolkit::Display>(args, 0)->GetDataSources()->DsItem(CLng(args.Value(1)));
}

Variant Object(automation::ObjectRef object) { return Variant(std::move(object)); }

const std::array<win32::Member<Harness>, 16> kMembers{{
    {u"DescribeDisplay",
     [](Harness&, const InvokeArgs& a) { return Variant(testsupport::DescribeDisplay(*Arg<toolkit::Display>(a, 0))); }},
    {u"RenameDs",
     [](Harness&, const InvokeArgs& a) {
       DsArg(a)->SetDsName(CStr(a.Value(2)));
       return Variant();
     }},
    {u"DsName", [](Harness&, const InvokeArgs& a) { return Variant(DsArg(a)->GetDsName()); }},
    {u"IsCustomDs", [](Harness&, const InvokeArgs& a) { return Variant(DsArg(a)->AsCustom() != nullptr); }},
    {u"AddDsv",
     [](Harness&, const InvokeArgs& a) {
       toolkit::DsvRef added = DsArg(a)->GetDsVars()->AddDsv();
       return Variant(added ? added->GetDsvName() : automation::String());
     }},
    {u"MoveDsvUp",
     [](Harness&, const InvokeArgs& a) {
       return Variant(DsArg(a)->GetDsVars()->DsvItem(CLng(a.Value(2)))->DsvMoveUp());
     }},
    {u"SetParam",
     [](Harness&, const InvokeArgs& a) {
       auto custom = DsArg(a)->AsCustom();
       if (!custom) automation::Raise(automation::err::kMethodNotSupported);
       custom->GetParams()->ParamItem(automation::CInt(a.Value(2)))->SetParamValue(CLng(a.Value(3)), a.Value(4));
       return Variant();
     }},
    {u"Applications",
     [](Harness&, const InvokeArgs& a) {
       Variant names;
       Variant numbers;
       Arg<toolkit::Communication>(a, 0)->GetApplications(names, numbers);
       const automation::Array& nameList = names.AsArray();
       const automation::Array& numberList = numbers.AsArray();
       automation::String text;
       for (size_t i = 0; i < nameList.items.size() && i < numberList.items.size(); ++i)
         text += CStr(nameList.items[i]) + u"=" + CStr(numberList.items[i]) + u";";
       return Variant(text);
     }},
    {u"Korl",
     [](Harness&, const InvokeArgs& a) {
       Variant result;
       Arg<toolkit::Communication>(a, 0)->ExecuteKorl(CStr(a.Value(1)), result);
       return result;
     }},
    {u"KorlInApp",
     [](Harness&, const InvokeArgs& a) {
       Variant result;
       Arg<toolkit::Communication>(a, 0)->ExecuteKorlInApp(automation::CInt(a.Value(1)), CStr(a.Value(2)), result);
       return result;
     }},
    {u"Validate",
     [](Harness&, const InvokeArgs& a) {
       Variant value;
       Arg<toolkit::Communication>(a, 0)->ValidateItem(CStr(a.Value(1)), value);
       return value;
     }},
    {u"ScriptChanged",
     [](Harness&, const InvokeArgs& a) {
       Arg<toolkit::Communication>(a, 0)->ScriptFileChanged(CStr(a.Value(1)));
       return Variant();
     }},
    {u"NewVarDeskUI",
     [](Harness& h, const InvokeArgs&) {
       auto ui = win32::VarDeskUIObject::CreateWithCore(std::make_unique<RelayCore>(h.record));
       return Object(win32::ObjectFromDispatch(ui.Get()));
     }},
    {u"LastEventObject", [](Harness& h, const InvokeArgs&) { return Object(h.record->lastEventObject); }},
    {u"Echo", [](Harness&, const InvokeArgs& a) { return a.Value(0); }},
    {u"EchoTypeName", [](Harness&, const InvokeArgs& a) { return Variant(automation::TypeName(a.Value(0))); }},
}};

}  // namespace

HRESULT CreateHarness(REFIID iid, void** out) {
  try {
    auto exposed = win32::ExposeWith<Harness>(std::make_shared<Harness>(), kMembers);
    return exposed->QueryInterface(iid, out);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace vd::testbridge
