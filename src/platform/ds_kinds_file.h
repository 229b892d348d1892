#pragma once
// The list of data source kinds the user may add: a text file under the
// toolkit home with one "display-name class-name" entry a line.
//
// Lines are read as Line Input reads them, except that a lone LF ends a line
// as well: CR, LF and CR LF each end one (so a file edited on any system reads
// the same), the end of the file ends the last line, and no empty line follows
// a final line end. The bytes are single-byte text in the ANSI code page
// (Latin-1 off Windows); a NUL or any other byte is an ordinary character.
//
// A line whose first character is "#", and an empty line, is skipped. Any
// other line has its blanks normalised, loses everything from its first "#"
// on, is trimmed, and splits at its first blank into a display name and a
// class name (both trimmed); a line without a blank is ignored. The reader
// yields what the file holds, in order, duplicates included: the caller's keyed
// collection decides about those.
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/file_service.h"
#include "vd/automation/string.h"

namespace vd::platform {

using automation::String;
using automation::StringView;

struct DsKindEntry {
  String name;       // display name: never empty, holds no blank and no "#"
  String className;  // toolkit class name: never empty, no "#", may hold blanks
  bool operator==(const DsKindEntry&) const = default;
};

// The kinds file below a toolkit home: home & "\etc\CustomDs.dat", the home
// taken as it is stored (no separator added or removed).
String DsKindsFilePath(StringView dvHome);

// One line, without its line end.
std::optional<DsKindEntry> ParseDsKindLine(StringView line);

// Every entry of the file's bytes, in file order.
std::vector<DsKindEntry> ReadDsKinds(std::string_view fileBytes);

struct DsKindsFile {
  int32_t error = 0;  // the file service's error number; 0 when read
  std::vector<DsKindEntry> entries;
};

// Reads and parses the file at path. A file that cannot be read gives its
// error and no entries; it never raises.
DsKindsFile LoadDsKindsFile(const FileService& files, StringView path);

// The kind a class name adds, by case-sensitive "contains" tests in this
// order: "DVFunction." nothing (function data sources are not added here),
// "DVDefault.File" 2, "DVDefault.Memory" 6, "DVDefault.Constant" 3, any other
// class 105 (custom).
std::optional<int32_t> ClassifyDsKind(StringView className);

}  // namespace vd::platform
