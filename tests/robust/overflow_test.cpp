// Counts of data sources and variables are 16-bit: a display with more than
// 32767 of either is an overflow error (6) wherever the dialog counts them,
// never a count that wraps.
#include <gtest/gtest.h>

#include <functional>

#include "dialog_fixture.h"
#include "vd/automation/error.h"

namespace vd::robust_test {
namespace {

using browser::frmDataBrowser;

constexpr int32_t kMax = 32767;
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

// Opening a run counts the data sources and each one's variables.
TEST(OpeningCounts, AreOverflowBeyondTheLargestInteger) {
  const struct {
    int32_t dataSources, variables, error;
    const char16_t* lastKey;
  } cases[] = {
      {kMax, 0, 0, u"_memory3276732767"}, {kMax + 1, 0, kOverflow, nullptr}, {1, kMax + 1, kOverflow, nullptr}};
  for (const auto& c : cases) {
    const auto display = Display(c.dataSources, c.variables);
    for (const bool selection : {false, true}) {
      DialogFixture<> f;
      automation::String lastKey;
      if (c.error == 0) {
        f.user.Check([&] { lastKey = f.dlg.treDataSources.Nodes().Item(c.dataSources)->Key(); }).Click(f.dlg.dbClose);
      }
      EXPECT_EQ(ErrorOf([&] {
                  if (selection) {
                    (void)f.desk.SelectDataVar(display, 1, 500, 0, 0);
                  } else {
                    f.desk.EditDataSources(display);
                  }
                }),
                c.error)
          << c.dataSources << "/" << c.variables;
      EXPECT_TRUE(c.error != 0 || lastKey == c.lastKey);
    }
  }
}

// The host's pre-selection mark is searched through the data sources, counted as the tree counts them.
TEST(MarkedVariableSearch, OverflowsWithTooManyDataSources) {
  const auto display = Display(kMax + 1, 1);
  display->DataSources()->Item(1)->SetDsName(
      u"0_ThIs_1_StRiNg_2_WiLl_3_NeVeR_4_eVeR_5_bE_6_uSeD_7_aS_8_a_9_nAmE_8_bY_7_THE_6_users543210Plant");
  DialogFixture<> f;
  EXPECT_EQ(ErrorOf([&] { (void)f.desk.SelectDataVar(display, 1, 500, 0, 0); }), kOverflow);
}

// The tree commands count after they change the model: an add beyond 32767 is
// an overflow error (the model keeps what it added), a delete at the limit
// counts down without wrapping.
TEST(CommandCounts, OverflowBeyondTheLargestIntegerAndNeverWrap) {
  const struct {
    int32_t dataSources, variables;
    const char16_t* node;
    forms::CommandButton frmDataBrowser::*button;
    int32_t error, dataSourcesAfter, variablesAfter;
  } cases[] = {{kMax - 1, 0, u"_memory11", &frmDataBrowser::cmdAddDs, 0, kMax, 0},
               {kMax, 0, u"_memory11", &frmDataBrowser::cmdAddDs, kOverflow, kMax + 1, 0},
               {1, kMax - 1, u"1:1", &frmDataBrowser::cmdAddDsv, 0, 1, kMax},
               {1, kMax, u"1:1", &frmDataBrowser::cmdAddDsv, kOverflow, 1, kMax + 1},
               {1, kMax, u"1:1", &frmDataBrowser::cmdDelete, 0, 1, kMax - 1},
               {kMax, 0, u"_memory22", &frmDataBrowser::cmdDelete, 0, kMax - 1, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.dataSources) + "/" + std::to_string(c.variables));
    const auto display = Display(c.dataSources, c.variables);
    DialogFixture<> f;
    int32_t error = -1;
    f.user.SelectNode(f.dlg.treDataSources, c.node)
        .Pick(f.dlg.cboDsAdd, u"Memory")
        .Check([&] { error = ErrorOf([&] { ASSERT_TRUE((f.dlg.*c.button).UserClick()); }); })
        .Click(f.dlg.dbClose);
    f.desk.EditDataSources(display);
    EXPECT_EQ(error, c.error);
    EXPECT_EQ(display->DataSources()->DsCount(), c.dataSourcesAfter);
    EXPECT_EQ(display->DataSources()->Item(1)->GetDsVars()->DsvCount(), c.variablesAfter);
  }
}

}  // namespace
}  // namespace vd::robust_test
