// The script file rules and templates, and the real file system service.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/std_file_system.h"
#include "scada/korl_files.h"
#include "vd/automation/error.h"

namespace vd::scada {
namespace {

using automation::ToUtf8;

TEST(KorlFileName, NeedsSixCharactersTheKorlEndingAndNoDriveOrPath) {
  const struct {
    const char16_t* name;
    bool valid;
  } cases[] = {
      {u"a.korl", true},      {u"A.KORL", true}, {u"x.KoRl", true},       {u"pump 1.KORL", true},
      {u"sub/a.KORL", true},  // only "\" and ":" count as a path
      {u".KORL", false},      {u"", false},      {u"C:test.KORL", false}, {u"sub\\test.KORL", false},
      {u"a.korl.txt", false}, {u"a.kor", false}, {u"ab.KORLX", false},    {u"a:b.KORL", false},
  };
  for (const auto& c : cases) EXPECT_EQ(IsKorlFileName(c.name), c.valid) << ToUtf8(c.name);
}

TEST(KorlTemplates, ApplicationTemplateFirstThenTheInstallationsSixCharacterRoot) {
  EXPECT_EQ(ApplicationTemplatePath(u"C:\\kv\\apl\\P\\"), u"C:\\kv\\apl\\P\\PICT\\TEMPLATEforDataChange.korl");
  EXPECT_EQ(InstallationTemplatePath(u"C:\\kv\\apl\\P\\"),
            u"C:\\kv\\prog\\graphicsEngine\\support\\TEMPLATEforDataChange.korl");
  // The six characters are kept as they come, whatever the installation's folder is called.
  EXPECT_EQ(InstallationTemplatePath(u"D:\\scada\\apl\\"),
            u"D:\\scaprog\\graphicsEngine\\support\\TEMPLATEforDataChange.korl");
  EXPECT_EQ(InstallationTemplatePath(u"E:\\"), u"E:\\prog\\graphicsEngine\\support\\TEMPLATEforDataChange.korl");
}

TEST(KorlTemplates, DefaultTextIsFifteenLinesEachEndingInCrLf) {
  const String text = DefaultKorlTemplate();
  std::vector<String> lines;
  size_t start = 0;
  for (size_t end = text.find(u"\r\n"); end != String::npos; end = text.find(u"\r\n", start)) {
    lines.push_back(text.substr(start, end - start));
    start = end + 2;
  }
  EXPECT_EQ(start, text.size());  // nothing after the last CR LF
  ASSERT_EQ(lines.size(), 15u);
  EXPECT_EQ(lines[0], u"; Script file template location");
  EXPECT_EQ(lines[1], u"; <drive>:\\kv\\prog\\graphicsEngine\\support\\TEMPLATEforDataChange.korl");
  EXPECT_EQ(lines[2], u"; Template copied to <drive>:\\kv\\apl\\<application>\\PICT will be used");
  EXPECT_EQ(lines[3], u"; instead of the default template.");
  EXPECT_EQ(lines[5], u"; This script is executed when value of OPC item changes (DIRECTION==\"READ\")");
  EXPECT_EQ(lines[6], u"; or when data variable value changes (DIRECTION==\"WRITE\")");
  EXPECT_EQ(lines[7], u"; Variable %L_INPUT contains value, name and data type of OPC item, and direction.");
  EXPECT_EQ(lines[8], u"; Format of the variable %L_INPUT is:");
  EXPECT_EQ(lines[9], u"; LIST(ITEM=<Item ID of OPC item>,VALUE=<value of opc item>, -");
  EXPECT_EQ(lines[10], u";     DATA_TYPE=<data type of OPC item>, DIRECTION=<\"READ\"|\"WRITE\">)");
  EXPECT_EQ(lines[12], u"; <Add your code here to modify %L_INPUT.VALUE>");
  EXPECT_EQ(lines[14], u"#RETURN %L_INPUT.VALUE");
  for (const size_t blank : {4u, 11u, 13u}) EXPECT_EQ(lines[blank], u"") << blank;
}

TEST(SearchPattern, StarAndQuestionMarkIgnoringCase) {
  const struct {
    const char16_t* name;
    const char16_t* pattern;
    bool matches;
  } cases[] = {
      {u"a.korl", u"*.KORL", true},   {u"A.KORL", u"*.korl", true},
      {u".KORL", u"*.KORL", true},    {u"a.kor", u"*.KORL", false},
      {u"a.korlx", u"*.KORL", false}, {u"a.k.KORL", u"*.KORL", true},
      {u"ab", u"a?", true},           {u"a", u"a?", false},
      {u"abc", u"*", true},           {u"x.KORL.bak", u"*.KORL", false},
  };
  for (const auto& c : cases) EXPECT_EQ(platform::MatchesPattern(c.name, c.pattern), c.matches) << ToUtf8(c.name);
}

class StdFileSystemTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root = std::filesystem::temp_directory_path() /
           ("vd_korl_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::remove_all(root);
    std::filesystem::create_directories(root / "PICT" / "sub.KORL");
  }
  void TearDown() override { std::filesystem::remove_all(root); }
  String Path(const std::string& relative) const { return (root / relative).u16string(); }
  static std::string Read(const String& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
  }

  std::filesystem::path root;
  platform::StdFileSystem files;
};

TEST_F(StdFileSystemTest, ListsMatchingFilesButNoFolders) {
  ASSERT_EQ(files.WriteNewFile(Path("PICT/b.korl"), "b"), 0);
  ASSERT_EQ(files.WriteNewFile(Path("PICT/A.KORL"), "a"), 0);
  ASSERT_EQ(files.WriteNewFile(Path("PICT/c.txt"), "c"), 0);
  EXPECT_EQ(files.Dir(Path("PICT") + u"\\*.KORL"), (std::vector<String>{u"A.KORL", u"b.korl"}));
  EXPECT_TRUE(files.Dir(Path("missing") + u"\\*.KORL").empty());
  EXPECT_TRUE(files.FileExists(Path("PICT/c.txt")));
  EXPECT_FALSE(files.FileExists(Path("PICT/sub.KORL")));
}

TEST_F(StdFileSystemTest, CopiesOverAndWritesBytesAsGiven) {
  ASSERT_EQ(files.WriteNewFile(Path("t.korl"), "one\r\ntwo\xE9\r\n"), 0);
  ASSERT_EQ(files.WriteNewFile(Path("PICT/n.korl"), "older and longer"), 0);
  EXPECT_EQ(files.CopyFile(Path("t.korl"), Path("PICT/n.korl")), 0);
  EXPECT_EQ(Read(Path("PICT/n.korl")), "one\r\ntwo\xE9\r\n");
  EXPECT_EQ(files.CopyFile(Path("none.korl"), Path("PICT/m.korl")), automation::err::kFileNotFound);
  EXPECT_EQ(files.WriteNewFile(Path("nofolder/x.korl"), "x"), 76);
  EXPECT_EQ(files.CopyFile(Path("t.korl"), Path("nofolder/x.korl")), 76);
}

}  // namespace
}  // namespace vd::scada
