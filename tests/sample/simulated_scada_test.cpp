#include <gtest/gtest.h>

#include <functional>

#include "error_probe.h"
#include "vd/automation/conversions.h"
#include "vd/sample/simulated_scada.h"

namespace vd::sample {
namespace {

using automation::String;
using automation::Variant;
using automation::VarType;
using testing::RaisedBy;

// The texts exactly as the component sends them.
const String kPathRequest = String(u"@path1=path(\"APL_\")") + u"\n" + u"@path1 =%path1(1)" + u"\n" +
                            u"#return substr(%path1,1,length(%path1)-4)";
String OffsetsRequest(const String& name, const String& index) {
  return u"#return do(BGU_CONTROL:CCP, (\"" + name + u"\"," + index + u"),\"GET_OFFSETS\")";
}

const String kRawWaterDir = u"/plant/apl/RAWWATER";
const String kClearWaterDir = String(u"/plant/apl/CLEARWTR") + kPathSeparator;

class SimulatedScadaTest : public ::testing::Test {
 protected:
  void SetUp() override {
    scada.AddApplication({1, u"RAWWATER", kRawWaterDir});
    scada.AddApplication({2, u"CLEARWTR", kClearWaterDir});
    scada.AddObject({1, u"RW_P101", u'P', 10, {{u"OV", Variant(int32_t{1})}}, std::nullopt});
    scada.AddObject({1, u"RW_P101", u'P', 11, {{u"OV", Variant(int32_t{2})}}, String(u"3,5,7")});
    scada.AddObject({1, u"RW_STA", u'S', 10, {{u"OV", Variant(u"local")}}, std::nullopt});
    scada.AddObject({1, u"RW_STA", u'D', 1, {{u"AL", Variant(0.5)}}, std::nullopt});
    scada.AddObject({1, u"RW_LT101", u'P', 0, {{u"OV", Variant(63.4)}}, std::nullopt});
    scada.AddObject({0, u"SYS_WD", u'B', 1, {{u"OV", Variant(int32_t{48213})}}, std::nullopt});
    scada.AddObject({2, u"CW_P301", u'P', 11, {{u"OV", Variant(int32_t{0})}}, String(u"1,3,5")});
  }

  Variant Run(const String& request) {
    Variant result;
    scada.ExecuteKorl(request, result);
    return result;
  }
  Variant RunIn(int16_t application, const String& request) {
    Variant result;
    scada.ExecuteKorlInApp(application, request, result);
    return result;
  }

