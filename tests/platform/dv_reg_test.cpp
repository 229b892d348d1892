#include "platform/dv_reg.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "platform/testing/fake_registry.h"

namespace vd::platform {
namespace {

using namespace std::string_literals;
using testing::FakeRegistry;

constexpr RegHandle kHklm = reg::kHkeyLocalMachine;
const std::string kKey = "Software\\Test";
const std::string kName = "Value";

struct QueryCase {
  const char* label;
  bool keyExists;
  std::optional<FakeRegistry::StoredValue> stored;  // nullopt: no such value
  std::u16string before;                            // value's content before the call
  bool expectedResult;
  std::u16string expectedValue;
};
void PrintTo(const QueryCase& c, std::ostream* os) { *os << c.label; }

class RegQueryStringTest : public ::testing::TestWithParam<QueryCase> {};

TEST_P(RegQueryStringTest, FollowsTheReadingRules) {
  const QueryCase& c = GetParam();
  FakeRegistry registry;
  if (c.keyExists) registry.AddKey(kHklm, kKey);
  if (c.stored) registry.SetValue(kHklm, kKey, kName, *c.stored);

  std::u16string value = c.before;
  const bool result = DvReg::RegQueryString(registry, kHklm, u"Software\\Test", u"Value", value);

  EXPECT_EQ(result, c.expectedResult);
  EXPECT_EQ(value, c.expectedValue);

  ASSERT_EQ(registry.Opens().size(), 1u);
  EXPECT_EQ(registry.Opens()[0].parent, kHklm);
  EXPECT_EQ(registry.Opens()[0].subKey, kKey);
  EXPECT_EQ(registry.Opens()[0].options, 0u);
  EXPECT_EQ(registry.Opens()[0].access, 0x20019u);
  if (c.keyExists) {
    ASSERT_EQ(registry.Queries().size(), 1u);
    EXPECT_EQ(registry.Queries()[0].key, FakeRegistry::kFirstHandle);
    EXPECT_EQ(registry.Queries()[0].valueName, kName);
    EXPECT_EQ(registry.Queries()[0].bufferSize, 1024u);
    EXPECT_TRUE(registry.Queries()[0].bufferAllNul);
    EXPECT_EQ(registry.Closes(), std::vector<RegHandle>{FakeRegistry::kFirstHandle});
  } else {
    EXPECT_TRUE(registry.Queries().empty());
    EXPECT_EQ(registry.Closes(), std::vector<RegHandle>{0});  // the unopened handle is closed too
  }
  EXPECT_EQ(registry.OpenKeyCount(), 0u);
}

FakeRegistry::StoredValue Sz(std::string bytes) { return {reg::kRegSz, std::move(bytes)}; }
FakeRegistry::StoredValue Dword(std::string bytes) { return {reg::kRegDword, std::move(bytes)}; }

INSTANTIATE_TEST_SUITE_P(
    Values, RegQueryStringTest,
    ::testing::Values(
        QueryCase{"StringWithItsNulCounted", true,
                  Sz("C:\\Gr\xFC\xDF"
                     "e\0"s),
                  u"", true, u"C:\\Grüße"},
        QueryCase{"OnlyTheLastNulGoes", true, Sz("A\0B\0\0"s), u"", true, u"A\0B\0"s},
        QueryCase{"ZeroBytes", true, Sz(""), u"old", true, u""},
        QueryCase{"StringFillingTheBuffer", true, Sz(std::string(1024, 'x')), u"", true, std::u16string(1024, u'x')},
        QueryCase{"StringOneByteTooLong", true, Sz(std::string(1025, 'x')), u"old", false, u""},
        // DWORD bytes are little-endian; a last byte of 0 is dropped as a NUL,
        // the rest read last to first, each byte's hex without leading zeros,
        // appended to the old content: "1" + "015".
        QueryCase{"DwordAppendsToTheOldContent", true, Dword("\x05\x01\0\0"s), u"1", true, u"4117"},
        QueryCase{"DwordZeroKeepsOneDigitPerByte", true, Dword("\0\x01\0\0"s), u"", true, u"16"},  // "010"
        QueryCase{"BinaryLeavesValueAlone", true, FakeRegistry::StoredValue{reg::kRegBinary, "\x01\x02"}, u"kept", true,
                  u"kept"},
        QueryCase{"MissingValue", true, std::nullopt, u"old", false, u""},
        QueryCase{"MissingKey", false, std::nullopt, u"old", false, u""}),
    [](const ::testing::TestParamInfo<QueryCase>& param) { return std::string(param.param.label); });

TEST(RegQueryString, PassesHiveAndAnsiNamesThrough) {
  FakeRegistry registry;
  registry.SetValue(reg::kHkeyCurrentUser,
                    "Software\\Gr\xFC\xDF"
                    "e",
                    "N\xE4me", Sz("v"));
  std::u16string value;
  EXPECT_TRUE(DvReg::RegQueryString(registry, reg::kHkeyCurrentUser, u"Software\\Grüße", u"Näme", value));
  EXPECT_EQ(value, u"v");
  ASSERT_EQ(registry.Opens().size(), 1u);
  EXPECT_EQ(registry.Opens()[0].parent, reg::kHkeyCurrentUser);
  EXPECT_EQ(registry.Opens()[0].subKey,
            "Software\\Gr\xFC\xDF"
            "e");
  ASSERT_EQ(registry.Queries().size(), 1u);
  EXPECT_EQ(registry.Queries()[0].valueName, "N\xE4me");
}

// GetDvHome keeps its answer for the process: every test starts from an empty
// cache and leaves no registry behind.
class GetDvHomeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    DvReg::ResetDvHomeForTesting();
    DvReg::UseRegistry(&registry_);
  }
  void TearDown() override {
    DvReg::UseRegistry(nullptr);
    DvReg::ResetDvHomeForTesting();
  }
  void StoreHome(FakeRegistry::StoredValue value) {
    registry_.SetValue(reg::kHkeyLocalMachine, "Software\\DataViews\\DVtools\\2.6", "DVhome", std::move(value));
  }

  FakeRegistry registry_;
};

TEST_F(GetDvHomeTest, ReturnsTheStoredTextWithoutItsCountedNul) {
  StoreHome(Sz("D:\\Tools\\DV\\\0"s));
  EXPECT_EQ(DvReg::GetDvHome(), u"D:\\Tools\\DV\\");
}

TEST_F(GetDvHomeTest, AMissingKeyFallsBackToDriveCForTheProcess) {
  EXPECT_EQ(DvReg::GetDvHome(), u"C:\\");
  const size_t callsAfterFirst = registry_.CallCount();
  StoreHome(Sz("C:\\DV"));
  EXPECT_EQ(DvReg::GetDvHome(), u"C:\\");
  EXPECT_EQ(registry_.CallCount(), callsAfterFirst);
}

TEST_F(GetDvHomeTest, ValueOfAnotherTypeLeavesTheCacheEmptyAndIsAskedAgain) {
  StoreHome(FakeRegistry::StoredValue{reg::kRegExpandSz, "%DVHOME%\0"s});
  EXPECT_EQ(DvReg::GetDvHome(), u"");
  StoreHome(Sz("C:\\DV"));
  EXPECT_EQ(DvReg::GetDvHome(), u"C:\\DV");
}

}  // namespace
}  // namespace vd::platform
