// The events of VarDeskUI through its connection point, raised the way the
// dialog raises them (through the core's callbacks), and the errors of its
// methods. The objects are created in this program over a scripted core.
#include <windows.h>

#include <olectl.h>

#include <gtest/gtest.h>

#include <functional>

#include "VarDeskGUI.h"
#include "com/bstr.h"
#include "convert/object_convert.h"
#include "dispatch/adapt.h"
#include "dispatch/dispatch_holder.h"
#include "expose/toolkit_exposers.h"
#include "forwarding_dispatch.h"
#include "plant.h"
#include "recording_sink.h"
#include "server/var_desk_ui_object.h"
#include "vd/automation/error.h"

namespace vd::testhost {
namespace {

using win32::ComPtr;

// A core whose dialog runs are scripted by the test.
class ScriptedCore final : public win32::UiCore {
 public:
  std::function<void(ScriptedCore&, const toolkit::DisplayRef&)> onEdit;
  bool IsModified() override { return modified; }
  void EditDataSources(const toolkit::DisplayRef& display) override {
    if (onEdit) onEdit(*this, display);
  }
  toolkit::DsvRef SelectDataVar(const toolkit::DisplayRef&, int32_t context, int32_t, int32_t, int32_t) override {
    if (context == 99) automation::Raise(5, u"Invalid procedure call or argument");
    return selected;
  }
  automation::String HelpFile() override { return help; }
  void SetHelpFile(const automation::String& path) override { help = path; }
  void SetCommunication(const toolkit::CommunicationRef& c) override { communication = c; }

  bool modified = false;
  toolkit::DsvRef selected;
  automation::String help;
  toolkit::CommunicationRef communication;
};

struct Fixture {
  ScriptedCore* core = nullptr;
  ComPtr<_VarDeskUI> ui;
  ComPtr<IConnectionPoint> point;

  Fixture() {
    auto owned = std::make_unique<ScriptedCore>();
    core = owned.get();
    ui = win32::VarDeskUIObject::CreateWithCore(std::move(owned));
    auto container = ui.As<IConnectionPointContainer>();
    EXPECT_TRUE(container);
    EXPECT_EQ(container->FindConnectionPoint(DIID___VarDeskUI, point.Put()), S_OK);
  }
  DWORD Advise(RecordingSink& sink) {
    DWORD cookie = 0;
    EXPECT_EQ(point->Advise(&sink, &cookie), S_OK);
    return cookie;
  }
};

TEST(EventsTest, ASinkCanReplaceTheObjectPassedByReference) {
  Fixture f;
  auto display = MakePlant();
  auto strangerCounts = std::make_shared<LookupCounts>();
  ComPtr<IDispatch> hostsReplacement = Forward(win32::ExposeObject(display->DataSources()->Item(3)).Get(),
                                               NameLookup::kGetIDsOfNames, GUID_NULL, strangerCounts);
  RecordingSink sink;
  sink.replacement = hostsReplacement;
  f.Advise(sink);

  ComPtr<IDispatch> original = win32::ExposeObject(display->DataSources()->Item(1));
  automation::ObjectRef obj = display->DataSources()->Item(1);
  f.core->onEditCustomDs(obj);

  ASSERT_EQ(sink.events, std::vector<DISPID>{win32::kEditCustomDsEvent});
  EXPECT_EQ(sink.seen[0], original.Get()) << "the host sees the object";
  auto replaced = std::dynamic_pointer_cast<toolkit::Ds>(obj);
  ASSERT_TRUE(replaced) << "the replacement is a data source again";
  EXPECT_EQ(replaced->GetDsName(), u"Scratch");
  EXPECT_EQ(win32::DispatchFromObject(obj).Get(), hostsReplacement.Get());
}

TEST(EventsTest, SinksAreCalledInOrderAndEachSeesTheObjectSoFar) {
  Fixture f;
  auto display = MakePlant();
  RecordingSink first;
  RecordingSink second;
  first.replacement = win32::ExposeObject(display->DataSources()->Item(2));
  f.Advise(first);
  f.Advise(second);
  automation::ObjectRef obj = display->DataSources()->Item(1);
  f.core->onEditCustomDs(obj);
  ASSERT_EQ(second.seen.size(), 1u);
  EXPECT_EQ(second.seen[0], first.replacement.Get());
  EXPECT_EQ(obj.get(), display->DataSources()->Item(2).get()) << "this module's own object comes back as itself";
}

TEST(EventsTest, AnUnadvisedSinkHearsNothing) {
  Fixture f;
  auto display = MakePlant();
  RecordingSink sink;
  DWORD cookie = f.Advise(sink);
  EXPECT_EQ(f.point->Unadvise(cookie), S_OK);
  EXPECT_EQ(f.point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
  automation::ObjectRef obj = display->DataSources()->Item(1);
  f.core->onEditCustomDs(obj);
  EXPECT_TRUE(sink.events.empty());
  EXPECT_EQ(sink.refs, 1u) << "the point let go of the sink";
}

TEST(EventsTest, ASinksErrorReachesTheRaiser) {
  Fixture f;
  auto display = MakePlant();
  RecordingSink failing;
  failing.failWith = static_cast<HRESULT>(0x800A0005);
  RecordingSink later;
  f.Advise(failing);
  f.Advise(later);
  automation::ObjectRef obj = display->DataSources()->Item(1);
  try {
    f.core->onEditCustomDs(obj);
    FAIL() << "no error";
  } catch (const automation::AutomationError& e) {
    EXPECT_EQ(e.Number(), 5);
    EXPECT_EQ(e.Description(), u"The host refused");
  }
  EXPECT_TRUE(later.events.empty()) << "the first failure stops the event";
}

TEST(EventsTest, TheContainerOffersExactlyTheEventInterface) {
  Fixture f;
  auto container = f.ui.As<IConnectionPointContainer>();
  ComPtr<IConnectionPoint> none;
  EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, none.Put()), CONNECT_E_NOCONNECTION);
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(container->EnumConnectionPoints(points.Put()), S_OK);
  IConnectionPoint* found[2] = {};
  ULONG fetched = 0;
  EXPECT_EQ(points->Next(2, found, &fetched), S_FALSE);
  ASSERT_EQ(fetched, 1u);
  IID iid{};
  found[0]->GetConnectionInterface(&iid);
  EXPECT_TRUE(IsEqualIID(iid, DIID___VarDeskUI));
  found[0]->Release();
  auto classInfo = f.ui.As<IProvideClassInfo2>();
  ASSERT_TRUE(classInfo);
  GUID guid{};
  ASSERT_EQ(classInfo->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid), S_OK);
  EXPECT_TRUE(IsEqualGUID(guid, DIID___VarDeskUI));
}

