// The kinds of data source offered for adding: the toolkit home from the
// registry, the kinds file below it, and what a bad file leaves.
#include <string>
#include <vector>

#include "panel_harness.h"
#include "platform/dv_reg.h"

namespace vd::system_test {
namespace {

constexpr char kDvKey[] = "Software\\DataViews\\DVtools\\2.6";
constexpr char16_t kKindsPath[] = u"D:\\DV\\etc\\CustomDs.dat";

struct Kind {
  String name;
  int32_t code;
  bool operator==(const Kind&) const = default;
};
void PrintTo(const Kind& k, std::ostream* os) { *os << ToUtf8(k.name) << "=" << k.code; }

// The toolkit home is remembered for the process: each test starts without it.
class DsKinds : public ::testing::Test {
 protected:
  void SetUp() override {
    platform::DvReg::ResetDvHomeForTesting();
    h.registry.SetValue(platform::reg::kHkeyLocalMachine, kDvKey, "DVhome", {platform::reg::kRegSz, "D:\\DV"});
  }
  void TearDown() override { platform::DvReg::ResetDvHomeForTesting(); }

  std::vector<Kind> Offered() const {
    std::vector<Kind> kinds;
    for (int32_t i = 0; i < h.dlg.cboDsAdd.ListCount(); ++i)
      kinds.push_back({h.dlg.cboDsAdd.List(i), h.dlg.cboDsAdd.ItemData(i)});
    return kinds;
  }
  std::vector<std::pair<String, String>> CustomClasses() const {
    std::vector<std::pair<String, String>> classes;
    const auto& collection = *h.inside.CustomDsClasses();
    for (int32_t i = 1; i <= collection.Count(); ++i) classes.emplace_back(*collection.KeyOf(i), collection.Item(i));
    return classes;
  }
  PanelHarness h;
};

const std::vector<Kind> kBuiltIn = {{u"File", 2}, {u"Memory", 6}, {u"Constant", 3}};

struct FileCase {
  const char* label;
  std::string bytes;
  std::vector<Kind> offered;
  std::vector<std::pair<String, String>> custom;
};
void PrintTo(const FileCase& c, std::ostream* os) { *os << c.label; }

class DsKindsFile : public DsKinds, public ::testing::WithParamInterface<FileCase> {};

TEST_P(DsKindsFile, OffersTheFilesKindsUpToTheFirstBadEntryElseTheBuiltInOnes) {
  const FileCase& c = GetParam();
  h.files.SetFile(kKindsPath, c.bytes);
  h.dlg.InitDBForEdit(h.panels);
  EXPECT_EQ(Offered(), c.offered);
  EXPECT_EQ(CustomClasses(), c.custom);
  EXPECT_EQ(h.dlg.cboDsAdd.ListIndex(), 0);
  EXPECT_EQ(h.files.Reads(), std::vector<String>{kKindsPath});
}

INSTANTIATE_TEST_SUITE_P(
    Cases, DsKindsFile,
    ::testing::Values(
        FileCase{"every kind",
                 "Disk DVDefault.File\r\nRam DVDefault.Memory\r\nFixed DVDefault.Constant\r\nAlarms Acme.Alarm Ds\r\n",
                 {{u"Disk", 2}, {u"Ram", 6}, {u"Fixed", 3}, {u"Alarms", 105}},
                 {{u"Alarms", u"Acme.Alarm Ds"}}},
        FileCase{"functions only", "Calc DVFunction.Calc\nSum X.DVFunction.Sum\n", kBuiltIn, {}},
        FileCase{"custom name twice",
                 "A X.One\nB X.Two\nA X.Three\nC X.Four\n",
                 {{u"A", 105}, {u"B", 105}},
                 {{u"A", u"X.One"}, {u"B", u"X.Two"}}},
        FileCase{"names differing in case",
                 "Alarms X.One\nALARMS X.Two\nMore X.Three\n",
                 {{u"Alarms", 105}},
                 {{u"Alarms", u"X.One"}}}));

TEST_F(DsKinds, NamedBuiltInKindsNameTheirDataSourcesWithoutAFileTheyStayEmpty) {
  h.files.SetFile(kKindsPath, "Disk DVDefault.File\nRam DVDefault.Memory\nFixed DVDefault.Constant\n");
  h.dlg.InitDBForEdit(h.panels);
  EXPECT_EQ(h.inside.BuiltInKindNames(), (std::array<String, 3>{u"Disk", u"Ram", u"Fixed"}));
  const std::pair<const char16_t*, const char16_t*> shown[] = {
      {u"_C:\\data\\in.dat3", u"Disk"}, {u"_Plant1", u"Ram"}, {u"_Limits2", u"Fixed"}, {u"_Alarms5", u"Custom"}};
  for (const auto& [key, text] : shown) {
    ASSERT_TRUE(h.Click(key));
    EXPECT_EQ(h.dlg.txtDsType.Text(), text) << ToUtf8(key);
  }

  // Each run reads the file again, empties the custom kinds first, and keeps
  // names the file no longer gives.
  h.files.SetFile(kKindsPath, "Other Acme.Other\n");
  h.dlg.InitDBForEdit(h.panels);
  EXPECT_EQ(Offered(), (std::vector<Kind>{{u"Other", 105}}));
  EXPECT_EQ(CustomClasses(), (std::vector<std::pair<String, String>>{{u"Other", u"Acme.Other"}}));
  EXPECT_EQ(h.inside.BuiltInKindNames()[0], u"Disk");
  EXPECT_EQ(h.files.Reads().size(), 2u);
  EXPECT_EQ(h.registry.Opens().size(), 1u);  // the home is looked up once
}

TEST_F(DsKinds, AFileThatCannotBeReadLeavesTheBuiltInKinds) {
  h.files.SetReadError(kKindsPath, 57);
  h.dlg.InitDBForEdit(h.panels);
  EXPECT_EQ(Offered(), kBuiltIn);
  ASSERT_TRUE(h.Click(u"_C:\\data\\in.dat3"));
  EXPECT_EQ(h.dlg.txtDsType.Text(), u"");
}

}  // namespace
}  // namespace vd::system_test
