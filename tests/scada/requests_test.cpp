// The request layer to the SCADA system.
#include <functional>

#include "browser_harness.h"
#include "scada/sa_data_sources.h"
#include "vd/automation/error.h"

namespace vd::system_test {
namespace {

namespace sa = scada::modSADataSources;
using automation::Variant;

// A communication object whose ExecuteKorl does what the test says.
class KorlProbe final : public toolkit::Communication {
 public:
  std::function<void(const String&, Variant&)> korl;
  void GetApplications(Variant&, Variant&) override { automation::Raise(5); }
  void ExecuteKorl(const String& request, Variant& result) override { korl(request, result); }
  void ScriptFileChanged(const String&) override { automation::Raise(5); }
  void ExecuteKorlInApp(int16_t, const String&, Variant&) override { automation::Raise(5); }
  void ValidateItem(const String&, Variant&) override { automation::Raise(5); }
};

TEST(KorlRequest, AnswersZeroOrOneAndKeepsWhatTheCallLeft) {
  auto probe = std::make_shared<KorlProbe>();
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
  auto probe = std::make_shared<KorlProbe>();
  String sent;
  probe->korl = [&sent](const String& request, Variant& r) {
    sent = request;
    r = u"C:\\apl\\";
  };
  EXPECT_EQ(sa::GetApplicationPath(nullptr, 3, ui), u"");
  EXPECT_EQ(sa::GetApplicationPath(probe, 3, ui), u"C:\\apl\\");
  EXPECT_EQ(sent, u"@path1=path(\"APL_\")\n@path1 =%path1(1)\n#return substr(%path1,1,length(%path1)-4)");

  probe->korl = [](const String&, Variant&) { automation::Raise(1004); };
  EXPECT_EQ(sa::GetApplicationPath(probe, 3, ui), u"");
  EXPECT_TRUE(ui.MessageBoxes().empty());  // a failed request is silent

  probe->korl = [](const String&, Variant& r) { r = automation::Array{0, {Variant(1)}}; };
  ui.ExpectMessageBox(
      u"Could not find application path. \nPossibly Telvane is down or application number does not exist. \n"
      u"Requested application number was 3\nVB error description: \"Type mismatch\" (13)",
      forms::vbCritical);
  EXPECT_EQ(sa::GetApplicationPath(probe, 3, ui), u"");
  EXPECT_EQ(ui.MessageBoxes().back().title, std::nullopt);
}

}  // namespace
}  // namespace vd::system_test
