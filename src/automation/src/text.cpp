#include "vd/automation/text.h"

#include <algorithm>
#include <iterator>

#include "case_tables.h"

namespace vd::automation {
namespace {
template <size_t N>
char16_t MapCase(const detail::CaseRun (&runs)[N], char16_t c) {
  const auto* run = std::lower_bound(std::begin(runs), std::end(runs), c,
                                     [](const detail::CaseRun& r, char16_t x) { return r.last < x; });
  if (run == std::end(runs) || c < run->first || (c - run->first) % run->stride != 0) return c;
  return static_cast<char16_t>(c + run->delta);
}

char16_t UpperChar(char16_t c) {
  if (c < 0x80) return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 0x20) : c;
  return MapCase(detail::kUpperRuns, c);
}

char16_t LowerChar(char16_t c) {
  if (c < 0x80) return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 0x20) : c;
  return MapCase(detail::kLowerRuns, c);
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
