#pragma once
// Fuzz input as Automation text: every byte is one character (0..255), so
// that the mutator's digits, signs and letters are the text's; the byte 0xFF
// takes the next two bytes (little-endian) as one 16-bit character of any
// value, surrogates and separators of other locales included.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "vd/automation/string.h"

namespace vd::fuzz {

inline vd::automation::String TextOf(const uint8_t* data, size_t size) {
  vd::automation::String text;
  text.reserve(size);
  for (size_t i = 0; i < size; ++i) {
    if (data[i] == 0xFF && i + 2 < size) {
      text.push_back(static_cast<char16_t>(data[i + 1] | (data[i + 2] << 8)));
      i += 2;
    } else {
      text.push_back(static_cast<char16_t>(data[i]));
    }
  }
  return text;
}

// A broken promise is a finding: libFuzzer keeps the input that led here.
inline void Require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace vd::fuzz
