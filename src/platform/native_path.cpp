#include "platform/native_path.h"

#include <string>

namespace vd::platform {

#ifdef _WIN32

std::filesystem::path ToNativePath(automation::StringView path) {
  return std::filesystem::path(std::wstring(path.begin(), path.end()));
}

#else

namespace {
bool IsDriveLetter(char16_t c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); }
bool IsSeparator(char16_t c) { return c == u'\\' || c == u'/'; }
}  // namespace

std::filesystem::path ToNativePath(automation::StringView path) {
  if (path.size() >= 2 && IsDriveLetter(path[0]) && path[1] == u':') {
    path.remove_prefix(2);
    if (path.empty()) return std::filesystem::path("/");
  }
  std::u16string mapped;
  mapped.reserve(path.size());
  for (const char16_t c : path) {
    if (!IsSeparator(c)) {
      mapped.push_back(c);
    } else if (mapped.empty() || mapped.back() != u'/') {
      mapped.push_back(u'/');
    }
  }
  return std::filesystem::path(mapped);
}

#endif

}  // namespace vd::platform
