#include "platform/ds_kinds_file.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "param_label.h"

namespace vd::platform {
namespace {

using namespace std::string_literals;

struct LineCase {
  const char* label;
  std::u16string line;
  std::optional<DsKindEntry> expected;
};
void PrintTo(const LineCase& c, std::ostream* os) { *os << c.label; }

class ParseDsKindLineTest : public ::testing::TestWithParam<LineCase> {};

TEST_P(ParseDsKindLineTest, SplitsNameAndClass) { EXPECT_EQ(ParseDsKindLine(GetParam().line), GetParam().expected); }

DsKindEntry Entry(std::u16string name, std::u16string className) { return {std::move(name), std::move(className)}; }

INSTANTIATE_TEST_SUITE_P(
    Lines, ParseDsKindLineTest,
    ::testing::Values(
        LineCase{"Plain", u"File DVDefault.File", Entry(u"File", u"DVDefault.File")},
        LineCase{"EmptyLine", u"", std::nullopt}, LineCase{"CommentLine", u"#File DVDefault.File", std::nullopt},
        LineCase{"TrailingCommentAfterBlanks", u"Name   Class.Name   # comment", Entry(u"Name", u"Class.Name")},
        LineCase{"CutAtTheFirstHash", u"Name Cl#ass#x", Entry(u"Name", u"Cl")},
        LineCase{"CommentLeavesNoClass", u"Name #Class", std::nullopt}, LineCase{"NoBlank", u"NameOnly", std::nullopt},
        LineCase{"LeadingBlanksAndTabsGo", u" \t Name Class", Entry(u"Name", u"Class")},
        LineCase{"ClassKeepsSingleBlanks", u"Name My   Class\tName", Entry(u"Name", u"My Class Name")},
        LineCase{"OtherControlCharactersStay", u"N\x01me Cl\0ss"s, Entry(u"N\x01me", u"Cl\0ss"s)}),
    testing::ParamLabel());

struct FileCase {
  const char* label;
  std::string bytes;
  std::vector<DsKindEntry> expected;
};
void PrintTo(const FileCase& c, std::ostream* os) { *os << c.label; }

class ReadDsKindsTest : public ::testing::TestWithParam<FileCase> {};

TEST_P(ReadDsKindsTest, YieldsEntriesInFileOrder) { EXPECT_EQ(ReadDsKinds(GetParam().bytes), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(
    Files, ReadDsKindsTest,
    ::testing::Values(FileCase{"Empty", "", {}}, FileCase{"LoneCr", "a A\rb B", {Entry(u"a", u"A"), Entry(u"b", u"B")}},
                      FileCase{"MixedEnds",
                               "a A\r\nb B\rc C\nd D",
                               {Entry(u"a", u"A"), Entry(u"b", u"B"), Entry(u"c", u"C"), Entry(u"d", u"D")}},
                      FileCase{
                          "CommentsAndBlankLines", "# header\r\n\r\n   \r\n#x X\r\ny Y # z\r\n", {Entry(u"y", u"Y")}},
                      FileCase{"NulBytesAreCharacters", "a\0b C\0D\r\n"s, {Entry(u"a\0b"s, u"C\0D"s)}},
                      FileCase{"HighBytesAreAnsiText",
                               "Gr\xFC\xDF"
                               "e Cl\xE4ss",
                               {Entry(u"Grüße", u"Cläss")}},
                      FileCase{"DuplicatesDifferingInCaseAreBothYielded",
                               "Scada X.A\r\nSCADA X.B",
                               {Entry(u"Scada", u"X.A"), Entry(u"SCADA", u"X.B")}}),
    testing::ParamLabel());

struct ClassCase {
  const char* label;
  std::u16string className;
  std::optional<int32_t> expected;
};
void PrintTo(const ClassCase& c, std::ostream* os) { *os << c.label; }

class ClassifyDsKindTest : public ::testing::TestWithParam<ClassCase> {};

TEST_P(ClassifyDsKindTest, TestsContainmentInOrder) {
  EXPECT_EQ(ClassifyDsKind(GetParam().className), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Classes, ClassifyDsKindTest,
    ::testing::Values(ClassCase{"File", u"DVDefault.File", 2}, ClassCase{"Memory", u"DVDefault.Memory", 6},
                      ClassCase{"Constant", u"DVDefault.Constant", 3},
                      ClassCase{"ContainedInLongerName", u"Acme.DVDefault.FileReader", 2},
                      ClassCase{"Custom", u"Acme.ScadaDs", 105}, ClassCase{"Function", u"DVFunction.Sum", std::nullopt},
                      ClassCase{"FunctionWinsOverFile", u"DVDefault.File.DVFunction.", std::nullopt},
                      ClassCase{"FileBeforeMemory", u"DVDefault.Memory DVDefault.File", 2},
                      ClassCase{"MemoryBeforeConstant", u"DVDefault.Constant DVDefault.Memory", 6},
                      ClassCase{"CaseMatters", u"dvdefault.file", 105},
                      ClassCase{"FunctionNeedsItsDot", u"DVFunction", 105}, ClassCase{"Empty", u"", 105}),
    testing::ParamLabel());

TEST(DsKindsFilePath, AppendsToTheHomeAsStored) {
  EXPECT_EQ(DsKindsFilePath(u"C:\\DV"), u"C:\\DV\\etc\\CustomDs.dat");
  EXPECT_EQ(DsKindsFilePath(u"C:\\"), u"C:\\\\etc\\CustomDs.dat");
}

}  // namespace
}  // namespace vd::platform
