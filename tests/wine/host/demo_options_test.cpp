// The demo host's command line: an editing run by default, a selection run
// with exactly four whole numbers after --select.
#include <gtest/gtest.h>

#include <cwchar>
#include <string>
#include <vector>

#include "demo/demo_options.h"

namespace vd::testhost {
namespace {

using win32::demo::ParseDemoOptions;

struct Accepted {
  std::vector<std::wstring> arguments;
  bool selection;
  int32_t context, dsvType, rows, cols;
};

TEST(DemoOptionsTest, AcceptedLines) {
  const Accepted cases[] = {
      {{L"samples\\plant.json"}, false, 0, 500, 0, 0},
      {{L"plant.json", L"--select", L"1", L"501", L"0", L"0"}, true, 1, 501, 0, 0},
      {{L"plant.json", L"--select", L"5", L"500", L"2", L"-3"}, true, 5, 500, 2, -3},
      {{L"plant.json", L"--select", L"0", L"9", L"65535", L"2147483647"}, true, 0, 9, 65535, 2147483647},
  };
  for (const Accepted& c : cases) {
    SCOPED_TRACE(c.arguments.size());
    const auto parsed = ParseDemoOptions(c.arguments);
    ASSERT_TRUE(parsed.options);
    EXPECT_EQ(parsed.options->displayFile, c.arguments[0]);
    ASSERT_EQ(parsed.options->selection.has_value(), c.selection);
    if (!c.selection) continue;
    EXPECT_EQ(parsed.options->selection->context, c.context);
    EXPECT_EQ(parsed.options->selection->dsvType, c.dsvType);
    EXPECT_EQ(parsed.options->selection->rows, c.rows);
    EXPECT_EQ(parsed.options->selection->cols, c.cols);
  }
}

struct Refused {
  std::vector<std::wstring> arguments;
  const wchar_t* error;
};

TEST(DemoOptionsTest, RefusedLinesSayWhy) {
  const Refused cases[] = {
      {{}, L"no display file"},
      {{L"plant.json", L"--edit"}, L"unknown option --edit"},
      {{L"plant.json", L"--select", L"1", L"501", L"0"}, L"--select takes CONTEXT TYPE ROWS COLS"},
      {{L"plant.json", L"--select", L"1", L"501", L"0", L"0", L"0"}, L"--select takes CONTEXT TYPE ROWS COLS"},
      {{L"plant.json", L"--select", L"1", L"5o1", L"0", L"0"}, L"not a whole number: 5o1"},
      {{L"plant.json", L"--select", L"1", L"501", L"", L"0"}, L"not a whole number: "},
      {{L"plant.json", L"--select", L"2147483648", L"501", L"0", L"0"}, L"not a whole number: 2147483648"},
  };
  for (const Refused& c : cases) {
    SCOPED_TRACE(std::string(c.error, c.error + wcslen(c.error)));
    const auto parsed = ParseDemoOptions(c.arguments);
    EXPECT_FALSE(parsed.options);
    EXPECT_EQ(parsed.error, c.error);
  }
}

}  // namespace
}  // namespace vd::testhost
