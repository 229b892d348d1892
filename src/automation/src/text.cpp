#include "vd/automation/text.h"

#include <algorithm>

namespace vd::automation {
namespace {
char16_t UpperChar(char16_t c) {
  if (c >= u'a' && c <= u'z') return static_cast<char16_t>(c - 0x20);
  if (c < 0x80) return c;
  if ((c >= 0xE0 && c <= 0xFE && c != 0xF7)) return static_cast<char16_t>(c - 0x20);
  if (c == 0xFF) return 0x178;
  if (c >= 0x100 && c <= 0x17F && c != 0x131 && c != 0x138 && c != 0x149 && c != 0x17F) {
    // Latin Extended-A pairs: even upper, odd lower, except the 0x139..0x148 and
    // 0x179..0x17E runs, which are odd upper, even lower.
    const bool oddUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    if (oddUpper ? (c % 2 == 0) : (c % 2 == 1)) return static_cast<char16_t>(c - 1);
    return c;
  }
  if (c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) return static_cast<char16_t>(c - 0x20);
  if (c >= 0x430 && c <= 0x44F) return static_cast<char16_t>(c - 0x20);
  if (c >= 0x450 && c <= 0x45F) return static_cast<char16_t>(c - 0x50);
  return c;
}

char16_t LowerChar(char16_t c) {
  if (c >= u'A' && c <= u'Z') return static_cast<char16_t>(c + 0x20);
  if (c < 0x80) return c;
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return static_cast<char16_t>(c + 0x20);
  if (c == 0x178) return 0xFF;
  if (c >= 0x100 && c <= 0x17F && c != 0x130 && c != 0x138 && c != 0x149 && c != 0x17F) {
    const bool oddUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    if (oddUpper ? (c % 2 == 1) : (c % 2 == 0)) return static_cast<char16_t>(c + 1);
    return c;
  }
  if (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) return static_cast<char16_t>(c + 0x20);
  if (c >= 0x410 && c <= 0x42F) return static_cast<char16_t>(c + 0x20);
  if (c >= 0x400 && c <= 0x40F) return static_cast<char16_t>(c + 0x50);
  return c;
}

bool IsBlankOrTab(char16_t c) { return c == u' ' || c == u'\t'; }
}  // namespace

String UCase(StringView text) {
  String out(text);
  std::transform(out.begin(), out.end(), out.begin(), UpperChar);
  return out;
}

String LCase(StringView text) {
  String out(text);
  std::transform(out.begin(), out.end(), out.begin(), LowerChar);
  return out;
}

int CompareIgnoreCase(StringView a, StringView b) {
  const size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    const char16_t x = UpperChar(a[i]);
    const char16_t y = UpperChar(b[i]);
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

bool EqualsIgnoreCase(StringView a, StringView b) { return a.size() == b.size() && CompareIgnoreCase(a, b) == 0; }

bool ContainsIgnoreCase(StringView haystack, StringView needle) {
  return UCase(haystack).find(UCase(needle)) != String::npos;
}

String NormalizeBlanks(StringView text) {
  String out;
  out.reserve(text.size());
  bool seenText = false;
  for (const char16_t c : text) {
    if (!IsBlankOrTab(c)) {
      out.push_back(c);
      seenText = true;
    } else if (seenText) {
      out.push_back(u' ');
      seenText = false;
    }
  }
  while (!out.empty() && out.back() == u' ') out.pop_back();
  return out;
}

String Trim(StringView text) {
  const size_t first = text.find_first_not_of(u' ');
  if (first == StringView::npos) return {};
  const size_t last = text.find_last_not_of(u' ');
  return String(text.substr(first, last - first + 1));
}

bool StartsWith(StringView text, StringView prefix) { return text.substr(0, prefix.size()) == prefix; }

}  // namespace vd::automation
