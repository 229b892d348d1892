// The data source panel: what a fill writes, and what the user's edits write
// to the data source.
#include <vector>

#include "panel_harness.h"
#include "platform/common_dialog.h"

namespace vd::system_test {
namespace {

class DsPanel : public ::testing::Test {
 protected:
  void SetUp() override { h.dlg.InitDBForEdit(h.panels); }
  void Look(const String& key) { ASSERT_TRUE(h.Click(key)) << ToUtf8(key); }
  PanelHarness h;
};

TEST_F(DsPanel, FillWritesNothingAndShowsTheFormatAndTheViewSort) {
  h.inside.DsSortFlags().AddAfter(4, true);
  h.inside.DsSortFlags().Remove(4);
  PanelRecorder recorder(h);
  Look(u"_bin.dat4");
  Look(u"_C:\\data\\in.dat3");
  EXPECT_EQ(recorder.log,
            (std::vector<std::string>{"txtDsName filling", "optBinary filling", "txtSize filling", "chkSort filling",
                                      "txtDsName filling", "optASCII filling", "chkSort filling"}));
  EXPECT_FALSE(h.inside.PanelFilling());
  EXPECT_FALSE(h.dlg.IsModified());
  EXPECT_FALSE(h.Ds(4)->GetDsAscii());
  EXPECT_EQ(h.Ds(3)->GetDsName(), u"C:\\data\\in.dat");
}

TEST_F(DsPanel, FormatNameAndBrowseGoToTheDataSourceAtOnce) {
  Look(u"_C:\\data\\in.dat3");
  ASSERT_TRUE(h.dlg.optBinary.UserClick());
  EXPECT_FALSE(h.Ds(3)->GetDsAscii());
  ASSERT_TRUE(h.dlg.optASCII.UserClick());
  EXPECT_TRUE(h.Ds(3)->GetDsAscii());
  EXPECT_TRUE(h.dlg.IsModified());

  for (const char16_t* name : {u"x", u""}) {
    ASSERT_TRUE(h.dlg.txtDsName.UserType(name));
    EXPECT_EQ(h.Ds(3)->GetDsName(), name);
    EXPECT_EQ(h.Node(u"_C:\\data\\in.dat3")->Text(), name);
  }

  h.inside.ClearModified();
  h.ui.AnswerOpenFile(u"");  // cancelled: nothing changes
  h.ui.AnswerOpenFile(u"D:\\feeds\\new.dat");
  ASSERT_TRUE(h.dlg.cmdBrowse.UserClick());
  EXPECT_FALSE(h.dlg.IsModified());
  ASSERT_TRUE(h.dlg.cmdBrowse.UserClick());
  EXPECT_EQ(h.Ds(3)->GetDsName(), u"D:\\feeds\\new.dat");
  EXPECT_EQ(h.dlg.txtDsName.Text(), u"D:\\feeds\\new.dat");
  EXPECT_TRUE(h.dlg.IsModified());
  ASSERT_EQ(h.ui.OpenFileCalls().size(), 2u);
  const auto& call = h.ui.OpenFileCalls()[1];
  EXPECT_EQ(call.owner, u"frmDataBrowser");
  EXPECT_EQ(call.title, u"File Datasource Origin");
  EXPECT_EQ(call.filter, u"Data Files (*.dat)|*.dat|All Files (*.*)|*.*|");
  EXPECT_EQ(call.defaultExt, u"");
  EXPECT_EQ(call.flags, platform::modCommonDialog::OpenFileFlags(false, false));
}

TEST_F(DsPanel, MoreHandsTheDataSourceToTheHostThenRebuildsItsVariables) {
  int calls = 0;
  h.desk.onEditCustomDs = [&](automation::ObjectRef& obj) {
    EXPECT_EQ(obj, h.Ds(5));
    obj = nullptr;  // the host may hand back another object
    h.Ds(5)->Variables()->Add();
    if (++calls == 2) automation::Raise(automation::err::kInvalidProcedureCall);
  };
  Look(u"_Alarms5");
  h.inside.ClearModified();
  ASSERT_TRUE(h.dlg.cmdDSCustom.UserClick());
  EXPECT_EQ(h.Node(u"_Alarms5")->Children(), 3);
  ASSERT_TRUE(h.dlg.cmdDSCustom.UserClick());  // the host's error ends the command quietly
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(h.Node(u"_Alarms5")->Children(), 3);  // no rebuild after the error
  EXPECT_FALSE(h.dlg.IsModified());
}

}  // namespace
}  // namespace vd::system_test
