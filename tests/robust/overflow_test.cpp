// Counts of data sources and variables are 16-bit: a display with more than
// 32767 of either is an overflow error (6) wherever the dialog counts them,
// never a count that wraps.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "dialog_fixture.h"
#include "vd/automation/error.h"

namespace vd::robust_test {
namespace {

using automation::String;
using automation::ToDecimal;

constexpr int32_t kMaxCount = 32767;
constexpr int32_t kOverflow = 6;

int32_t ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const automation::AutomationError& e) {
    return e.Number();
  }
  return 0;
}

// dataSources memory data sources; the first has variables variables.
std::shared_ptr<sample::MemoryDisplay> Display(int32_t dataSources, int32_t variables) {
  auto display = sample::MemoryDisplay::Create();
  for (int32_t i = 0; i < dataSources; ++i) display->DataSources()->AddDs(toolkit::kind::kMemory, u"");
  const toolkit::DsvListRef vars = display->DataSources()->Item(1)->GetDsVars();
  for (int32_t j = 0; j < variables; ++j) vars->AddDsv();
  return display;
}

struct CountCase {
  const char* name;
  int32_t dataSources;
  int32_t variables;  // of the first data source
  int32_t error;      // of opening the dialog over the display
};

template <class Case>
std::string CaseName(const ::testing::TestParamInfo<Case>& tested) {
  return tested.param.name;
}

class OpeningCounts : public ::testing::TestWithParam<CountCase> {};

TEST_P(OpeningCounts, AreOverflowBeyondTheLargestInteger) {
  const CountCase& c = GetParam();
  const auto display = Display(c.dataSources, c.variables);
  for (const bool selection : {false, true}) {
    DialogFixture f;
    int32_t nodes = 0;
    String lastKey;
    if (c.error == 0) {
      f.user
          .Check([&] {
            nodes = f.dlg.treDataSources.Nodes().Count();
            lastKey = f.dlg.treDataSources.Nodes().Item(nodes)->Key();
          })
          .Click(f.dlg.dbClose);
    }
    const int32_t error = ErrorOf([&] {
      if (selection) {
        (void)f.desk.SelectDataVar(display, 1, 500, 0, 0);
      } else {
        f.desk.EditDataSources(display);
      }
    });
    EXPECT_EQ(error, c.error) << (selection ? "selection run" : "editing run");
    if (c.error != 0) continue;
    EXPECT_EQ(nodes, c.dataSources + c.variables);
    const String expected = c.variables > 0 ? u"1:" + ToDecimal(c.variables)
                                            : u"_memory" + ToDecimal(c.dataSources) + ToDecimal(c.dataSources);
    EXPECT_EQ(lastKey, expected);
  }
}

INSTANTIATE_TEST_SUITE_P(Displays, OpeningCounts,
                         ::testing::Values(CountCase{"MostDataSources", kMaxCount, 0, 0},
                                           CountCase{"OneDataSourceTooMany", kMaxCount + 1, 0, kOverflow},
                                           CountCase{"MostVariables", 1, kMaxCount, 0},
                                           CountCase{"OneVariableTooMany", 1, kMaxCount + 1, kOverflow},
                                           CountCase{"FarTooManyDataSources", 65535, 0, kOverflow}),
                         CaseName<CountCase>);

// The host's pre-selection mark is searched through the data sources, counted
// as the tree counts them.
TEST(MarkedVariableSearch, OverflowsWithTooManyDataSources) {
  const auto display = Display(kMaxCount + 1, 1);
  const String marker = u"0_ThIs_1_StRiNg_2_WiLl_3_NeVeR_4_eVeR_5_bE_6_uSeD_7_aS_8_a_9_nAmE_8_bY_7_THE_6_users543210";
  const toolkit::DsRef ds = display->DataSources()->Item(1);
  ds->SetDsName(marker + u"Plant");
  DialogFixture f;
  EXPECT_EQ(ErrorOf([&] { (void)f.desk.SelectDataVar(display, 1, 500, 0, 0); }), kOverflow);
}

// The tree commands count after they change the model: an add beyond 32767
// is an overflow error (the model keeps what it added), a delete at the limit
// counts down without wrapping.
struct CommandCase {
  const char* name;
  int32_t dataSources;
  int32_t variables;  // of the first data source
  const char16_t* node;
  bool addDataSource, addVariable, remove;
  int32_t error;
  int32_t dataSourcesAfter, variablesAfter;
};

class CommandCounts : public ::testing::TestWithParam<CommandCase> {};

TEST_P(CommandCounts, OverflowBeyondTheLargestIntegerAndNeverWrap) {
  const CommandCase& c = GetParam();
  const auto display = Display(c.dataSources, c.variables);
  DialogFixture f;
  int32_t error = -1;
  f.user.SelectNode(f.dlg.treDataSources, c.node)
      .Check([&] {
        error = ErrorOf([&] {
          if (c.addDataSource) {
            ASSERT_TRUE(f.dlg.cboDsAdd.UserPick(u"Memory"));
            ASSERT_TRUE(f.dlg.cmdAddDs.UserClick());
          }
          if (c.addVariable) {
            ASSERT_TRUE(f.dlg.cmdAddDsv.UserClick());
          }
          if (c.remove) {
            ASSERT_TRUE(f.dlg.cmdDelete.UserClick());
          }
        });
      })
      .Click(f.dlg.dbClose);
  f.desk.EditDataSources(display);
  EXPECT_EQ(error, c.error);
  EXPECT_EQ(display->DataSources()->DsCount(), c.dataSourcesAfter);
  EXPECT_EQ(display->DataSources()->Item(1)->GetDsVars()->DsvCount(), c.variablesAfter);
}

INSTANTIATE_TEST_SUITE_P(
    Commands, CommandCounts,
    ::testing::Values(
        CommandCase{"AddTheLastDataSource", kMaxCount - 1, 0, u"_memory11", true, false, false, 0, kMaxCount, 0},
        CommandCase{"AddOneDataSourceTooMany", kMaxCount, 0, u"_memory11", true, false, false, kOverflow, kMaxCount + 1,
                    0},
        CommandCase{"AddTheLastVariable", 1, kMaxCount - 1, u"1:1", false, true, false, 0, 1, kMaxCount},
        CommandCase{"AddOneVariableTooMany", 1, kMaxCount, u"1:1", false, true, false, kOverflow, 1, kMaxCount + 1},
        CommandCase{"DeleteAVariableAtTheLimit", 1, kMaxCount, u"1:1", false, false, true, 0, 1, kMaxCount - 1},
        CommandCase{"DeleteADataSourceAtTheLimit", kMaxCount, 0, u"_memory22", false, false, true, 0, kMaxCount - 1,
                    0}),
    CaseName<CommandCase>);

}  // namespace
}  // namespace vd::robust_test
