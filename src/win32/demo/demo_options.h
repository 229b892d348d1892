#pragma once
// The demo host's command line:
//   vd_demo_host DISPLAY.json                                  an editing run
//   vd_demo_host DISPLAY.json --select CONTEXT TYPE ROWS COLS  a selection run
// CONTEXT picks the caption (1: dynamics), TYPE the filter (500 any, 501
// numeric), ROWS and COLS the shape (0: any).
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vd::win32::demo {

struct SelectionArguments {
  int32_t context = 0;
  int32_t dsvType = 500;
  int32_t rows = 0;
  int32_t cols = 0;
};

struct DemoOptions {
  std::wstring displayFile;
  std::optional<SelectionArguments> selection;  // none: an editing run
};

struct ParsedOptions {
  std::optional<DemoOptions> options;
  std::wstring error;  // why the line was refused, when options is empty
};

// The arguments after the program's name.
ParsedOptions ParseDemoOptions(const std::vector<std::wstring>& arguments);

inline constexpr wchar_t kDemoUsage[] = L"usage: vd_demo_host DISPLAY.json [--select CONTEXT TYPE ROWS COLS]";

}  // namespace vd::win32::demo
