// The events of VarDeskUI through its connection point, raised the way the
// dialog raises them (through the core's callbacks). The objects are created
// in this program over a core without a dialog.
#include <windows.h>

#include <olectl.h>

#include <gtest/gtest.h>

#include "VarDeskGUI.h"
#include "convert/object_convert.h"
#include "expose/toolkit_exposers.h"
#include "forwarding_dispatch.h"
#include "plant.h"
#include "recording_sink.h"
#include "server/var_desk_ui_object.h"
#include "vd/automation/error.h"

namespace vd::testhost {
namespace {

using win32::ComPtr;

// A core without a dialog: the test raises the events through its callbacks.
class ScriptedCore final : public win32::UiCore {
 public:
  bool IsModified() override { return false; }
  void EditDataSources(const toolkit::DisplayRef&) override {}
  toolkit::DsvRef SelectDataVar(const toolkit::DisplayRef&, int32_t, int32_t, int32_t, int32_t) override {
    return nullptr;
  }
  automation::String HelpFile() override { return {}; }
  void SetHelpFile(const automation::String&) override {}
  void SetCommunication(const toolkit::CommunicationRef&) override {}
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

}  // namespace
}  // namespace vd::testhost
