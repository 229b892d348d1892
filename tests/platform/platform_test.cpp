// Texts, files and paths as the system hands them over: ANSI text, the kinds
// file and its lines, the open-file dialog's flags and buffers, native paths.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include <unistd.h>

#include "platform/ansi_text.h"
#include "platform/common_dialog.h"
#include "platform/ds_kinds_file.h"
#include "platform/native_path.h"
#include "platform/std_file_service.h"

namespace vd::platform {
namespace {

using namespace std::string_literals;

DsKindEntry Entry(std::u16string name, std::u16string className) { return {std::move(name), std::move(className)}; }

TEST(Latin1, EveryByteIsTheCharacterOfItsCodeAndWhatLatin1LacksIsAQuestionMark) {
  std::string bytes;
  for (int b = 0; b < 256; ++b) bytes.push_back(static_cast<char>(b));
  const std::u16string text = FromLatin1(bytes);
  ASSERT_EQ(text.size(), 256u);
  for (size_t i = 0; i < text.size(); ++i) EXPECT_EQ(static_cast<size_t>(text[i]), i);
  EXPECT_EQ(ToLatin1(text), bytes);
  EXPECT_EQ(ToLatin1(u"\u20AC1\U0001F600"), "?1??");
}

TEST(DsKindsFile, LinesSplitIntoNameAndClassUpToTheFirstHash) {
  const std::pair<std::u16string, std::optional<DsKindEntry>> lines[] = {
      {u"#File DVDefault.File", std::nullopt},
      {u"Name Cl#ass#x", Entry(u"Name", u"Cl")},
      {u"Name #Class", std::nullopt},
      {u"NameOnly", std::nullopt},
      {u" \t Name My   Class\tName", Entry(u"Name", u"My Class Name")},
      {u"N\x01me Cl\0ss"s, Entry(u"N\x01me", u"Cl\0ss"s)}};
  for (const auto& [line, entry] : lines) EXPECT_EQ(ParseDsKindLine(line), entry);
  EXPECT_EQ(ReadDsKinds("# header\r\n\r\n   \r\na A\rb B # z\nGr\xFC\xDF"
                        "e Cl\xE4ss"),
            (std::vector<DsKindEntry>{Entry(u"a", u"A"), Entry(u"b", u"B"), Entry(u"Grüße", u"Cläss")}));
  EXPECT_EQ(DsKindsFilePath(u"C:\\"), u"C:\\\\etc\\CustomDs.dat");
}

TEST(DsKindsFile, AClassIsTestedForFunctionThenFileMemoryConstantByContainment) {
  const std::pair<std::u16string, std::optional<int32_t>> classes[] = {{u"Acme.DVDefault.FileReader", 2},
                                                                       {u"DVDefault.File.DVFunction.", std::nullopt},
                                                                       {u"DVDefault.Memory DVDefault.File", 2},
                                                                       {u"DVDefault.Constant DVDefault.Memory", 6},
                                                                       {u"DVDefault.Constant", 3},
                                                                       {u"dvdefault.file", 105},
                                                                       {u"DVFunction", 105}};
  for (const auto& [className, kind] : classes) EXPECT_EQ(ClassifyDsKind(className), kind);
}

TEST(OpenFileDialog, FlagsFilterAndReturnedBuffer) {
  EXPECT_EQ(modCommonDialog::OpenFileFlags(false, false), 0x2A0024u);
  EXPECT_EQ(modCommonDialog::OpenFileFlags(true, false), 0x2A1024u);
  EXPECT_EQ(modCommonDialog::OpenFileFlags(false, true), 0x2A0224u);
  EXPECT_EQ(modCommonDialog::OpenFileFlags(true, true), 0x2A1224u);
  EXPECT_EQ(modCommonDialog::FilterWithNuls(u"Data Files (*.dat)|*.dat|All Files (*.*)|*.*|"),
            u"Data Files (*.dat)\0*.dat\0All Files (*.*)\0*.*\0"s);
  const std::pair<std::string, std::string> buffers[] = {
      {"C:\\d\0a.dat\0b.dat\0\0\0"s, "C:\\d\0a.dat\0b.dat"s}, {std::string(8, '\0'), ""}, {"abc\0"s, "abc\0"s}};
  for (const auto& [buffer, text] : buffers) EXPECT_EQ(modCommonDialog::TextBeforeDoubleNul(buffer), text);
}

// A folder of its own for the test and the process, removed afterwards.
TEST(StdFileService, ReadsEveryByteAndTheKindsFileBelowAHomeInWindowsForm) {
  const std::filesystem::path root =
      std::filesystem::path(::testing::TempDir()) / ("vd_platform_" + std::to_string(::getpid()));
  std::filesystem::remove_all(root);
  std::filesystem::create_directories(root / "etc");
  const std::string bytes = "# kinds\r\nFile DVDefault.File\0\r\nScada Acme.ScadaDs # ours\xFF\r\n"s;
  std::ofstream(root / "etc" / "CustomDs.dat", std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  StdFileService files;
  EXPECT_EQ(files.ReadAll((root / "etc" / "CustomDs.dat").u16string()).bytes, bytes);
  EXPECT_EQ(files.ReadAll((root / "none.dat").u16string()).error, 53);
  EXPECT_FALSE(files.Exists((root / "none.dat").u16string()));
  std::u16string home = root.u16string();
  for (char16_t& c : home) c = c == u'/' ? u'\\' : c;
  const DsKindsFile kinds = LoadDsKindsFile(files, DsKindsFilePath(home));
  EXPECT_EQ(kinds.error, 0);
  EXPECT_EQ(kinds.entries, (std::vector<DsKindEntry>{{u"File", u"DVDefault.File\0"s}, {u"Scada", u"Acme.ScadaDs"}}));
  std::filesystem::remove_all(root);
}

#ifndef _WIN32
TEST(ToNativePath, MapsSeparatorsAndDropsTheDrive) {
  const std::pair<std::u16string, std::string> paths[] = {{u"C:\\\\etc\\CustomDs.dat", "/etc/CustomDs.dat"},
                                                          {u"d:", "/"},
                                                          {u"/opt/dv\\etc", "/opt/dv/etc"},
                                                          {u"dv\\etc", "dv/etc"},
                                                          {u"ab:c\\d", "ab:c/d"}};
  for (const auto& [windowsForm, native] : paths) EXPECT_EQ(ToNativePath(windowsForm).string(), native);
}
#endif

}  // namespace
}  // namespace vd::platform