TEST(VarDeskUIErrorsTest, ALateBoundCallSeesTheAutomationNumberAndDescription) {
  Fixture f;
  auto display = MakePlant();
  ComPtr<IDispatch> displayDispatch = win32::ExposeObject(display);
  VARIANT args[5];
  for (VARIANT& a : args) VariantInit(&a);
  // SelectDataVar(display, 99, 500, 0, 0), last argument first.
  args[4].vt = VT_DISPATCH;
  args[4].pdispVal = displayDispatch.Get();
  args[3].vt = VT_I4;
  args[3].lVal = 99;
  args[2].vt = VT_I4;
  args[2].lVal = 500;
  args[1].vt = VT_I4;
  args[0].vt = VT_I4;
  DISPPARAMS params{args, nullptr, 5, 0};
  win32::UniqueVariant result;
  EXCEPINFO info{};
  HRESULT hr = f.ui->Invoke(3, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, result.Put(), &info, nullptr);
  ASSERT_EQ(hr, DISP_E_EXCEPTION);
  EXPECT_EQ(info.scode, static_cast<SCODE>(0x800A0005));
  EXPECT_EQ(win32::ToString(info.bstrDescription), u"Invalid procedure call or argument");
  EXPECT_EQ(win32::ToString(info.bstrSource), u"VarDeskGUI.VarDeskUI");
  SysFreeString(info.bstrDescription);
  SysFreeString(info.bstrSource);
}

TEST(VarDeskUITest, TheSelectedVariableGoesBackAsTheHostsObject) {
  Fixture f;
  auto display = MakePlant();
  auto counts = std::make_shared<LookupCounts>();
  ComPtr<IDispatch> hostDisplay =
      Forward(win32::ExposeObject(display).Get(), NameLookup::kGetIDsOfNames, GUID_NULL, counts);
  // The core picks a variable it read through the adapters.
  f.core->onEdit = nullptr;
  auto adapted = win32::AdaptAs<toolkit::Display>(hostDisplay.Get());
  f.core->selected = adapted->GetDataSources()->DsItem(2)->GetDsVars()->DsvItem(2);
  ComPtr<IDispatch> selected;
  ASSERT_EQ(f.ui->SelectDataVar(hostDisplay.Get(), 1, 501, 0, 0, selected.Put()), S_OK);
  ASSERT_TRUE(selected);
  auto holder = std::dynamic_pointer_cast<win32::DispatchHolder>(f.core->selected);
  ASSERT_TRUE(holder);
  EXPECT_EQ(selected.Get(), holder->Dispatch());
}

}  // namespace
}  // namespace vd::testhost
