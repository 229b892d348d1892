// Someone else's IDispatch objects through the toolkit interfaces: the sample's
// display, exposed and hidden behind forwarders (a stranger's identity), read
// and changed through the adapters.
#include <gtest/gtest.h>

#include "VarDeskGUI.h"
#include "convert/object_convert.h"
#include "dispatch/adapt.h"
#include "expose/toolkit_exposers.h"
#include "forwarding_dispatch.h"
#include "plant.h"
#include "vd/automation/conversions.h"
#include "vd/sample/simulated_scada.h"

namespace vd::testhost {
namespace {

using automation::Variant;
using win32::ComPtr;

ComPtr<IDispatch> Stranger(const automation::ObjectRef& object, const std::shared_ptr<LookupCounts>& counts,
                           NameLookup lookup = NameLookup::kGetIDsOfNames, const GUID& type = GUID_NULL) {
  return Forward(win32::ExposeObject(object).Get(), lookup, type, counts);
}

// Each data source's name, then its variables' names, read through the interfaces.
std::vector<automation::String> Names(toolkit::Display& display) {
  std::vector<automation::String> names;
  const toolkit::DsListRef list = display.GetDataSources();
  for (int32_t i = 1; i <= list->DsCount(); ++i) {
    const toolkit::DsRef ds = list->DsItem(i);
    names.push_back(ds->GetDsName());
    for (int32_t j = 1; j <= ds->GetDsVars()->DsvCount(); ++j)
      names.push_back(ds->GetDsVars()->DsvItem(j)->GetDsvName());
  }
  return names;
}

class AdapterLookupTest : public testing::TestWithParam<NameLookup> {};

TEST_P(AdapterLookupTest, ReadsAndChangesTheStrangersObjects) {
  auto plant = MakePlant();
  auto counts = std::make_shared<LookupCounts>();
  const toolkit::DisplayRef adapted = win32::AdaptAs<toolkit::Display>(Stranger(plant, counts, GetParam()).Get());
  ASSERT_TRUE(adapted);
  EXPECT_NE(adapted.get(), static_cast<toolkit::Display*>(plant.get()));
  EXPECT_EQ(Names(*adapted), Names(*plant));
  EXPECT_EQ(counts->getIDsOfNames == 0, GetParam() == NameLookup::kDispatchExOnly);

  const toolkit::DsListRef list = adapted->GetDataSources();
  const toolkit::DsRef tanks = list->DsItem(1);
  tanks->SetDsName(u"Vessels");
  tanks->SetDsAscii(true);
  EXPECT_EQ(tanks->GetDsVars()->AddDsv()->GetDsvName(), u"var3");
  EXPECT_TRUE(tanks->GetDsVars()->DsvItem(2)->DsvMoveUp());
  EXPECT_FALSE(tanks->GetDsVars()->DsvItem(1)->DsvMoveUp()) << "the first cannot move up";
  tanks->GetDsVars()->DsvItem(1)->SetDsvRows(4);
  const std::vector<automation::String> changed{u"Vessels", u"Pressure", u"Level", u"var3",
                                                u"Scada",   u"Flow",     u"Speed", u"Scratch"};
  EXPECT_EQ(Names(*plant), changed);
  EXPECT_TRUE(plant->DataSources()->Item(1)->GetDsAscii());
  EXPECT_EQ(plant->DataSources()->Item(1)->Variables()->Item(1)->GetDsvRows(), 4);

  EXPECT_EQ(tanks->AsCustom(), nullptr);
  const toolkit::ParamListRef params = list->DsItem(2)->AsCustom()->GetParams();
  ASSERT_EQ(params->ParamCount(), 2);
  params->ParamItem(2)->SetParamValue(toolkit::paramtype::kText, Variant(u"42"));
  ASSERT_TRUE(params->AddParam());
  const auto stored = plant->DataSources()->Item(2)->Params();
  EXPECT_EQ(stored->ParamCount(), 3);
  EXPECT_EQ(stored->Item(2)->GetParamType(), toolkit::paramtype::kText);
  EXPECT_TRUE(stored->Item(2)->GetParamValue() == Variant(u"42"));
  EXPECT_EQ(list->DsItem(2)->GetDsVars()->DsvItem(1)->AsCustom()->GetDsvAccess(), 1);
}

TEST_P(AdapterLookupTest, AFailedCallRaisesTheCalleesNumberAndDescription) {
  auto plant = MakePlant();
  const toolkit::DsRef own = plant->DataSources()->Item(3);
  const toolkit::DsRef adapted =
      win32::AdaptAs<toolkit::Ds>(Stranger(own, std::make_shared<LookupCounts>(), GetParam()).Get());
  ASSERT_TRUE(own->RemoveDs());
  const automation::AutomationError direct = ErrorOf([&] { own->GetDsName(); });
  const automation::AutomationError through = ErrorOf([&] { adapted->GetDsName(); });
  EXPECT_EQ(through.Number(), 5);
  EXPECT_EQ(through.Number(), direct.Number());
  EXPECT_EQ(through.Description(), direct.Description());
}

INSTANTIATE_TEST_SUITE_P(Lookups, AdapterLookupTest,
                         testing::Values(NameLookup::kGetIDsOfNames, NameLookup::kDispatchExOnly));

TEST(AdapterTest, AMemberTheObjectLacksIsError438) {
  auto param = MakePlant()->DataSources()->Item(2)->Params()->Item(1);
  // A parameter seen as a data source: it has none of the data source's members.
  const toolkit::DsRef wrong = win32::AdaptAs<toolkit::Ds>(Stranger(param, std::make_shared<LookupCounts>()).Get());
  EXPECT_EQ(ErrorOf([&] { wrong->GetDsName(); }).Number(), automation::err::kMethodNotSupported);
  EXPECT_EQ(wrong->AsCustom(), nullptr);
}

TEST(AdapterTest, NamesAreResolvedOncePerTypeElsePerObject) {
  auto plant = MakePlant();
  for (const GUID& type : {IID__SelectionHandler, GUID_NULL}) {
    auto counts = std::make_shared<LookupCounts>();
    const auto first = win32::AdaptAs<toolkit::Ds>(
        Stranger(plant->DataSources()->Item(1), counts, NameLookup::kGetIDsOfNames, type).Get());
    const auto second = win32::AdaptAs<toolkit::Ds>(
        Stranger(plant->DataSources()->Item(3), counts, NameLookup::kGetIDsOfNames, type).Get());
    EXPECT_EQ(first->GetDsName(), u"Tanks");
    EXPECT_EQ(first->GetDsName(), u"Tanks");
    EXPECT_EQ(second->GetDsName(), u"Scratch");
    EXPECT_EQ(counts->getIDsOfNames, type == GUID_NULL ? 2 : 1);
    EXPECT_EQ(counts->invoke, 3);
  }
}

TEST(AdapterTest, EachObjectKeepsItsIdentity) {
  auto plant = MakePlant();
  const ComPtr<IDispatch> stranger = Stranger(plant, std::make_shared<LookupCounts>());
  const auto adapted = win32::AdaptAs<toolkit::Display>(stranger.Get());
  EXPECT_EQ(win32::AdaptAs<toolkit::Display>(stranger.Get()).get(), adapted.get()) << "one adapter per object";
  EXPECT_EQ(win32::DispatchFromObject(adapted).Get(), stranger.Get()) << "it goes back as the stranger";
  EXPECT_EQ(win32::AdaptAs<toolkit::Display>(nullptr), nullptr);

  const ComPtr<IDispatch> own = win32::ExposeObject(plant);
  EXPECT_EQ(win32::AdaptAs<toolkit::Display>(own.Get()).get(), plant.get()) << "this module's own object";
  EXPECT_EQ(ErrorOf([&] { win32::AdaptAs<toolkit::Ds>(own.Get()); }).Number(), automation::err::kTypeMismatch);

  // An event handler's replacement is adapted like the object it replaces.
  const automation::ObjectRef model = adapted->GetDataSources()->DsItem(1);
  const ComPtr<IDispatch> replacement = Stranger(plant->DataSources()->Item(3), std::make_shared<LookupCounts>());
  const auto ds = std::dynamic_pointer_cast<toolkit::Ds>(win32::AdaptLike(model, replacement.Get()));
  ASSERT_TRUE(ds);
  EXPECT_EQ(ds->GetDsName(), u"Scratch");
  EXPECT_EQ(win32::AdaptLike(model, nullptr), nullptr);
}

TEST(CommunicationAdapterTest, OutArgumentsComeBackThroughReferences) {
  auto scada = std::make_shared<sample::SimulatedScada>();
  scada->AddApplication({1, u"Plant", u"C:\\Plant"});
  scada->AddApplication({7, u"Mill", u"C:\\Mill"});
  scada->SetAnswer(u"#return 1", Variant(u"one"));
  const auto adapted = win32::AdaptAs<toolkit::Communication>(Stranger(scada, std::make_shared<LookupCounts>()).Get());

  Variant names;
  Variant numbers;
  adapted->GetApplications(names, numbers);
  ASSERT_TRUE(names.IsArray() && numbers.IsArray());
  ASSERT_EQ(names.AsArray().items.size(), 2u);
  EXPECT_TRUE(names.AsArray().items[1] == Variant(u"Mill"));
  EXPECT_EQ(automation::CLng(numbers.AsArray().items[1]), 7);
  Variant result;
  adapted->ExecuteKorlInApp(7, u"#return 1", result);
  EXPECT_TRUE(result == Variant(u"one"));
  adapted->ScriptFileChanged(u"C:\\Mill\\PICT\\x.korl");
  EXPECT_EQ(scada->ScriptFileNotices(), std::vector<automation::String>{u"C:\\Mill\\PICT\\x.korl"});
  EXPECT_EQ(ErrorOf([&] { adapted->ExecuteKorlInApp(3, u"x", result); }).Number(),
            sample::scada_err::kUnknownApplication);
}

}  // namespace
}  // namespace vd::testhost