  SimulatedScada scada;
};

TEST_F(SimulatedScadaTest, AnswersThePathRequestWithTheDirectoryAndOneTrailingSeparator) {
  EXPECT_EQ(Run(kPathRequest), Variant(kRawWaterDir + kPathSeparator)) << "current application";
  EXPECT_EQ(RunIn(2, kPathRequest), Variant(kClearWaterDir)) << "no doubled separator";
  scada.SetCurrentApplication(2);
  EXPECT_EQ(Run(kPathRequest), Variant(kClearWaterDir));
}

TEST_F(SimulatedScadaTest, RefusesTextsThatAreNotExactlyTheRequests) {
  const String texts[] = {kPathRequest + u"\n",
                          String(u"@path1=path(\"APL_\")\n@path1=%path1(1)\n#return substr(%path1,1,length(%path1)-4)"),
                          String(u"#return do(BGU_CONTROL:CCP, (\"RW_P101\", 11),\"GET_OFFSETS\")"),
                          OffsetsRequest(u"RW_P101", u"1x"), OffsetsRequest(u"", u"11")};
  for (const auto& text : texts) {
    const auto raised = RaisedBy([&] { Run(text); });
    EXPECT_EQ(raised.number, scada_err::kRequestNotUnderstood) << automation::ToUtf8(text);
  }
}

TEST_F(SimulatedScadaTest, AnswersTheOffsetsRequestFromTheObjectTable) {
  const struct {
    int16_t application;
    String name;
    String index;
    Variant answer;
  } cases[] = {{1, u"rw_p101", u"11", Variant(u"3,5,7")},
               {1, u"RW_P101", u"10", Variant(u"")},                    // known object without offsets
               {2, u"RW_P101", u"11", Variant(kOffsetsUnknownObject)},  // lives in application 1
               {1, u"RW_P101", u"-1", Variant(kOffsetsUnknownObject)}};
  for (const auto& c : cases) {
    const Variant answer = RunIn(c.application, OffsetsRequest(c.name, c.index));
    EXPECT_EQ(answer, c.answer) << automation::ToUtf8(c.name) << " " << automation::ToUtf8(c.index);
    EXPECT_EQ(answer.Type(), c.answer.Type());
  }
}

TEST_F(SimulatedScadaTest, UnknownApplicationsRaise) {
  EXPECT_EQ(RaisedBy([&] { RunIn(7, kPathRequest); }).number, scada_err::kUnknownApplication);
  EXPECT_EQ(RaisedBy([&] { RunIn(0, OffsetsRequest(u"RW_P101", u"11")); }).number, scada_err::kUnknownApplication);
  scada.SetCurrentApplication(9);
  const auto raised = RaisedBy([&] { Run(kPathRequest); });
  EXPECT_EQ(raised.number, scada_err::kUnknownApplication);
  EXPECT_NE(raised.description.find('9'), std::string::npos) << raised.description;
}

TEST_F(SimulatedScadaTest, ValidatesEveryItemIdForm) {
  const struct {
    String itemId;
    int32_t error;  // 0: valid
    Variant value;
  } cases[] = {{u"\\\\APL\\1\\P\\RW_P101\\11:ov", 0, Variant(int32_t{2})},
               {u"\\\\APL\\1\\P\\RW_LT101:OV", 0, Variant(63.4)},
               {u"\\\\APL\\1\\S\\RW_STA:OV(10)", 0, Variant(u"local")},
               {u"\\\\APL\\1\\D\\RW_STA:AL(1)", 0, Variant(0.5)},
               {u"\\\\SYS_WD\\1:OV", 0, Variant(int32_t{48213})},
               {u"\\\\APL\\2\\P\\RW_P101\\10:OV", scada_err::kUnknownItem, {}},  // other application
               {u"\\\\APL\\1\\P\\RW_P101\\10:XX", scada_err::kUnknownItem, {}},
               {u"\\\\APL\\1\\S\\RW_STA:OV", scada_err::kUnknownItem, {}},
               {u"\\\\APL\\1\\P\\RW_P101\\10:OV(3)", scada_err::kUnknownItem, {}},
               {u"\\APL\\1\\P\\RW_P101\\10:OV", scada_err::kUnknownItem, {}},
               {u"\\\\APL\\8\\P\\RW_P101\\10:OV", scada_err::kUnknownApplication, {}}};
  for (const auto& c : cases) {
    Variant value(u"untouched");
    const auto raised = RaisedBy([&] { scada.ValidateItem(c.itemId, value); });
    EXPECT_EQ(raised.number, c.error) << automation::ToUtf8(c.itemId) << ": " << raised.description;
    EXPECT_EQ(value, c.error == 0 ? c.value : Variant(u"untouched")) << automation::ToUtf8(c.itemId);
  }
}

TEST_F(SimulatedScadaTest, ValidationFollowsChangedAttributes) {
  scada.SetAttribute(1, u"rw_p101", u'p', 10, u"OV", Variant(int32_t{0}));
  scada.SetAttribute(1, u"RW_P101", u'P', 10, u"LN", Variant(u"Raw water pump"));
  Variant value;
  scada.ValidateItem(u"\\\\APL\\1\\P\\RW_P101\\10:LN", value);
  EXPECT_EQ(value, Variant(u"Raw water pump"));
  EXPECT_EQ(RaisedBy([&] { scada.SetAttribute(1, u"NONE", u'P', 1, u"OV", Variant()); }).number,
            automation::err::kInvalidProcedureCall);
}

TEST_F(SimulatedScadaTest, RefusesDuplicateApplicationsAndObjects) {
  EXPECT_EQ(RaisedBy([&] {
              scada.AddApplication({2, u"OTHER", u"/x"});
            }).number,
            automation::err::kKeyAlreadyInCollection);
  EXPECT_EQ(RaisedBy([&] {
              scada.AddObject({1, u"rw_p101", u'p', 10, {}, std::nullopt});
            }).number,
            automation::err::kKeyAlreadyInCollection);
  EXPECT_EQ(RaisedBy([&] {
              scada.AddObject({5, u"SYS_WD", u'B', 1, {}, std::nullopt});
            }).number,
            automation::err::kKeyAlreadyInCollection)
      << "kind B belongs to no application";
  EXPECT_EQ(RaisedBy([&] { scada.AddObject({2, u"RW_P101", u'P', 10, {}, std::nullopt}); }).number, 0);
}

}  // namespace
}  // namespace vd::sample
