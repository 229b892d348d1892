// ANSI code page conversions; Windows only.
#include <climits>

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include "vd/automation/error.h"
#include "vd/automation/string.h"

namespace vd::automation {
namespace {
int CheckedLength(size_t size) {
  if (size > static_cast<size_t>(INT_MAX)) Raise(err::kOverflow);
  return static_cast<int>(size);
}
}  // namespace

String FromAnsi(std::string_view ansi) {
  if (ansi.empty()) return {};
  const int inLength = CheckedLength(ansi.size());
  const int outLength = MultiByteToWideChar(CP_ACP, 0, ansi.data(), inLength, nullptr, 0);
  std::wstring wide(static_cast<size_t>(outLength), L'\0');
  MultiByteToWideChar(CP_ACP, 0, ansi.data(), inLength, wide.data(), outLength);
  return {wide.begin(), wide.end()};
}

std::string ToAnsi(StringView text) {
  if (text.empty()) return {};
  const std::wstring wide(text.begin(), text.end());
  const int inLength = CheckedLength(wide.size());
  const int outLength = WideCharToMultiByte(CP_ACP, 0, wide.data(), inLength, nullptr, 0, nullptr, nullptr);
  std::string ansi(static_cast<size_t>(outLength), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.data(), inLength, ansi.data(), outLength, nullptr, nullptr);
  return ansi;
}

}  // namespace vd::automation
