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
  const std::pair<const char16_t*, bool> cases[] = {
      {u"a.korl", true},      {u"pump 1.KoRl", true},  {u"sub/a.KORL", true},  // only "\" and ":" make a path
      {u".KORL", false},      {u"C:test.KORL", false}, {u"sub\\test.KORL", false},
      {u"a.korl.txt", false}, {u"a.kor", false}};
  for (const auto& [name, valid] : cases) EXPECT_EQ(IsKorlFileName(name), valid) << ToUtf8(name);
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
  EXPECT_EQ(DefaultKorlTemplate(),
            u"; Script file template location\r\n"
            u"; <drive>:\\kv\\prog\\graphicsEngine\\support\\TEMPLATEforDataChange.korl\r\n"
            u"; Template copied to <drive>:\\kv\\apl\\<application>\\PICT will be used\r\n"
            u"; instead of the default template.\r\n\r\n"
            u"; This script is executed when value of OPC item changes (DIRECTION==\"READ\")\r\n"
            u"; or when data variable value changes (DIRECTION==\"WRITE\")\r\n"
            u"; Variable %L_INPUT contains value, name and data type of OPC item, and direction.\r\n"
            u"; Format of the variable %L_INPUT is:\r\n"
            u"; LIST(ITEM=<Item ID of OPC item>,VALUE=<value of opc item>, -\r\n"
            u";     DATA_TYPE=<data type of OPC item>, DIRECTION=<\"READ\"|\"WRITE\">)\r\n\r\n"
            u"; <Add your code here to modify %L_INPUT.VALUE>\r\n\r\n"
            u"#RETURN %L_INPUT.VALUE\r\n");
}

TEST(SearchPattern, StarAndQuestionMarkIgnoringCase) {
  const std::tuple<const char16_t*, const char16_t*, bool> cases[] = {
      {u"A.KORL", u"*.korl", true},   {u".KORL", u"*.KORL", true}, {u"a.korlx", u"*.KORL", false},
      {u"a.k.KORL", u"*.KORL", true}, {u"ab", u"a?", true},        {u"a", u"a?", false}};
  for (const auto& [name, pattern, matches] : cases) {
    EXPECT_EQ(platform::MatchesPattern(name, pattern), matches) << ToUtf8(name);
  }
}

TEST(StdFileSystem, ListsMatchingFilesButNoFoldersCopiesOverAndWritesBytesAsGiven) {
  const std::filesystem::path root = std::filesystem::temp_directory_path() / "vd_korl_std_file_system";
  std::filesystem::remove_all(root);
  std::filesystem::create_directories(root / "PICT" / "sub.KORL");
  const auto path = [&](const char* relative) { return (root / relative).u16string(); };
  platform::StdFileSystem files;
  ASSERT_EQ(files.WriteNewFile(path("PICT/b.korl"), "one\r\ntwo\xE9\r\n"), 0);
  ASSERT_EQ(files.WriteNewFile(path("PICT/A.KORL"), "older and longer"), 0);
  ASSERT_EQ(files.WriteNewFile(path("PICT/c.txt"), "c"), 0);
  EXPECT_EQ(files.Dir(path("PICT") + u"\\*.KORL"), (std::vector<String>{u"A.KORL", u"b.korl"}));
  EXPECT_TRUE(files.Dir(path("missing") + u"\\*.KORL").empty());
  EXPECT_TRUE(files.FileExists(path("PICT/c.txt")));
  EXPECT_FALSE(files.FileExists(path("PICT/sub.KORL")));
  EXPECT_EQ(files.CopyFile(path("PICT/b.korl"), path("PICT/A.KORL")), 0);
  std::ostringstream bytes;
  bytes << std::ifstream(root / "PICT" / "A.KORL", std::ios::binary).rdbuf();
  EXPECT_EQ(bytes.str(), "one\r\ntwo\xE9\r\n");
  EXPECT_EQ(files.CopyFile(path("none.korl"), path("PICT/m.korl")), automation::err::kFileNotFound);
  EXPECT_EQ(files.WriteNewFile(path("nofolder/x.korl"), "x"), 76);
  EXPECT_EQ(files.CopyFile(path("PICT/b.korl"), path("nofolder/x.korl")), 76);
  std::filesystem::remove_all(root);
}

}  // namespace
}  // namespace vd::scada
