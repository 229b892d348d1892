#pragma once
// What one typed character does to the text of a box.
#include <cstdint>

#include "vd/automation/string.h"
#include "vd/forms/constants.h"

namespace vd::forms::detail {

inline int16_t KeyAscii(char16_t key) { return static_cast<int16_t>(static_cast<uint16_t>(key)); }

// Backspace removes the last character; any other character is appended.
inline vd::automation::String WithKey(vd::automation::StringView text, int16_t keyAscii) {
  vd::automation::String out(text);
  if (keyAscii == vbKeyBack) {
    if (!out.empty()) out.pop_back();
  } else {
    out.push_back(static_cast<char16_t>(static_cast<uint16_t>(keyAscii)));
  }
  return out;
}

}  // namespace vd::forms::detail
