#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "error_probe.h"
#include "vd/automation/conversions.h"
#include "vd/sample/memory_toolkit.h"

namespace vd::sample {
namespace {

using automation::String;
using testing::RaisedBy;
namespace kind = toolkit::kind;

std::shared_ptr<MemoryDisplay> DisplayWith(const std::vector<String>& memoryNames) {
  auto display = MemoryDisplay::Create();
  for (const auto& name : memoryNames) display->DataSources()->Add(kind::kMemory, u"")->SetDsName(name);
  return display;
}

std::vector<String> DsvNames(MemoryDsvList& vars) {
  std::vector<String> names;
  for (int32_t j = 1; j <= vars.DsvCount(); ++j) names.push_back(vars.DsvItem(j)->GetDsvName());
  return names;
}

TEST(MemoryToolkitAddDs, NamesNewDataSourcesByKindAndCreationText) {
  const struct {
    std::vector<String> existing;
    int32_t kind;
    String text;
    String expected;
  } cases[] = {{{u"FILE2.DAT"}, kind::kFile, u"", u"file3.dat"},  // taken, ignoring case
               {{u"a"}, kind::kFile, u"a", u"a"},                 // a file name may repeat
               {{u"a"}, kind::kConstant, u"ignored", u"constant2"},
               {{u"x", u"memory3"}, kind::kMemory, u"", u"memory4"},
               {{u"default.custom"}, kind::kCustom, u"Acme.Report", u"default.custom"}};
  for (const auto& c : cases) {
    auto display = DisplayWith(c.existing);
    auto list = display->DataSources();
    auto ds = list->AddDs(c.kind, c.text);
    ASSERT_NE(ds, nullptr) << c.kind;
    EXPECT_EQ(ds->GetDsName(), c.expected) << c.kind;
    EXPECT_EQ(ds->GetDsType(), c.kind);
    ASSERT_EQ(list->DsCount(), static_cast<int32_t>(c.existing.size()) + 1);
    EXPECT_EQ(list->DsItem(list->DsCount()), ds) << "the new data source goes last";
  }
}

TEST(MemoryToolkitAddDs, RefusesKindsItDoesNotKnowAndCustomWithoutClass) {
  const struct {
    int32_t kind;
    String text;
  } cases[] = {{5, u"Spreadsheet"}, {0, u""}, {4, u""}, {106, u"X"}, {kind::kCustom, u""}};
  for (const auto& c : cases) {
    auto display = DisplayWith({u"a"});
    EXPECT_EQ(display->DataSources()->AddDs(c.kind, c.text), nullptr) << c.kind;
    EXPECT_EQ(display->DataSources()->DsCount(), 1) << c.kind;
  }
}

TEST(MemoryToolkitAddDs, GivesScadaDataSourcesTheirMarkerParameters) {
  auto ds = MemoryDisplay::Create()->DataSources()->AddDs(kind::kCustom, u"telvanedv.DATASOURCE");
  auto params = ds->AsCustom()->GetParams();
  ASSERT_EQ(params->ParamCount(), 3);
  EXPECT_EQ(params->ParamItem(1)->GetParamType(), toolkit::paramtype::kText);
  EXPECT_EQ(params->ParamItem(1)->GetParamValue().AsString(), kScadaDsMarker);
  EXPECT_EQ(params->ParamItem(2)->GetParamValue(), automation::Variant(0.0));
  EXPECT_EQ(params->ParamItem(3)->GetParamValue().AsDouble(), kScadaDefaultBlinkPeriod);
  auto other = MemoryDisplay::Create()->DataSources()->AddDs(kind::kCustom, u"Acme.Report");
  EXPECT_EQ(other->AsCustom()->GetParams()->ParamCount(), 0);
}

TEST(MemoryToolkitAddDsv, AppendsFreshlyNamedVariablesWithTheKindsDefaults) {
  const struct {
    int32_t kind;
    int32_t type;
  } cases[] = {{kind::kConstant, toolkit::dsvtype::kFloat}, {kind::kCustom, toolkit::dsvtype::kDouble}};
  for (const auto& c : cases) {
    auto ds = MemoryDisplay::Create()->DataSources()->Add(c.kind, u"X.Y");
    auto vars = ds->GetDsVars();
    auto first = vars->AddDsv();
    auto second = vars->AddDsv();
    EXPECT_EQ(DsvNames(*ds->Variables()), (std::vector<String>{u"var1", u"var2"})) << c.kind;
    EXPECT_EQ(vars->DsvItem(2), second);
    EXPECT_EQ(first->GetDsvType(), c.type) << c.kind;
    EXPECT_EQ(first->GetDsvShape(), toolkit::shape::kScalar);
    EXPECT_EQ(first->GetDsvScope(), toolkit::scope::kPrivate);
  }
}

TEST(MemoryToolkitAddDsv, SkipsNamesTakenIgnoringCaseAndFreesNamesOfDeletedVariables) {
  auto ds = MemoryDisplay::Create()->DataSources()->Add(kind::kMemory, u"");
  auto vars = ds->Variables();
  vars->Add();
  vars->Add()->SetDsvName(u"VAR3");
  EXPECT_EQ(vars->Add()->GetDsvName(), u"var4");
  ASSERT_TRUE(vars->Item(2)->RemoveDsv());  // "VAR3" is free again
  vars->Item(2)->SetDsvName(u"x");          // and so is "var4"
  EXPECT_EQ(vars->Add()->GetDsvName(), u"var3");
  EXPECT_EQ(vars->Add()->GetDsvName(), u"var4");
}

TEST(MemoryToolkitDeletes, RefuseVariablesInUseAndDataSourcesHoldingThem) {
  const struct {
    std::vector<int32_t> useCounts;
    int32_t removeVariable;  // 1-based, 0: remove the data source
    bool removed;
  } cases[] = {{{0, 1}, 2, false}, {{0, 5}, 1, true}, {{}, 0, true}, {{3, 0, 0}, 0, false}};
  for (const auto& c : cases) {
    auto display = DisplayWith({u"first"});
    auto list = display->DataSources();
    auto ds = list->Add(kind::kMemory, u"");
    for (int32_t use : c.useCounts) ds->Variables()->Add()->SetUseCount(use);
    const auto before = static_cast<int32_t>(c.useCounts.size());
    if (c.removeVariable == 0) {
      EXPECT_EQ(ds->RemoveDs(), c.removed);
      EXPECT_EQ(list->DsCount(), c.removed ? 1 : 2);
      EXPECT_EQ(ds->IsRemoved(), c.removed);
    } else {
      auto dsv = ds->Variables()->Item(c.removeVariable);
      EXPECT_EQ(dsv->GetDsvUseCount(), c.useCounts[static_cast<size_t>(c.removeVariable) - 1]);
      EXPECT_EQ(dsv->RemoveDsv(), c.removed);
      EXPECT_EQ(ds->Variables()->DsvCount(), c.removed ? before - 1 : before);
      EXPECT_EQ(dsv->IsRemoved(), c.removed);
    }
  }
}

TEST(MemoryToolkitDeletes, DeletedObjectsRaiseErrorFiveOnEveryUse) {
  auto display = MemoryDisplay::Create();
  auto ds = display->DataSources()->Add(kind::kCustom, kScadaDsClass);
  auto vars = ds->GetDsVars();
  auto dsv = vars->AddDsv();
  auto kept = vars->AddDsv();
  auto params = ds->AsCustom()->GetParams();
  auto param = params->ParamItem(1);
  ASSERT_TRUE(dsv->RemoveDsv());
  EXPECT_EQ(kept->GetDsvName(), u"var2") << "the rest of the data source stays usable";
  ASSERT_TRUE(ds->RemoveDs());

  const std::function<void()> uses[] = {[&] { dsv->RemoveDsv(); },     [&] { kept->SetDsvRows(2); },
                                        [&] { ds->DsMoveUp(); },       [&] { vars->AddDsv(); },
                                        [&] { params->ParamCount(); }, [&] { param->SetParamValue(9, u"x"); }};
  for (size_t i = 0; i < std::size(uses); ++i) {
    const auto raised = RaisedBy(uses[i]);
    EXPECT_EQ(raised.number, automation::err::kInvalidProcedureCall) << "use " << i;
    EXPECT_NE(raised.description.find("deleted"), std::string::npos) << raised.description;
  }
}

TEST(MemoryToolkitLifetime, ReleasingTheDisplayFreesItsObjectsAndOrphansWhatIsStillHeld) {
  auto display = MemoryDisplay::Create();
  auto ds = display->DataSources()->Add(kind::kCustom, u"Acme.Report");
  auto dsv = ds->Variables()->Add();
  std::weak_ptr<MemoryDsList> weakList = display->DataSources();
  std::weak_ptr<MemoryDs> weakDs = ds;
  EXPECT_EQ(dsv->GetDsvParent(), ds);
  auto facet = dsv->AsCustom();  // facets keep their object alive, not the other way round
  display.reset();
  EXPECT_TRUE(weakList.expired());
  EXPECT_EQ(ds->GetDsName(), u"default.custom") << "a held data source keeps its own data";
  EXPECT_EQ(RaisedBy([&] { ds->DsMoveDown(); }).number, automation::err::kInvalidProcedureCall);
  EXPECT_EQ(RaisedBy([&] { ds->RemoveDs(); }).number, automation::err::kInvalidProcedureCall);
  ds.reset();
  EXPECT_TRUE(weakDs.expired()) << "a variable does not keep its data source alive";
  EXPECT_EQ(dsv->GetDsvName(), u"var1");
  EXPECT_EQ(facet->GetParams()->ParamCount(), 0);
  for (const auto& call : std::vector<std::function<void()>>{[&] { dsv->GetDsvParent(); }, [&] { dsv->RemoveDsv(); },
                                                             [&] { dsv->DsvMoveUp(); }}) {
    const auto raised = RaisedBy(call);
    EXPECT_EQ(raised.number, automation::err::kInvalidProcedureCall);
    EXPECT_NE(raised.description.find("no longer belongs"), std::string::npos) << raised.description;
  }
}

TEST(MemoryToolkitVariables, KeepDimensionsTypeAndScopeWithinTheToolkitsLimits) {
  using Get = int32_t (MemoryDsv::*)();
  using Set = void (MemoryDsv::*)(int32_t);
  const struct {
    Get get;
    Set set;
    int32_t value;
    bool accepted;
    const char* named;  // what the description names when refused
  } cases[] = {{&MemoryDsv::GetDsvRows, &MemoryDsv::SetDsvRows, -1, false, "Rows"},
               {&MemoryDsv::GetDsvCols, &MemoryDsv::SetDsvCols, 65536, false, "Columns"},
               {&MemoryDsv::GetDsvType, &MemoryDsv::SetDsvType, 10, false, "type"},
               {&MemoryDsv::GetDsvScope, &MemoryDsv::SetDsvScope, 3, false, "Scope"}};
  for (const auto& c : cases) {
    auto dsv = MemoryDisplay::Create()->DataSources()->Add(kind::kMemory, u"")->Variables()->Add();
    dsv->SetDsvScope(2);
    dsv->SetDsvType(3);
    dsv->SetDsvRows(7);
    dsv->SetDsvCols(7);
    const int32_t before = ((*dsv).*c.get)();
    const auto raised = RaisedBy([&] { ((*dsv).*c.set)(c.value); });
    if (c.accepted) {
      EXPECT_EQ(raised.number, 0) << raised.description;
      EXPECT_EQ(((*dsv).*c.get)(), c.value);
    } else {
      EXPECT_EQ(raised.number, automation::err::kInvalidProcedureCall) << c.named << " " << c.value;
      EXPECT_NE(raised.description.find(c.named), std::string::npos) << raised.description;
      EXPECT_NE(raised.description.find(std::to_string(c.value)), std::string::npos) << raised.description;
      EXPECT_EQ(((*dsv).*c.get)(), before) << "a refused value changes nothing";
    }
  }
}

TEST(MemoryToolkitVariables, DeriveTheShapeFromRowsAndColumns) {
  const struct {
    int32_t rows, cols, shape;
  } cases[] = {{1, 0, toolkit::shape::kScalar}, {0, 5, toolkit::shape::kVector}, {2, 1, toolkit::shape::kMatrix}};
  auto dsv = MemoryDisplay::Create()->DataSources()->Add(kind::kMemory, u"")->Variables()->Add();
  for (const auto& c : cases) {
    dsv->SetDsvRows(c.rows);
    dsv->SetDsvCols(c.cols);
    EXPECT_EQ(dsv->GetDsvShape(), c.shape) << c.rows << "x" << c.cols;
  }
}

TEST(MemoryParams, TextIsStoredAsStringNumbersAsDoubleAndRefusalsChangeNothing) {
  auto params = MemoryDisplay::Create()->DataSources()->AddDs(kind::kCustom, u"Acme.Report")->AsCustom()->GetParams();
  auto added = params->AddParam();
  EXPECT_EQ(added->GetParamType(), 0);
  EXPECT_TRUE(added->GetParamValue().IsEmpty());
  for (const int16_t index : {0, 2}) {
    EXPECT_EQ(RaisedBy([&] { params->ParamItem(index); }).number, automation::err::kSubscriptOutOfRange) << index;
  }
  const struct {
    int32_t type;
    automation::Variant value;
    automation::Variant stored;  // Empty: refused with error
    int32_t error;
  } cases[] = {{9, int32_t{12}, u"12", 0},
               {9, {}, u"", 0},
               {5, u"500", 500.0, 0},
               {5, int16_t{-3}, -3.0, 0},
               {5, {}, 0.0, 0},
               {7, 1.0, {}, automation::err::kInvalidProcedureCall},
               {5, u"abc", {}, automation::err::kTypeMismatch},
               {5, automation::Variant::Null(), {}, automation::err::kInvalidUseOfNull}};
  for (const auto& c : cases) {
    auto param = params->AddParam();
    param->SetParamValue(9, u"kept");
    EXPECT_EQ(RaisedBy([&] { param->SetParamValue(c.type, c.value); }).number, c.error) << c.type;
    EXPECT_EQ(param->GetParamType(), c.error == 0 ? c.type : 9);
    const automation::Variant expected = c.error == 0 ? c.stored : automation::Variant(u"kept");
    EXPECT_EQ(param->GetParamValue(), expected) << automation::ToUtf8(automation::CStr(expected));
    EXPECT_EQ(param->GetParamValue().Type(), expected.Type());
  }
}

}  // namespace
}  // namespace vd::sample
