// An adapter asks a stranger's object for each member's DISPID once, however
// many members it calls: the answers stay right and no name is asked twice,
// beyond the first few names an object is called by, by either way of
// looking names up.
#include <gtest/gtest.h>

#include <functional>

#include "dispatch/adapt.h"
#include "expose/toolkit_exposers.h"
#include "forwarding_dispatch.h"
#include "plant.h"

namespace vd::testhost {
namespace {

// One member call on a variable, as a number.
struct MemberCall {
  const char* member;
  std::function<double(toolkit::Dsv&)> call;
};

const std::vector<MemberCall>& Calls() {
  static const std::vector<MemberCall> calls = {
      {"GetDsvName", [](toolkit::Dsv& v) { return v.GetDsvName() == u"Pressure" ? 1.0 : 0.0; }},
      {"GetDsvType", [](toolkit::Dsv& v) { return v.GetDsvType(); }},
      {"GetDsvShape", [](toolkit::Dsv& v) { return v.GetDsvShape(); }},
      {"GetDsvRows", [](toolkit::Dsv& v) { return v.GetDsvRows(); }},
      {"GetDsvCols", [](toolkit::Dsv& v) { return v.GetDsvCols(); }},
      {"GetDsvScope", [](toolkit::Dsv& v) { return v.GetDsvScope(); }},
      {"GetDsvValue", [](toolkit::Dsv& v) { return v.GetDsvValue(); }},
      {"GetDsvUseCount", [](toolkit::Dsv& v) { return v.GetDsvUseCount(); }},
  };
  return calls;
}

class MemberTableTest : public testing::TestWithParam<NameLookup> {};

TEST_P(MemberTableTest, EveryMemberIsLookedUpOnceAndAnswersItsOwnValue) {
  auto plant = MakePlant();
  const auto pressure = plant->DataSources()->Item(1)->Variables()->Item(2);
  pressure->SetDsvRows(3);
  pressure->SetDsvCols(2);
  pressure->SetDsvScope(toolkit::scope::kPublic);
  pressure->SetDsvValue(2.5);
  pressure->SetUseCount(2);
  auto counts = std::make_shared<LookupCounts>();
  const auto adapted =
      win32::AdaptAs<toolkit::Dsv>(Forward(win32::ExposeObject(pressure).Get(), GetParam(), GUID_NULL, counts).Get());
  const auto lookups = [&] { return counts->getIDsOfNames + counts->getDispID; };
  int expectedLookups = 0;
  for (int round = 0; round < 2; ++round) {
    for (const MemberCall& call : Calls()) {
      EXPECT_EQ(call.call(*adapted), call.call(*pressure)) << call.member << " round " << round;
      if (round == 0) ++expectedLookups;
      EXPECT_EQ(lookups(), expectedLookups) << call.member << " round " << round;
    }
  }
  EXPECT_EQ(counts->invoke, 2 * static_cast<int>(Calls().size()));
}

INSTANTIATE_TEST_SUITE_P(Lookups, MemberTableTest,
                         testing::Values(NameLookup::kGetIDsOfNames, NameLookup::kDispatchExOnly));

TEST(MemberTable, AMemberTheObjectLacksIsAskedOnceAndStaysMissing) {
  auto plant = MakePlant();
  auto counts = std::make_shared<LookupCounts>();
  const auto ds = win32::AdaptAs<toolkit::Ds>(
      Forward(win32::ExposeObject(plant->DataSources()->Item(1)).Get(), NameLookup::kGetIDsOfNames, GUID_NULL, counts)
          .Get());
  EXPECT_EQ(ds->AsCustom(), nullptr);  // Tanks answers no GetParams
  const int afterFirst = counts->getIDsOfNames;
  EXPECT_EQ(ds->AsCustom(), nullptr);
  EXPECT_EQ(ds->GetDsName(), u"Tanks");
  EXPECT_EQ(ds->GetDsName(), u"Tanks");
  EXPECT_EQ(counts->getIDsOfNames, afterFirst + 1);
}

}  // namespace
}  // namespace vd::testhost
