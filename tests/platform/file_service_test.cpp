#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

#include "platform/ds_kinds_file.h"
#include "platform/native_path.h"
#include "platform/std_file_service.h"

#include "param_label.h"

namespace vd::platform {
namespace {

using namespace std::string_literals;

// A folder of its own for each test (and each process, as several builds may
// run the suite at once), removed afterwards.
class StdFileServiceTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    root_ = std::filesystem::path(::testing::TempDir()) /
            ("vd_platform_" + std::to_string(::getpid()) + "_" + info->name());
    std::filesystem::remove_all(root_);
    std::filesystem::create_directories(root_ / "etc");
  }
  void TearDown() override { std::filesystem::remove_all(root_); }

  void Write(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  // The folder as the system writes a home: Windows separators.
  std::u16string HomeText() const {
    std::u16string text = root_.u16string();
    for (char16_t& c : text) c = c == u'/' ? u'\\' : c;
    return text;
  }

  std::filesystem::path root_;
  StdFileService files_;
};

TEST_F(StdFileServiceTest, ReadsEveryByte) {
  const std::string bytes = "a\0b\r\nc\xFF\x1A tail"s;
  Write(root_ / "f.dat", bytes);
  const FileReadResult result = files_.ReadAll((root_ / "f.dat").u16string());
  EXPECT_TRUE(result.Ok());
  EXPECT_EQ(result.bytes, bytes);
  EXPECT_TRUE(files_.Exists((root_ / "f.dat").u16string()));
}

TEST_F(StdFileServiceTest, MissingFileIsError53) {
  const FileReadResult result = files_.ReadAll((root_ / "none.dat").u16string());
  EXPECT_EQ(result.error, 53);
  EXPECT_FALSE(files_.Exists((root_ / "none.dat").u16string()));
}

TEST_F(StdFileServiceTest, ReadsTheKindsFileBelowAHomeInWindowsForm) {
  Write(root_ / "etc" / "CustomDs.dat", "# kinds\r\nFile DVDefault.File\r\nScada Acme.ScadaDs # ours\r\n");
  const DsKindsFile kinds = LoadDsKindsFile(files_, DsKindsFilePath(HomeText()));
  EXPECT_EQ(kinds.error, 0);
  EXPECT_EQ(kinds.entries, (std::vector<DsKindEntry>{{u"File", u"DVDefault.File"}, {u"Scada", u"Acme.ScadaDs"}}));
}

TEST_F(StdFileServiceTest, MissingKindsFileGivesItsErrorAndNoEntries) {
  const DsKindsFile kinds = LoadDsKindsFile(files_, DsKindsFilePath(HomeText()));
  EXPECT_EQ(kinds.error, 53);
  EXPECT_TRUE(kinds.entries.empty());
}

#ifndef _WIN32
struct PathCase {
  const char* label;
  std::u16string windowsForm;
  std::string expected;
};
void PrintTo(const PathCase& c, std::ostream* os) { *os << c.label; }

class ToNativePathTest : public ::testing::TestWithParam<PathCase> {};

TEST_P(ToNativePathTest, MapsSeparatorsAndDrive) {
  EXPECT_EQ(ToNativePath(GetParam().windowsForm).string(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ToNativePathTest,
    ::testing::Values(PathCase{"FallbackHomeKindsFile", u"C:\\\\etc\\CustomDs.dat", "/etc/CustomDs.dat"},
                      PathCase{"DriveRoot", u"C:\\", "/"}, PathCase{"DriveAlone", u"d:", "/"},
                      PathCase{"DriveFolder", u"D:\\DV\\etc\\CustomDs.dat", "/DV/etc/CustomDs.dat"},
                      PathCase{"PosixHome", u"/opt/dv\\etc\\CustomDs.dat", "/opt/dv/etc/CustomDs.dat"},
                      PathCase{"Relative", u"dv\\etc", "dv/etc"}, PathCase{"ColonLater", u"ab:c\\d", "ab:c/d"},
                      PathCase{"NonAscii", u"C:\\Grüße", "/Grüße"}),
    testing::ParamLabel());
#endif

}  // namespace
}  // namespace vd::platform
