// Whole runs of the component as a host drives them, with a scripted user.
#include "browser_harness.h"
#include "host/selection_handler.h"
#include "vd/sample/simulated_scada.h"

namespace vd::system_test {
namespace {

struct ContextCase {
  int32_t context;
  const char16_t* caption;
};

class SelectionRun : public ::testing::TestWithParam<ContextCase> {};

TEST_P(SelectionRun, TitlesTheDialogByContextAndReturnsTheVariableChosen) {
  const ContextCase& c = GetParam();
  const bool writable = c.context == 5;
  BrowserHarness h;
  auto lab = DisplayFromJson(R"({ "dataSources": [ { "name": "Lab", "kind": "custom", "className": "Lab.Sampler",
      "variables": [ { "name": "pH", "type": "Double" }, { "name": "T", "type": "Double", "access": 1 } ] } ] })");
  h.user
      .Check([&] {
        EXPECT_EQ(h.dlg.Caption(), c.caption);
        EXPECT_EQ(h.inside.WritableOnly(), writable);
        EXPECT_TRUE(h.dlg.dbOK.Visible() && h.dlg.dbEdit.Visible());
        EXPECT_EQ(h.dlg.dbClose.Left(), h.inside.CloseLeftWithButtons());
        EXPECT_EQ(h.dlg.Width(), h.inside.CollapsedWidth());
        EXPECT_EQ(h.dlg.dbEdit.Caption(), u"&Edit >>");
      })
      .SelectNode(h.dlg.treDataSources, u"1:2")
      .Check([&] { EXPECT_EQ(h.dlg.dbOK.Enabled(), !writable); })  // read only
      .SelectNode(h.dlg.treDataSources, u"1:1")
      .Click(h.dlg.dbOK);
  EXPECT_EQ(h.desk.SelectDataVar(lab, c.context, 501, 0, 0), Variable(lab, 1, 1));
  EXPECT_FALSE(h.dlg.Visible());
}

INSTANTIATE_TEST_SUITE_P(Contexts, SelectionRun,
                         ::testing::Values(ContextCase{0, u"Data Selection for Graphs"},
                                           ContextCase{1, u"Data Selection for Dynamics"},
                                           ContextCase{2, u"Data Selection for Input Objects"},
                                           ContextCase{3, u"Data Selection for Data Mapping"},
                                           ContextCase{4, u"Data Selection"},
                                           ContextCase{5, u"Data Selection for Writable Vars"},
                                           ContextCase{7, u"Data Selection"}, ContextCase{-1, u"Data Selection"}));

TEST(SelectionRunEdit, PressedTwiceOpensThenClosesThePanelWhichLetsEveryVariablePass) {
  BrowserHarness h;
  h.user
      .SelectNode(h.dlg.treDataSources, u"1:3")  // Text, refused by the numeric filter
      .Check([&] { EXPECT_FALSE(h.dlg.dbOK.Enabled()); })
      .Click(h.dlg.dbEdit)
      .Check([&] {
        EXPECT_EQ(h.inside.Mode(), kSelectPanelOpen);
        EXPECT_EQ(h.dlg.dbEdit.Caption(), u"<< &Edit");
        EXPECT_EQ(h.dlg.Width(), h.inside.ExpandedWidth());
      })
      .SelectNode(h.dlg.treDataSources, u"1:3")
      .Check([&] { EXPECT_TRUE(h.dlg.dbOK.Enabled()); })
      .SelectNode(h.dlg.treDataSources, u"_Plant1")  // a data source is never a result
      .Check([&] { EXPECT_FALSE(h.dlg.dbOK.Enabled()); })
      .SelectNode(h.dlg.treDataSources, u"1:3")
      .Click(h.dlg.dbEdit)
      .Check([&] {
        EXPECT_EQ(h.inside.Mode(), kSelect);
        EXPECT_EQ(h.dlg.dbEdit.Caption(), u"&Edit >>");
        EXPECT_EQ(h.dlg.Width(), h.inside.CollapsedWidth());
      })
      .Click(h.dlg.dbOK);
  EXPECT_EQ(h.desk.SelectDataVar(h.plant, 1, 501, 0, 0), Variable(h.plant, 1, 3));
}

