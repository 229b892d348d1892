// Feeds arbitrary references and application numbers to the item id
// translation and arbitrary item ids to the application rewrite. A reference
// made of letters, digits and underscores around its colon (and parentheses
// after an "S" or "D" kind) must come back from its item id as the same
// upper-case text without parentheses; anything else must merely not crash.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "scada/item_id.h"
#include "vd/automation/string.h"
#include "vd/automation/text.h"

namespace {

using vd::automation::String;

void Require(bool condition) {
  if (!condition) std::abort();
}

bool IsWordChar(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_';
}

String WithoutParentheses(String text) {
  std::erase_if(text, [](char16_t c) { return c == u'(' || c == u')'; });
  return text;
}

// LN ":" K rest, with word characters only (parentheses too in the rest of S and D).
bool RoundTripPromised(const String& reference) {
  const size_t colon = reference.find(u':');
  if (colon == String::npos || colon + 1 >= reference.size()) return false;
  const char16_t kind = static_cast<char16_t>(reference[colon + 1] & ~0x20);
  const bool parentheses = kind == u'S' || kind == u'D';
  const auto allowed = [parentheses](char16_t c) { return IsWordChar(c) || (parentheses && (c == u'(' || c == u')')); };
  return std::all_of(reference.begin(), reference.begin() + static_cast<std::ptrdiff_t>(colon), IsWordChar) &&
         IsWordChar(reference[colon + 1]) &&
         std::all_of(reference.begin() + static_cast<std::ptrdiff_t>(colon) + 2, reference.end(), allowed);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  int32_t applicationNr = 0;
  if (size >= sizeof applicationNr) {
    std::memcpy(&applicationNr, data, sizeof applicationNr);
    data += sizeof applicationNr;
    size -= sizeof applicationNr;
  }
  const String text(data, data + size);  // each byte one character

  String itemId;
  if (vd::scada::BuildItemId(text, applicationNr, itemId) && RoundTripPromised(text)) {
    String back;
    Require(vd::scada::ParseItemId(itemId, back));
    Require(back == WithoutParentheses(vd::automation::UCase(text)));
  }
  String reference;
  (void)vd::scada::ParseItemId(text, reference);

  String rewritten = text;
  if (vd::scada::SetItemIdApplication(rewritten, applicationNr)) {
    Require(rewritten.starts_with(u"\\\\APL\\" + vd::automation::ToDecimal(applicationNr) + u"\\"));
  } else {
    Require(rewritten == text);
  }
  return 0;
}
