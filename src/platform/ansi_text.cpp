#include "platform/ansi_text.h"

#ifdef _WIN32
#include <windows.h>

#include <limits>
#endif

namespace vd::platform {

String FromLatin1(std::string_view bytes) {
  String text;
  text.reserve(bytes.size());
  for (const char byte : bytes) text.push_back(static_cast<char16_t>(static_cast<unsigned char>(byte)));
  return text;
}

std::string ToLatin1(StringView text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const char16_t c : text) bytes.push_back(c <= 0xFF ? static_cast<char>(c) : '?');
  return bytes;
}

#ifdef _WIN32

namespace {
// Texts beyond an int's reach are not handed to the conversion calls; nothing
// in the system comes near that size.
bool FitsInt(size_t size) { return size <= static_cast<size_t>(std::numeric_limits<int>::max()); }
}  // namespace

String FromAnsiText(std::string_view bytes) {
  if (bytes.empty() || !FitsInt(bytes.size())) return FromLatin1(bytes);
  const int length = static_cast<int>(bytes.size());
  const int needed = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
  if (needed <= 0) return FromLatin1(bytes);
  std::wstring wide(static_cast<size_t>(needed), L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, wide.data(), needed);
  return String(wide.begin(), wide.end());
}

std::string ToAnsiText(StringView text) {
  if (text.empty() || !FitsInt(text.size())) return ToLatin1(text);
  const std::wstring wide(text.begin(), text.end());
  const int length = static_cast<int>(wide.size());
  const int needed = WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
  if (needed <= 0) return ToLatin1(text);
  std::string bytes(static_cast<size_t>(needed), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.data(), length, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

#else

String FromAnsiText(std::string_view bytes) { return FromLatin1(bytes); }
std::string ToAnsiText(StringView text) { return ToLatin1(text); }

#endif

}  // namespace vd::platform
