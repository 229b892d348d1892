#include "scada_texts.h"

#include <limits>

#include "vd/automation/text.h"

namespace vd::sample::detail {

namespace {

constexpr StringView kPathRequest =
    u"@path1=path(\"APL_\")\n"
    u"@path1 =%path1(1)\n"
    u"#return substr(%path1,1,length(%path1)-4)";
constexpr StringView kOffsetsHead = u"#return do(BGU_CONTROL:CCP, (\"";
constexpr StringView kOffsetsTail = u"),\"GET_OFFSETS\")";

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// A whole decimal number, optionally signed; nullopt for anything else or
// anything beyond a Long.
std::optional<int32_t> ParseWhole(StringView text, bool allowSign) {
  bool negative = false;
  if (allowSign && !text.empty() && text.front() == u'-') {
    negative = true;
    text.remove_prefix(1);
  }
  if (text.empty()) return std::nullopt;
  long long value = 0;
  for (char16_t c : text) {
    if (!IsDigit(c)) return std::nullopt;
    value = value * 10 + (c - u'0');
    if (value > std::numeric_limits<int32_t>::max() + 1LL) return std::nullopt;
  }
  if (negative) value = -value;
  if (value > std::numeric_limits<int32_t>::max() || value < std::numeric_limits<int32_t>::min()) return std::nullopt;
  return static_cast<int32_t>(value);
}

// Cuts text at the first of the stop characters; returns the part before it.
StringView TakeUntil(StringView& text, StringView stops) {
  const size_t at = text.find_first_of(stops);
  StringView head = text.substr(0, at);
  text.remove_prefix(at == StringView::npos ? text.size() : at);
  return head;
}

// <LN>[\<index>][:<attr>[(<index>)]]
bool ParseObjectPart(StringView tail, ItemAddress& address) {
  StringView name = TakeUntil(tail, u"\\:");
  if (name.empty()) return false;
  address.name = automation::UCase(name);
  bool indexed = false;
  if (!tail.empty() && tail.front() == u'\\') {
    tail.remove_prefix(1);
    auto index = ParseWhole(TakeUntil(tail, u":"), false);
    if (!index) return false;
    address.index = *index;
    indexed = true;
  }
  if (tail.empty()) return true;
  tail.remove_prefix(1);  // the ':'
  const size_t open = tail.find(u'(');
  if (open != StringView::npos) {
    if (indexed || tail.back() != u')') return false;
    auto index = ParseWhole(tail.substr(open + 1, tail.size() - open - 2), false);
    if (!index) return false;
    address.index = *index;
    tail = tail.substr(0, open);
  }
  address.attribute = automation::UCase(tail);
  return true;
}

}  // namespace

bool IsApplicationPathRequest(StringView request) { return request == kPathRequest; }

std::optional<OffsetsRequest> ParseOffsetsRequest(StringView request) {
  if (!request.starts_with(kOffsetsHead) || !request.ends_with(kOffsetsTail)) return std::nullopt;
  StringView middle = request.substr(kOffsetsHead.size(), request.size() - kOffsetsHead.size() - kOffsetsTail.size());
  const size_t quote = middle.find(u"\",");
  if (quote == StringView::npos || quote == 0) return std::nullopt;
  StringView name = middle.substr(0, quote);
  if (name.find(u'"') != StringView::npos) return std::nullopt;
  auto index = ParseWhole(middle.substr(quote + 2), true);
  if (!index) return std::nullopt;
  return OffsetsRequest{String(name), *index};
}

std::optional<ItemAddress> ParseItemId(StringView itemId) {
  if (!itemId.starts_with(u"\\\\")) return std::nullopt;
  StringView rest = itemId.substr(2);
  ItemAddress address;
  if (rest.starts_with(u"APL\\")) {
    rest.remove_prefix(4);
    auto application = ParseWhole(TakeUntil(rest, u"\\"), false);
    if (!application || rest.size() < 3 || rest[2] != u'\\') return std::nullopt;
    address.application = *application;
    address.kind = automation::UCase(rest.substr(1, 1)).front();
    rest.remove_prefix(3);
  }
  if (!ParseObjectPart(rest, address)) return std::nullopt;
  return address;
}

}  // namespace vd::sample::detail
