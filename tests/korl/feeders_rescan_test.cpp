// The rescan over the feeders sample: fifty variables against the simulated
// SCADA system, which answers text, nothing, a status or a failure per object.
#include <cstdlib>

#include "korl_harness.h"

namespace vd::system_test {
namespace {

std::filesystem::path SampleFile(const char* name) {
  const char* source = std::getenv("VD_SOURCE_DIR");
  return std::filesystem::path(source != nullptr ? source : ".") / "samples" / name;
}

TEST(FeedersRescan, EveryVariableGetsTheAnswerOfItsObject) {
  sample::SampleDisplay feeders = sample::LoadDisplayFile(SampleFile("feeders.json"));
  BrowserHarness h;
  h.dlg.SetCommunication(feeders.scada);
  h.dlg.InitDBForEdit(feeders.display);
  ASSERT_TRUE(h.Click(u"_Feeders.custom1"));
  ASSERT_TRUE(h.dlg.Command1.UserClick());

  const auto variables = feeders.display->DataSources()->Item(1)->Variables();
  ASSERT_EQ(variables->DsvCount(), 50);
  for (int32_t k = 1; k <= 50; ++k) {
    String expected =
        automation::ToDecimal(k) + u"," + automation::ToDecimal(k + 1) + u"," + automation::ToDecimal(k + 2);
    if (k == 10 || k == 20 || k == 40) expected = u"0,0,0";  // nothing, a status, no such object
    if (k == 30) expected = u"";                             // the request failed
    const auto params = variables->DsvItem(k)->AsCustom()->GetParams();
    EXPECT_EQ(automation::CStr(params->ParamItem(4)->GetParamValue()), expected) << k;
  }
  EXPECT_EQ(feeders.scada->Calls().size(), 50u);
  EXPECT_TRUE(h.dlg.IsModified());
  EXPECT_TRUE(h.ui.MessageBoxes().empty());
}

TEST(FeedersRescan, StatusAndFailureSurviveTheSampleFilesRoundTrip) {
  const std::filesystem::path file = SampleFile("feeders.json");
  const sample::SampleDisplay feeders = sample::LoadDisplayFile(file);
  const std::string written = sample::WriteDisplayJson(feeders, file.parent_path());
  const sample::SampleDisplay again = sample::LoadDisplayText(written, "again.json", file.parent_path());
  EXPECT_EQ(sample::WriteDisplayJson(again, file.parent_path()), written);
  const auto& objects = again.scada->Objects();
  EXPECT_EQ(objects.size(), 49u);
  EXPECT_EQ(objects[19].offsetsStatus, std::optional<int32_t>(3));
  EXPECT_TRUE(objects[29].offsetsFail);
  EXPECT_FALSE(objects[9].offsets.has_value());
}

}  // namespace
}  // namespace vd::system_test
