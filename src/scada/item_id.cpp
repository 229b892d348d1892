// Object reference <-> OPC item id.
#include "scada/item_id.h"

#include <algorithm>

#include "vd/automation/text.h"

namespace vd::scada {
namespace {

using automation::StringView;

constexpr StringView kApplicationPrefix = u"\\\\APL\\";
constexpr StringView kIdStart = u"\\\\";
constexpr size_t npos = String::npos;
// Characters of the attribute name after the kind letter.
constexpr size_t kAttributeLength = 2;

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Like Mid$: the text from start, at most count characters, empty past the end.
String Mid(const String& text, size_t start, size_t count = npos) {
  return start >= text.size() ? String() : text.substr(start, count);
}

}  // namespace

bool BuildItemId(const String& objectReference, int32_t applicationNr, String& itemId) {
  const String reference = automation::UCase(objectReference);
  const size_t colon = reference.find(u':');
  if (colon == npos || colon + 1 >= reference.size()) return false;
  String ln = reference.substr(0, colon);
  const char16_t kind = reference[colon + 1];
  const String rest = reference.substr(colon + 2);

  if (kind == u'B') {
    // A logical name's trailing digits are its index.
    const auto digitsStart = std::find_if_not(ln.rbegin(), ln.rend(), IsDigit).base();
    const String digits(digitsStart, ln.end());
    ln.erase(digitsStart, ln.end());
    if (ln.empty() || rest.empty()) return false;
    itemId = String(kIdStart) + ln + (digits.empty() ? u"" : u"\\" + digits) + u":" + rest;
    return true;
  }
  if (ln.empty()) return false;
  const String head = String(kApplicationPrefix) + automation::ToDecimal(applicationNr) + u"\\" + kind + u"\\" + ln;
  if (kind == u'S' || kind == u'D') {
    const String extra = Mid(rest, kAttributeLength);
    String tail;
    if (!extra.empty()) tail = extra.find(u'(') == npos ? u"(" + extra + u")" : extra;
    itemId = head + u":" + Mid(rest, 0, kAttributeLength) + tail;
    return true;
  }
  String attribute;
  String index;
  if (!rest.empty() && IsDigit(rest[0])) {
    index = rest;
  } else {
    attribute = u":" + Mid(rest, 0, kAttributeLength);
    index = Mid(rest, kAttributeLength);
  }
  itemId = head + (index.empty() ? u"" : u"\\" + index) + attribute;
  return true;
}

bool ParseItemId(const String& itemId, String& objectReference) {
  if (!itemId.starts_with(kIdStart)) return false;
  const size_t p1 = itemId.find(u'\\', 2);
  const size_t p2 = p1 == npos ? npos : itemId.find(u'\\', p1 + 1);
  String result;
  if (p2 != npos) {
    const size_t p3 = itemId.find(u'\\', p2 + 1);
    if (p3 == npos) return false;
    const String kind = itemId.substr(p2 + 1, p3 - p2 - 1);
    const size_t backslash = itemId.find(u'\\', p3 + 1);
    String ln;
    String index;
    String attribute;
    if (backslash != npos) {
      ln = itemId.substr(p3 + 1, backslash - p3 - 1);
      const size_t colon = itemId.find(u':', backslash + 1);
      index = itemId.substr(backslash + 1, colon == npos ? npos : colon - backslash - 1);
      if (colon != npos) attribute = itemId.substr(colon + 1);
    } else {
      const size_t colon = itemId.find(u':', p3 + 1);
      ln = itemId.substr(p3 + 1, colon == npos ? npos : colon - p3 - 1);
      if (colon != npos) attribute = itemId.substr(colon + 1);
    }
    if (ln.empty() || kind.size() != 1) return false;
    result = ln + u":" + kind + attribute + index;
    std::erase_if(result, [](char16_t c) { return c == u'(' || c == u')'; });
  } else {
    // The "B" form: "\\" + LN + ["\" + digits] + ":" + rest.
    const size_t colon = itemId.find(u':', 2);
    if (colon == npos || (p1 != npos && p1 > colon)) return false;
    if (p1 == npos) {
      result = itemId.substr(2, colon - 2);
    } else {
      result = itemId.substr(2, p1 - 2) + itemId.substr(p1 + 1, colon - p1 - 1);
    }
    result += u":B" + itemId.substr(colon + 1);
  }
  objectReference = std::move(result);
  return true;
}

bool SetItemIdApplication(String& itemId, int32_t applicationNr) {
  if (!itemId.starts_with(kApplicationPrefix)) return false;
  const size_t next = itemId.find(u'\\', kApplicationPrefix.size());
  if (next == npos) return false;
  itemId = String(kApplicationPrefix) + automation::ToDecimal(applicationNr) + itemId.substr(next);
  return true;
}

}  // namespace vd::scada
