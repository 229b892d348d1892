#include "demo/demo_options.h"

#include <cerrno>
#include <cwchar>

namespace vd::win32::demo {
namespace {

// A whole decimal number that fits a Long, nothing else.
std::optional<int32_t> ParseLong(const std::wstring& text) {
  if (text.empty()) return std::nullopt;
  wchar_t* end = nullptr;
  errno = 0;
  const long long value = std::wcstoll(text.c_str(), &end, 10);
  if (errno != 0 || end != text.c_str() + text.size()) return std::nullopt;
  if (value < INT32_MIN || value > INT32_MAX) return std::nullopt;
  return static_cast<int32_t>(value);
}

ParsedOptions Refuse(std::wstring why) { return {std::nullopt, std::move(why)}; }

}  // namespace

ParsedOptions ParseDemoOptions(const std::vector<std::wstring>& arguments) {
  if (arguments.empty()) return Refuse(L"no display file");
  DemoOptions options;
  options.displayFile = arguments[0];
  if (arguments.size() == 1) return {options, {}};
  if (arguments[1] != L"--select") return Refuse(L"unknown option " + arguments[1]);
  if (arguments.size() != 6) return Refuse(L"--select takes CONTEXT TYPE ROWS COLS");
  std::optional<int32_t> numbers[4];
  for (size_t i = 0; i < 4; ++i) {
    numbers[i] = ParseLong(arguments[2 + i]);
    if (!numbers[i]) return Refuse(L"not a whole number: " + arguments[2 + i]);
  }
  options.selection = SelectionArguments{*numbers[0], *numbers[1], *numbers[2], *numbers[3]};
  return {options, {}};
}

}  // namespace vd::win32::demo
