#pragma once
// Where things stand in JSON text, for messages that name a line. The DOM
// keeps no positions, so the text that already parsed cleanly is walked again
// on demand (only when there is something to report).
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vd::sample::detail {

using JsonStep = std::variant<std::string, size_t>;  // object key or array index
using JsonPath = std::vector<JsonStep>;

JsonPath Child(const JsonPath& path, JsonStep step);
// "dataSources[2].variables[0].rows"; "the file" for the root.
std::string Describe(const JsonPath& path);

// 1-based line of a byte offset; an offset at or past the end names the line
// of the last character that is not white space.
int LineAt(std::string_view text, size_t offset);

// Byte offset of the value at the path, nullopt when the path leads nowhere.
std::optional<size_t> FindValue(std::string_view text, const JsonPath& path);

// Byte offset of the occurrence-th key named key (1-based) in the
// objectOrdinal-th object of the text (1-based, counted by opening braces in
// document order).
std::optional<size_t> FindKey(std::string_view text, size_t objectOrdinal, std::string_view key, int occurrence);

}  // namespace vd::sample::detail
