// Someone else's IDispatch objects through the toolkit interfaces: the test
// exposes the in-memory display, hides it behind forwarders (a stranger's
// identity) and reads and changes it through the adapters.
#include <gtest/gtest.h>

#include "VarDeskGUI.h"
#include "convert/object_convert.h"
#include "dispatch/adapt.h"
#include "dispatch/dispatch_holder.h"
#include "display_description.h"
#include "expose/toolkit_exposers.h"
#include "forwarding_dispatch.h"
#include "memory_toolkit.h"
#include "vd/automation/error.h"

namespace vd::testhost {
namespace {

using win32::ComPtr;

struct Stranger {
  std::shared_ptr<MemDisplay> original = MakePlantDisplay();
  std::shared_ptr<LookupCounts> counts = std::make_shared<LookupCounts>();
  ComPtr<IDispatch> dispatch;
  toolkit::DisplayRef adapted;

  explicit Stranger(NameLookup lookup) {
    dispatch = Forward(win32::ExposeObject(original).Get(), lookup, GUID_NULL, counts);
    adapted = win32::AdaptAs<toolkit::Display>(dispatch.Get());
  }
};

class AdapterLookupTest : public testing::TestWithParam<NameLookup> {};

TEST_P(AdapterLookupTest, TheAdaptedDisplayReadsLikeTheDisplayItself) {
  Stranger s(GetParam());
  ASSERT_TRUE(s.adapted);
  EXPECT_NE(s.adapted.get(), static_cast<toolkit::Display*>(s.original.get()));
  EXPECT_EQ(testsupport::DescribeDisplay(*s.adapted), testsupport::DescribeDisplay(*s.original));
  if (GetParam() == NameLookup::kDispatchExOnly) {
    EXPECT_GT(s.counts->getDispID, 0);
    EXPECT_EQ(s.counts->getIDsOfNames, 0);
  }
}

TEST_P(AdapterLookupTest, ChangesThroughTheAdapterReachTheObjects) {
  Stranger s(GetParam());
  toolkit::DsListRef list = s.adapted->GetDataSources();
  toolkit::DsRef tanks = list->DsItem(1);
  tanks->SetDsName(u"Vessels");
  tanks->SetDsAscii(true);
  EXPECT_EQ(s.original->list->items[0]->name, u"Vessels");
  EXPECT_TRUE(s.original->list->items[0]->ascii);

  toolkit::DsvRef added = tanks->GetDsVars()->AddDsv();
  ASSERT_TRUE(added);
  EXPECT_EQ(added->GetDsvName(), u"Var3");
  ASSERT_EQ(s.original->list->items[0]->vars->items.size(), 3u);

  toolkit::DsvRef pressure = tanks->GetDsVars()->DsvItem(2);
  EXPECT_TRUE(pressure->DsvMoveUp());
  EXPECT_EQ(s.original->list->items[0]->vars->items[0]->name, u"Pressure");
  EXPECT_FALSE(tanks->GetDsVars()->DsvItem(1)->DsvMoveUp()) << "the first cannot move up";

  pressure->SetDsvValue(-2.25);
  pressure->SetDsvRows(4);
  EXPECT_EQ(s.original->list->items[0]->vars->items[0]->value, -2.25);
  EXPECT_EQ(s.original->list->items[0]->vars->items[0]->rows, 4);

  toolkit::DsRef added_ds = list->AddDs(toolkit::kind::kCustom, u"Extra");
  ASSERT_TRUE(added_ds);
  EXPECT_EQ(list->DsCount(), 4);
  EXPECT_TRUE(list->DsItem(4)->RemoveDs());
  EXPECT_EQ(s.original->list->items.size(), 3u);
}

TEST_P(AdapterLookupTest, CustomObjectsAnswerTheirParameterLists) {
  Stranger s(GetParam());
  toolkit::DsListRef list = s.adapted->GetDataSources();
  EXPECT_EQ(list->DsItem(1)->AsCustom(), nullptr);
  toolkit::CustomDsRef custom = list->DsItem(2)->AsCustom();
  ASSERT_TRUE(custom);
  toolkit::ParamListRef params = custom->GetParams();
  ASSERT_EQ(params->ParamCount(), 2);
  params->ParamItem(2)->SetParamValue(toolkit::paramtype::kText, automation::Variant(u"42"));
  auto& stored = s.original->list->items[1]->custom->params->items[1];
  EXPECT_EQ(stored->GetParamType(), toolkit::paramtype::kText);
  EXPECT_TRUE(stored->GetParamValue() == automation::Variant(u"42"));
  toolkit::ParamRef appended = params->AddParam();
  ASSERT_TRUE(appended);
  EXPECT_EQ(s.original->list->items[1]->custom->params->items.size(), 3u);
  toolkit::CustomDsvRef customDsv = list->DsItem(2)->GetDsVars()->DsvItem(1)->AsCustom();
  ASSERT_TRUE(customDsv);
  EXPECT_EQ(customDsv->GetDsvAccess(), 1);
}

TEST_P(AdapterLookupTest, AFailedCallRaisesTheCalleesNumberAndDescription) {
  Stranger s(GetParam());
  s.original->list->items[0]->failReading = true;
  try {
    s.adapted->GetDataSources()->DsItem(1)->GetDsName();
    FAIL() << "no error";
  } catch (const automation::AutomationError& e) {
    EXPECT_EQ(e.Number(), 1234);
    EXPECT_EQ(e.Description(), u"The data source cannot be read");
  }
  try {
    s.adapted->GetDataSources()->DsItem(9);
    FAIL() << "no error";
  } catch (const automation::AutomationError& e) {
    EXPECT_EQ(e.Number(), automation::err::kSubscriptOutOfRange);
  }
}

INSTANTIATE_TEST_SUITE_P(Lookups, AdapterLookupTest,
                         testing::Values(NameLookup::kGetIDsOfNames, NameLookup::kDispatchExOnly),
                         [](const testing::TestParamInfo<NameLookup>& param) {
                           return param.param == NameLookup::kGetIDsOfNames ? std::string("GetIDsOfNames")
                                                                            : std::string("DispatchExOnly");
                         });

TEST(AdapterTest, AMemberTheObjectLacksIsError438) {
  auto counts = std::make_shared<LookupCounts>();
  auto param = std::make_shared<MemParam>(5, automation::Variant(int32_t{1}));
  // A parameter seen as a data source: it has none of the data source's members.
  ComPtr<IDispatch> dispatch = Forward(win32::ExposeObject(param).Get(), NameLookup::kGetIDsOfNames, GUID_NULL, counts);
  toolkit::DsRef wrong = win32::AdaptAs<toolkit::Ds>(dispatch.Get());
  try {
    wrong->GetDsName();
    FAIL() << "no error";
  } catch (const automation::AutomationError& e) {
    EXPECT_EQ(e.Number(), automation::err::kMethodNotSupported);
  }
  EXPECT_EQ(wrong->AsCustom(), nullptr);
}

TEST(AdapterTest, NamesAreResolvedOncePerTypeWhenObjectsTellTheirType) {
  auto display = MakePlantDisplay();
  auto counts = std::make_shared<LookupCounts>();
  // Two data sources that claim one type: the second reuses the first's DISPIDs.
  ComPtr<IDispatch> first = Forward(win32::ExposeObject(display->list->items[0]).Get(), NameLookup::kGetIDsOfNames,
                                    IID__SelectionHandler, counts);
  ComPtr<IDispatch> second = Forward(win32::ExposeObject(display->list->items[2]).Get(), NameLookup::kGetIDsOfNames,
                                     IID__SelectionHandler, counts);
  EXPECT_EQ(win32::AdaptAs<toolkit::Ds>(first.Get())->GetDsName(), u"Tanks");
  EXPECT_EQ(win32::AdaptAs<toolkit::Ds>(second.Get())->GetDsName(), u"Scratch");
  EXPECT_EQ(win32::AdaptAs<toolkit::Ds>(second.Get())->GetDsName(), u"Scratch");
  EXPECT_EQ(counts->getIDsOfNames, 1);
  EXPECT_EQ(counts->invoke, 3);
}

TEST(AdapterTest, ObjectsWithoutTypeResolveNamesPerObject) {
  auto display = MakePlantDisplay();
  auto counts = std::make_shared<LookupCounts>();
  ComPtr<IDispatch> first =
      Forward(win32::ExposeObject(display->list->items[0]).Get(), NameLookup::kGetIDsOfNames, GUID_NULL, counts);
  ComPtr<IDispatch> second =
      Forward(win32::ExposeObject(display->list->items[2]).Get(), NameLookup::kGetIDsOfNames, GUID_NULL, counts);
  auto firstDs = win32::AdaptAs<toolkit::Ds>(first.Get());
  firstDs->GetDsName();
  firstDs->GetDsName();
  win32::AdaptAs<toolkit::Ds>(second.Get())->GetDsName();
  EXPECT_EQ(counts->getIDsOfNames, 2);
}

TEST(AdapterTest, OneObjectKeepsOneAdapterAndGoesBackAsItsOwnDispatch) {
  Stranger s(NameLookup::kGetIDsOfNames);
  auto again = win32::AdaptAs<toolkit::Display>(s.dispatch.Get());
  EXPECT_EQ(again.get(), s.adapted.get());
  EXPECT_EQ(win32::DispatchFromObject(s.adapted).Get(), s.dispatch.Get());
  EXPECT_EQ(win32::AdaptAs<toolkit::Display>(nullptr), nullptr);
}

TEST(AdapterTest, ThisModulesOwnObjectsComeBackAsThemselves) {
  auto display = MakePlantDisplay();
  ComPtr<IDispatch> exposed = win32::ExposeObject(display);
  EXPECT_EQ(win32::AdaptAs<toolkit::Display>(exposed.Get()).get(), display.get());
  try {
    win32::AdaptAs<toolkit::Ds>(exposed.Get());
    FAIL() << "a display is no data source";
  } catch (const automation::AutomationError& e) {
    EXPECT_EQ(e.Number(), automation::err::kTypeMismatch);
  }
}

TEST(AdapterTest, AReplacedEventObjectIsAdaptedLikeTheOriginal) {
  Stranger s(NameLookup::kGetIDsOfNames);
  automation::ObjectRef model = s.adapted->GetDataSources()->DsItem(1);
  Stranger other(NameLookup::kGetIDsOfNames);
  ComPtr<IDispatch> replacement = win32::DispatchFromObject(other.adapted->GetDataSources()->DsItem(3));
  automation::ObjectRef adapted = win32::AdaptLike(model, replacement.Get());
  auto ds = std::dynamic_pointer_cast<toolkit::Ds>(adapted);
  ASSERT_TRUE(ds);
  EXPECT_EQ(ds->GetDsName(), u"Scratch");
  EXPECT_EQ(win32::AdaptLike(model, nullptr), nullptr);
}

TEST(CommunicationAdapterTest, OutArgumentsComeBackThroughReferences) {
  auto comm = std::make_shared<MemCommunication>();
  auto counts = std::make_shared<LookupCounts>();
  ComPtr<IDispatch> dispatch = Forward(win32::ExposeObject(comm).Get(), NameLookup::kGetIDsOfNames, GUID_NULL, counts);
  toolkit::CommunicationRef adapted = win32::AdaptAs<toolkit::Communication>(dispatch.Get());

  automation::Variant names;
  automation::Variant numbers;
  adapted->GetApplications(names, numbers);
  ASSERT_TRUE(names.IsArray());
  ASSERT_EQ(names.AsArray().items.size(), 2u);
  EXPECT_TRUE(names.AsArray().items[1] == automation::Variant(u"Mill"));
  EXPECT_TRUE(numbers.AsArray().items[1] == automation::Variant(int16_t{7}));

  automation::Variant result;
  adapted->ExecuteKorl(u"#return 1", result);
  EXPECT_TRUE(result == automation::Variant(u"ran #return 1"));
  adapted->ExecuteKorlInApp(3, u"x", result);
  EXPECT_TRUE(result == automation::Variant(u"app 3: x"));
  automation::Variant value;
  adapted->ValidateItem(u"Plant.Tank1.Level", value);
  EXPECT_TRUE(value == automation::Variant(3.5));
  adapted->ScriptFileChanged(u"C:\\app\\PICT\\x.korl");
  ASSERT_EQ(comm->changedPaths.size(), 1u);
  EXPECT_EQ(comm->changedPaths[0], u"C:\\app\\PICT\\x.korl");
  try {
    adapted->ValidateItem(u"bad", value);
    FAIL() << "no error";
  } catch (const automation::AutomationError& e) {
    EXPECT_EQ(e.Number(), 5);
    EXPECT_EQ(e.Description(), u"Unknown item");
  }
}

}  // namespace
}  // namespace vd::testhost
