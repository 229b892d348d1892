#include "platform/common_dialog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "param_label.h"

namespace vd::platform {
namespace {

using namespace std::string_literals;

// Stands in for the system's UI services: records each open-file request and
// answers with a set path.
struct RecordingUi {
  struct Owner {};
  struct Request {
    const Owner* owner;
    std::u16string title, filter, defaultExt;
    uint32_t flags;
  };

  std::u16string OpenFileDialog(const Owner* owner, std::u16string_view title, std::u16string_view filter,
                                std::u16string_view defaultExt, uint32_t flags) {
    requests.push_back({owner, std::u16string(title), std::u16string(filter), std::u16string(defaultExt), flags});
    return answer;
  }

  std::u16string answer;
  std::vector<Request> requests;
};

struct FlagsCase {
  bool fileMustExist;
  bool multiSelect;
  uint32_t expected;
};

class OpenFileFlagsTest : public ::testing::TestWithParam<FlagsCase> {};

TEST_P(OpenFileFlagsTest, ReachTheUiExactly) {
  const FlagsCase& c = GetParam();
  RecordingUi ui;
  const RecordingUi::Owner owner;
  modCommonDialog::ShowOpenFileDialog(ui, &owner, u"T", u"F|*.f|", u"", c.fileMustExist, c.multiSelect);
  ASSERT_EQ(ui.requests.size(), 1u);
  EXPECT_EQ(ui.requests[0].flags, c.expected);
  EXPECT_EQ(modCommonDialog::OpenFileFlags(c.fileMustExist, c.multiSelect), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Combinations, OpenFileFlagsTest,
                         ::testing::Values(FlagsCase{false, false, 0x2A0024}, FlagsCase{true, false, 0x2A1024},
                                           FlagsCase{false, true, 0x2A0224}, FlagsCase{true, true, 0x2A1224}));

TEST(ShowOpenFileDialog, PassesOwnerTextsAndAnswerThrough) {
  RecordingUi ui;
  ui.answer = u"C:\\data\\plant.dat";
  const RecordingUi::Owner owner;
  const std::u16string path = modCommonDialog::ShowOpenFileDialog(
      ui, &owner, u"File Datasource Origin", u"Data Files (*.dat)|*.dat|All Files (*.*)|*.*|", u"dat", false, false);
  EXPECT_EQ(path, ui.answer);
  ASSERT_EQ(ui.requests.size(), 1u);
  EXPECT_EQ(ui.requests[0].owner, &owner);
  EXPECT_EQ(ui.requests[0].title, u"File Datasource Origin");
  EXPECT_EQ(ui.requests[0].filter, u"Data Files (*.dat)|*.dat|All Files (*.*)|*.*|");
  EXPECT_EQ(ui.requests[0].defaultExt, u"dat");
}

struct FilterCase {
  std::u16string filter;
  std::u16string expected;
};

class FilterWithNulsTest : public ::testing::TestWithParam<FilterCase> {};

TEST_P(FilterWithNulsTest, ReplacesEveryBar) {
  EXPECT_EQ(modCommonDialog::FilterWithNuls(GetParam().filter), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Filters, FilterWithNulsTest,
                         ::testing::Values(FilterCase{u"Data Files (*.dat)|*.dat|All Files (*.*)|*.*|",
                                                      u"Data Files (*.dat)\0*.dat\0All Files (*.*)\0*.*\0"s},
                                           FilterCase{u"", u""}, FilterCase{u"||", u"\0\0"s},
                                           FilterCase{u"no bars", u"no bars"}));

struct BufferCase {
  const char* label;
  std::string buffer;
  std::string expected;
};
void PrintTo(const BufferCase& c, std::ostream* os) { *os << c.label; }

class TextBeforeDoubleNulTest : public ::testing::TestWithParam<BufferCase> {};

TEST_P(TextBeforeDoubleNulTest, CutsAtTheFirstPair) {
  EXPECT_EQ(modCommonDialog::TextBeforeDoubleNul(GetParam().buffer), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Buffers, TextBeforeDoubleNulTest,
                         ::testing::Values(BufferCase{"OnePath", "C:\\a.dat\0\0\0\0"s, "C:\\a.dat"},
                                           BufferCase{"MultipleSelectionKeepsSingleNuls", "C:\\d\0a.dat\0b.dat\0\0\0"s,
                                                      "C:\\d\0a.dat\0b.dat"s},
                                           BufferCase{"Untouched", std::string(8, '\0'), ""},
                                           BufferCase{"NoPair", "abc\0d"s, "abc\0d"s},
                                           BufferCase{"TrailingSingleNul", "abc\0"s, "abc\0"s}),
                         testing::ParamLabel());

}  // namespace
}  // namespace vd::platform