TEST(SelectionRunAgain, StartsFromItsOwnInitOnTheSameForm) {
  BrowserHarness h;
  browser::frmDataBrowser* const form = h.desk.DataBrowser();
  h.user.Click(h.dlg.dbEdit).SelectNode(h.dlg.treDataSources, u"3:1").Click(h.dlg.dbOK);
  ASSERT_EQ(h.desk.SelectDataVar(h.plant, 0, 9, 0, 0), Variable(h.plant, 3, 1));
  auto other = DisplayFromJson(R"({ "dataSources": [ { "name": "Other", "kind": "memory",
      "variables": [ { "name": "X" } ] } ] })");
  h.user
      .Check([&] {
        EXPECT_EQ(h.dlg.Caption(), u"Data Selection for Dynamics");
        EXPECT_FALSE(h.inside.WritableOnly());
        EXPECT_EQ(h.inside.Mode(), kSelect);
        EXPECT_EQ(h.dlg.treDataSources.Nodes().Count(), 2);
        EXPECT_EQ(h.Selected(), u"_Other1");
        EXPECT_FALSE(h.dlg.dbOK.Enabled());
      })
      .Click(h.dlg.dbClose);
  EXPECT_EQ(h.desk.SelectDataVar(other, 1, 501, 0, 0), nullptr);
  EXPECT_EQ(h.desk.DataBrowser(), form);

  // An editing run keeps the writable wording of the context-5 run before it.
  h.user.Click(h.dlg.dbClose);
  h.desk.SelectDataVar(other, 5, 500, 0, 0);
  h.user.Check([&] { EXPECT_EQ(h.dlg.sbSelectStatus.SimpleText(), u"Select: Writable, Any type, any shape."); })
      .Click(h.dlg.dbClose);
  h.desk.EditDataSources(other);
}

TEST(RunErrors, WhileShownAreIgnoredWhilePreparingReachTheHost) {
  BrowserHarness h;
  h.user.SelectNode(h.dlg.treDataSources, u"1:2").Check([] { automation::Raise(5); });
  EXPECT_EQ(h.desk.SelectDataVar(h.plant, 1, 501, 0, 0), Variable(h.plant, 1, 2));
  EXPECT_FALSE(h.dlg.Visible());
  h.user.Click(h.dlg.dbClose);  // the next run shows the dialog as usual
  EXPECT_EQ(h.desk.SelectDataVar(h.plant, 1, 501, 0, 0), nullptr);

  EXPECT_EQ(ErrorOf([&] { h.desk.SelectDataVar(nullptr, 1, 501, 0, 0); }), automation::err::kObjectNotSet);
  EXPECT_EQ(ErrorOf([&] { h.desk.EditDataSources(nullptr); }), automation::err::kObjectNotSet);
}

TEST(VarDeskUIProperties, CommunicationIsKeptNotReturnedAndHelpFileIsApplicationWide) {
  std::weak_ptr<toolkit::Communication> kept;
  std::weak_ptr<sample::MemoryDisplay> display;
  {
    BrowserHarness h;
    BrowserHarness other;
    auto comm = std::make_shared<sample::SimulatedScada>();
    kept = comm;
    h.desk.SetCommunication(comm);
    comm.reset();
    EXPECT_FALSE(kept.expired());
    EXPECT_EQ(h.desk.GetCommunication(), nullptr);

    const String before = h.desk.HelpFile();
    h.desk.SetHelpFile(u"C:\\help\\vardesk.chm");
    EXPECT_EQ(other.desk.HelpFile(), u"C:\\help\\vardesk.chm");
    h.desk.SetHelpFile(before);

    h.dlg.InitDBForEdit(h.plant);
    display = h.plant;
    h.plant.reset();
    EXPECT_FALSE(display.expired());  // the form holds it between runs
  }
  EXPECT_TRUE(kept.expired());
  EXPECT_TRUE(display.expired());
}

TEST(SelectionHandlerTest, KeepsNothingOfWhatIsSet) {
  host::SelectionHandler handler;
  auto plant = DisplayFromJson(kPlantJson);
  const toolkit::DsvRef dsv = Variable(plant, 1, 1);
  const long uses = dsv.use_count();
  EXPECT_TRUE(handler.SetSelectedVariable(dsv).IsEmpty());
  EXPECT_EQ(dsv.use_count(), uses);
  EXPECT_EQ(handler.GetSelectedVariable(), nullptr);
}

}  // namespace
}  // namespace vd::system_test
