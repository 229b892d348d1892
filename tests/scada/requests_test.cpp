// The request layer to the SCADA system.
#include "scada_harness.h"

namespace vd::feature_test {
namespace {

namespace sa = scada::modSADataSources;
using automation::Variant;

TEST(KorlRequest, AnswersZeroOrOneAndKeepsWhatTheCallLeft) {
  auto probe = std::make_shared<Probe>();
  Variant result = u"stale";
  EXPECT_EQ(sa::RunKorlRequest(nullptr, u"x", result), 1);
  EXPECT_TRUE(result.IsEmpty());
  probe->korl = [](const String& request, Variant& r) { r = request + u"!"; };
  EXPECT_EQ(sa::RunKorlRequest(probe, u"x", result), 0);
  EXPECT_EQ(result.AsString(), u"x!");
  probe->korl = [](const String&, Variant& r) {
    r = u"part";
    automation::Raise(1004, u"down");
  };
  EXPECT_EQ(sa::RunKorlRequest(probe, u"x", result), 1);
  EXPECT_EQ(result.AsString(), u"part");
}

TEST(ApplicationPath, SendsTheThreeLineRequestAndPassesTheAnswerOn) {
  forms::testing::ScriptedUiServices ui;
  auto probe = std::make_shared<Probe>();
  String sent;
  probe->korl = [&sent](const String& request, Variant& r) {
    sent = request;
    r = u"C:\\apl\\";
  };
  EXPECT_EQ(sa::GetApplicationPath(nullptr, 3, ui), u"");
  EXPECT_EQ(sa::GetApplicationPath(probe, 3, ui), u"C:\\apl\\");
  EXPECT_EQ(sent, u"@path1=path(\"APL_\")\n@path1 =%path1(1)\n#return substr(%path1,1,length(%path1)-4)");
  probe->korl = [](const String&, Variant&) { automation::Raise(1004); };
  EXPECT_EQ(sa::GetApplicationPath(probe, 3, ui), u"");  // a failed request is silent
  probe->korl = [](const String&, Variant& r) { r = automation::Array{0, {Variant(1)}}; };
  ui.ExpectMessageBox(
      u"Could not find application path. \nPossibly Telvane is down or application number does not exist. \n"
      u"Requested application number was 3\nVB error description: \"Type mismatch\" (13)",
      forms::vbCritical);
  EXPECT_EQ(sa::GetApplicationPath(probe, 3, ui), u"");
  EXPECT_EQ(ui.MessageBoxes().back().title, std::nullopt);
}

}  // namespace
}  // namespace vd::feature_test
