// The rescan of item offsets: the request per status colour variable, the
// texts stored, the progress display and the failures that end it.
#include "scada_harness.h"

namespace vd::feature_test {
namespace {

namespace sa = scada::modSADataSources;
using automation::Variant;
using sample::ScadaCall;

// Variables of a SCADA data source in application 12, keys 2:1 .. 2:4.
constexpr std::string_view kRescanJson = R"({ "dataSources": [
  { "name": "Mem", "kind": "memory" },
  { "name": "T", "kind": "custom", "className": "TelvaneDV.DataSource", "params": [
      { "type": "text", "value": "Telvane DV DataSource" }, { "type": "number", "value": 12 } ],
    "variables": [
      { "name": "Text", "params": [ { "type": "empty" }, { "type": "text", "value": "\\\\APL\\12\\P\\ABC\\12:OV" },
          { "type": "number", "value": 1 }, { "type": "text", "value": "old" } ] },
      { "name": "Three", "params": [ { "type": "empty" }, { "type": "text", "value": "\\\\APL\\12\\P\\TRI\\3" },
          { "type": "number", "value": 17 } ] },
      { "name": "Two", "params": [ { "type": "empty" }, { "type": "text", "value": "\\\\APL\\12\\P\\TWO\\2:OV" } ] },
      { "name": "State", "params": [ { "type": "empty" }, { "type": "text", "value": "\\\\APL\\12\\P\\ST\\4:OV" },
          { "type": "number", "value": 16 }, { "type": "text", "value": "kept" } ] } ] } ],
  "scada": { "applications": [ { "number": 12, "name": "Main", "directory": "." } ] } })";

struct Rescan : KorlHarness, ::testing::Test {
  sample::SampleDisplay rescan = sample::LoadDisplayText(kRescanJson, "rescan.json", std::filesystem::current_path());
  std::shared_ptr<sample::SimulatedScada> system = rescan.scada;

  Rescan() {
    dlg.SetCommunication(system);
    dlg.InitDBForEdit(rescan.display);
    Look(u"_T2");
  }
  toolkit::DsvRef Dsv(int32_t i) const { return rescan.display->DataSources()->Item(2)->Variables()->Item(i); }
  toolkit::ParamListRef ParamsOf(int32_t i) const { return Dsv(i)->AsCustom()->GetParams(); }
  String Stored(int32_t i) const { return automation::CStr(ParamsOf(i)->ParamItem(4)->GetParamValue()); }
  void Answer(const String& name, int32_t index, Variant answer) const {
    system->SetAnswer(sa::OffsetsRequest(name, index), std::move(answer));
  }
};

TEST_F(Rescan, AsksTheSystemAndStoresTheAnswerAsItComesZerosForEmptyOrLongAndEmptyForAFailure) {
  const struct {
    Variant answer;
    bool fails;
    const char16_t* stored;
  } cases[] = {
      {Variant(u" 1, 2 "), false, u" 1, 2 "}, {Variant(u""), false, u"0,0,0"},    {Variant(), false, u"0,0,0"},
      {Variant(int32_t{2}), false, u"0,0,0"}, {Variant(int16_t{2}), false, u"2"}, {Variant(u"1,2,3"), true, u""},
  };
  for (const auto& c : cases) {
    Answer(u"ABC", 12, c.answer);
    system->SetCallFails(ScadaCall::kExecuteKorlInApp, c.fails);
    system->ClearLog();
    sa::UpdateDsvOffsets(system, Dsv(1));
    EXPECT_EQ(Stored(1), c.stored) << ToUtf8(automation::CStr(c.answer));
    EXPECT_EQ(ParamsOf(1)->ParamItem(4)->GetParamType(), toolkit::paramtype::kText);
    ASSERT_EQ(system->Calls().size(), 1u);
    EXPECT_EQ(system->Calls()[0].application, 12);
    EXPECT_EQ(system->Calls()[0].text, u"#return do(BGU_CONTROL:CCP, (\"ABC\",12),\"GET_OFFSETS\")");
  }
}

TEST_F(Rescan, GrowsListsToFourAndAsksOnlyForStatusColourVariables) {
  Answer(u"TRI", 3, Variant(u"9,9,9"));
  sa::UpdateDsvOffsets(system, Dsv(2));  // 17 And 15 = 1, no colon in the index
  EXPECT_EQ(Stored(2), u"9,9,9");
  system->ClearLog();
  sa::UpdateDsvOffsets(system, Dsv(3));  // two parameters: grown, then not signal type 1
  sa::UpdateDsvOffsets(system, Dsv(4));  // state indication keeps its fourth parameter
  sa::UpdateDsvOffsets(nullptr, Dsv(1));
  EXPECT_EQ(ParamsOf(3)->ParamCount(), 4);
  EXPECT_EQ(Stored(4), u"kept");
  EXPECT_EQ(Stored(1), u"old");
  EXPECT_TRUE(system->Calls().empty());
}

