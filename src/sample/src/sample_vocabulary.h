#pragma once
// The words of sample files for the toolkit's codes.
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vd/toolkit/toolkit.h"

namespace vd::sample::detail {

struct CodeWord {
  int32_t code;
  std::string_view word;
};

inline constexpr std::array kKindWords = {
    CodeWord{toolkit::kind::kFile, "file"},
    CodeWord{toolkit::kind::kConstant, "constant"},
    CodeWord{toolkit::kind::kMemory, "memory"},
    CodeWord{toolkit::kind::kCustom, "custom"},
};

// The variable type names of the toolkit's vocabulary.
inline constexpr std::array kTypeWords = {
    CodeWord{toolkit::dsvtype::kByte, "Byte"},   CodeWord{toolkit::dsvtype::kUByte, "UByte"},
    CodeWord{toolkit::dsvtype::kShort, "Short"}, CodeWord{toolkit::dsvtype::kUShort, "UShort"},
    CodeWord{toolkit::dsvtype::kLong, "Long"},   CodeWord{toolkit::dsvtype::kULong, "ULong"},
    CodeWord{toolkit::dsvtype::kFloat, "Float"}, CodeWord{toolkit::dsvtype::kDouble, "Double"},
    CodeWord{toolkit::dsvtype::kText, "Text"},
};

inline constexpr std::array kScopeWords = {
    CodeWord{toolkit::scope::kPrivate, "private"},
    CodeWord{toolkit::scope::kPublic, "public"},
};

inline constexpr std::array kParamTypeWords = {
    CodeWord{0, "empty"},
    CodeWord{toolkit::paramtype::kNumber, "number"},
    CodeWord{toolkit::paramtype::kText, "text"},
};

template <size_t N>
std::optional<int32_t> CodeOf(const std::array<CodeWord, N>& words, std::string_view word) {
  for (const auto& w : words)
    if (w.word == word) return w.code;
  return std::nullopt;
}

template <size_t N>
std::string_view WordOf(const std::array<CodeWord, N>& words, int32_t code) {
  for (const auto& w : words)
    if (w.code == code) return w.word;
  return {};
}

template <size_t N>
std::string ListOf(const std::array<CodeWord, N>& words) {
  std::string list;
  for (const auto& w : words) list += (list.empty() ? "\"" : ", \"") + std::string(w.word) + "\"";
  return list;
}

}  // namespace vd::sample::detail
