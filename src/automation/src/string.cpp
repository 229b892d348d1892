#include "vd/automation/string.h"

#include <cstdint>

namespace vd::automation {
namespace {
constexpr char16_t kReplacement = 0xFFFD;

void AppendUtf16(String& out, char32_t cp) {
  if (cp >= 0x10000) {
    cp -= 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (cp >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
  } else {
    out.push_back(static_cast<char16_t>(cp));
  }
}

void AppendUtf8(std::string& out, char32_t cp) {
  auto put = [&out](uint32_t b) { out.push_back(static_cast<char>(b)); };
  if (cp < 0x80) {
    put(cp);
  } else if (cp < 0x800) {
    put(0xC0 | (cp >> 6));
    put(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    put(0xE0 | (cp >> 12));
    put(0x80 | ((cp >> 6) & 0x3F));
    put(0x80 | (cp & 0x3F));
  } else {
    put(0xF0 | (cp >> 18));
    put(0x80 | ((cp >> 12) & 0x3F));
    put(0x80 | ((cp >> 6) & 0x3F));
    put(0x80 | (cp & 0x3F));
  }
}

// The well-formed byte sequences of UTF-8: a lead byte fixes how many
// continuation bytes follow and the range the first of them must lie in
// (which excludes overlong forms, surrogates and code points above U+10FFFF).
struct LeadRule {
  int extra;
  unsigned char secondLow;
  unsigned char secondHigh;
};

LeadRule RuleFor(unsigned char lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return {1, 0x80, 0xBF};
  if (lead == 0xE0) return {2, 0xA0, 0xBF};
  if (lead == 0xED) return {2, 0x80, 0x9F};
  if (lead >= 0xE1 && lead <= 0xEF) return {2, 0x80, 0xBF};
  if (lead == 0xF0) return {3, 0x90, 0xBF};
  if (lead >= 0xF1 && lead <= 0xF3) return {3, 0x80, 0xBF};
  if (lead == 0xF4) return {3, 0x80, 0x8F};
  return {-1, 0, 0};  // 0x80..0xC1 and 0xF5..0xFF never start a character
}
}  // namespace

String FromUtf8(std::string_view utf8) {
  String out;
  out.reserve(utf8.size());
  size_t i = 0;
  while (i < utf8.size()) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    if (lead < 0x80) {
      out.push_back(lead);
      ++i;
      continue;
    }
    const LeadRule rule = RuleFor(lead);
    if (rule.extra < 0) {
      out.push_back(kReplacement);
      ++i;
      continue;
    }
    char32_t cp = lead & (0x3F >> rule.extra);
    size_t k = 1;
    for (; k <= static_cast<size_t>(rule.extra) && i + k < utf8.size(); ++k) {
      const auto b = static_cast<unsigned char>(utf8[i + k]);
      const unsigned char low = k == 1 ? rule.secondLow : 0x80;
      const unsigned char high = k == 1 ? rule.secondHigh : 0xBF;
      if (b < low || b > high) break;
      cp = (cp << 6) | (b & 0x3F);
    }
    if (k <= static_cast<size_t>(rule.extra)) {
      out.push_back(kReplacement);  // the bytes read so far are one ill-formed unit
      i += k;
      continue;
    }
    AppendUtf16(out, cp);
    i += k;
  }
  return out;
}

std::string ToUtf8(StringView text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    char32_t cp = text[i];
    if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
      cp = 0x10000 + ((cp - 0xD800) << 10) + (text[i + 1] - 0xDC00);
      ++i;
    } else if (cp >= 0xD800 && cp <= 0xDFFF) {
      cp = kReplacement;
    }
    AppendUtf8(out, cp);
  }
  return out;
}

String ToDecimal(long long value) {
  const std::string s = std::to_string(value);
  return {s.begin(), s.end()};
}

}  // namespace vd::automation
