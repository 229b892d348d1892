// The settings frame of a SCADA data source: the application number, the
// application list and Apply.
#include "scada_harness.h"

namespace vd::feature_test {
namespace {

TEST(DsSettings, TypedApplicationAppliesAtOnceWhenItIsAWholeNumberOfAtLeastOne) {
  const std::tuple<const char16_t*, int32_t, bool> cases[] = {
      // typed, parameter 2 afterwards (1 = untouched), Apply enabled
      {u"12 - Main", 12, true}, {u"0 - X", 1, false}, {u"abc", 1, false},
      {u"2.5", 2, true},        {u"3.5", 4, true},    {u"99999999999", 1, false}};
  for (const auto& [typed, stored, applyEnabled] : cases) {
    ScadaHarness h;
    h.Look(u"_Telvane2");
    ASSERT_TRUE(h.dlg.cboTelvaneApplication.UserType(typed));
    EXPECT_EQ(automation::CLng(h.Param(0, 2)), stored) << ToUtf8(typed);
    EXPECT_EQ(h.dlg.cmdTelvaneDsApply.Enabled(), applyEnabled) << ToUtf8(typed);
    EXPECT_EQ(h.dlg.IsModified(), stored != 1) << ToUtf8(typed);
  }
}

TEST(DsSettings, ApplyRewritesApplicationItemIdsAndNormalisesTheBlinkPeriod) {
  ScadaHarness h;
  h.Look(u"_Telvane2");
  EXPECT_EQ(h.dlg.txtBlinkPeriod.Text(), u"500");
  ASSERT_TRUE(h.dlg.txtBlinkPeriod.UserType(u"12.5x"));
  ASSERT_TRUE(h.dlg.cboTelvaneApplication.UserType(u"7"));
  EXPECT_EQ(h.Text(1, 2), u"\\\\APL\\7\\P\\P101\\10:OV");
  EXPECT_EQ(h.Text(4, 2), u"");              // unmapped
  EXPECT_EQ(h.Text(5, 2), u"\\\\WD\\1:OV");  // kind B belongs to no application
  EXPECT_EQ(automation::CLng(h.Param(0, 3)), 12);
  EXPECT_EQ(h.dlg.txtBlinkPeriod.Text(), u"12");
  EXPECT_EQ(h.ui.ScreenPointers(), (std::vector<int16_t>{11, 0}));
  EXPECT_TRUE(h.ui.MessageBoxes().empty());
}

TEST(DsSettings, DropDownListsTheApplicationsKeepsTheTextAndAFailingListIsReported) {
  ScadaHarness h;
  h.Look(u"_Telvane2");
  ASSERT_TRUE(h.dlg.cboTelvaneApplication.UserType(u"5"));
  ASSERT_TRUE(h.dlg.cboTelvaneApplication.UserDropDown());
  ASSERT_EQ(h.dlg.cboTelvaneApplication.ListCount(), 2);
  EXPECT_EQ(h.dlg.cboTelvaneApplication.List(1), u"12 - Main");
  EXPECT_EQ(h.dlg.cboTelvaneApplication.Text(), u"5");
  EXPECT_EQ(automation::CLng(h.Param(0, 2)), 5);  // the reload applied nothing again
  h.sample.scada->SetCallFails(sample::ScadaCall::kGetApplications, true);
  h.ui.ExpectMessageBox(u"Unable to load applications", forms::vbOKOnly);
  ASSERT_TRUE(h.dlg.cboTelvaneApplication.UserDropDown());
  EXPECT_EQ(h.ui.MessageBoxes().back().title, std::nullopt);
  ASSERT_TRUE(h.dlg.cboTelvaneApplication.UserType(u"3"));
  EXPECT_EQ(automation::CLng(h.Param(0, 2)), 3);
}

}  // namespace
}  // namespace vd::feature_test