TEST_F(Rescan, AnItemIdThatDoesNotParseRaisesBeforeAnythingIsAsked) {
  const std::pair<const char16_t*, int32_t> cases[] = {
      {u"\\\\APL\\12\\P\\ABC", automation::err::kSubscriptOutOfRange},
      {u"\\\\APL\\12\\P\\ABC\\1:2:OV", automation::err::kTypeMismatch},  // cut at the last colon only
      {u"\\\\APL\\70000\\P\\ABC\\1", automation::err::kOverflow}};
  for (const auto& [itemId, error] : cases) {
    ParamsOf(1)->ParamItem(2)->SetParamValue(toolkit::paramtype::kText, Variant(itemId));
    EXPECT_EQ(ErrorOf([&] { sa::UpdateDsvOffsets(system, Dsv(1)); }), error) << ToUtf8(itemId);
    EXPECT_EQ(Stored(1), u"old");
  }
  EXPECT_TRUE(system->Calls().empty());
}

// The progress display is read at every request, that is after the variables before it.
TEST_F(Rescan, ButtonWalksEveryVariableShowingProgressRoundedHalfUpThenSetsModified) {
  EXPECT_EQ(dlg.Command1.ToolTipText(),
            u"Update possible changes of standard function configurations (.DAT files) to datavariables");
  EXPECT_FALSE(dlg.ProgressBar1.Visible());
  for (int32_t i = 5; i <= 8; ++i) {
    auto params = rescan.display->DataSources()->Item(2)->Variables()->AddDsv()->AsCustom()->GetParams();
    for (int32_t k = 1; k <= 3; ++k) params->AddParam();
    params->ParamItem(2)->SetParamValue(toolkit::paramtype::kText, Variant(u"\\\\APL\\12\\P\\N\\1"));
    params->ParamItem(3)->SetParamValue(toolkit::paramtype::kNumber, Variant(1.0));
  }
  std::vector<String> seen;
  auto probe = std::make_shared<Probe>();
  probe->korlInApp = [&](const String& request, Variant& result) {
    seen.push_back(dlg.lblPercent.Caption() + (dlg.ProgressBar1.Visible() ? u"" : u" hidden"));
    result = request;
  };
  dlg.SetCommunication(probe);
  ASSERT_TRUE(dlg.Command1.UserClick());
  // Requests come from variables 1, 2 and 5..8: the label shows the bar after the one before.
  EXPECT_EQ(seen, (std::vector<String>{u"0 %", u"13 %", u"50 %", u"63 %", u"75 %", u"88 %"}));
  EXPECT_EQ(Stored(2), sa::OffsetsRequest(u"TRI", 3));
  EXPECT_EQ(ui.Repainted(), (std::vector<String>(8, u"lblPercent")));
  EXPECT_EQ(dlg.lblPercent.Caption(), u"100 %");
  EXPECT_FALSE(dlg.ProgressBar1.Visible() || dlg.lblPercent.Visible());
  EXPECT_TRUE(dlg.IsModified());
}

TEST_F(Rescan, AnUnparsableItemIdEndsTheRescanWithTheBarStillShown) {
  ParamsOf(2)->ParamItem(2)->SetParamValue(toolkit::paramtype::kText, Variant(u"\\\\APL\\12\\P\\TRI"));
  Answer(u"ABC", 12, Variant(u"1,1,1"));
  EXPECT_EQ(ErrorOf([&] { dlg.Command1.UserClick(); }), automation::err::kSubscriptOutOfRange);
  EXPECT_EQ(Stored(1), u"1,1,1");
  EXPECT_EQ(ParamsOf(3)->ParamCount(), 2);  // never reached
  EXPECT_TRUE(dlg.ProgressBar1.Visible() && dlg.lblPercent.Visible());
  EXPECT_FALSE(dlg.IsModified());
}

TEST_F(Rescan, NoSystemStillSetsModified) {
  dlg.SetCommunication(nullptr);
  ASSERT_TRUE(dlg.Command1.UserClick());
  EXPECT_EQ(Stored(1), u"old");
  EXPECT_EQ(ParamsOf(3)->ParamCount(), 2);
  EXPECT_EQ(dlg.lblPercent.Caption(), u"100 %");
  EXPECT_TRUE(dlg.IsModified());
}

}  // namespace
}  // namespace vd::feature_test
