#include "platform/ds_kinds_file.h"

#include "platform/ansi_text.h"
#include "vd/automation/text.h"
#include "vd/toolkit/toolkit.h"

namespace vd::platform {
namespace {

bool Contains(StringView text, StringView part) { return text.find(part) != StringView::npos; }

// Calls take(line) for each line of bytes, line ends removed.
template <class Take>
void ForEachLine(std::string_view bytes, Take take) {
  size_t start = 0;
  while (start < bytes.size()) {
    const size_t end = bytes.find_first_of("\r\n", start);
    if (end == std::string_view::npos) {
      take(bytes.substr(start));
      return;
    }
    take(bytes.substr(start, end - start));
    start = end + 1;
    if (bytes[end] == '\r' && start < bytes.size() && bytes[start] == '\n') ++start;
  }
}

}  // namespace

String DsKindsFilePath(StringView dvHome) { return String(dvHome) + u"\\etc\\CustomDs.dat"; }

std::optional<DsKindEntry> ParseDsKindLine(StringView line) {
  if (line.empty() || line.front() == u'#') return std::nullopt;
  String text = automation::NormalizeBlanks(line);
  if (const size_t comment = text.find(u'#'); comment != String::npos) {
    text = automation::Trim(StringView(text).substr(0, comment));
  }
  const size_t blank = text.find(u' ');
  if (blank == String::npos) return std::nullopt;
  const StringView rest(text);
  return DsKindEntry{automation::Trim(rest.substr(0, blank)), automation::Trim(rest.substr(blank + 1))};
}

std::vector<DsKindEntry> ReadDsKinds(std::string_view fileBytes) {
  std::vector<DsKindEntry> entries;
  ForEachLine(fileBytes, [&entries](std::string_view line) {
    if (auto entry = ParseDsKindLine(FromAnsiText(line))) entries.push_back(std::move(*entry));
  });
  return entries;
}

DsKindsFile LoadDsKindsFile(const FileService& files, StringView path) {
  FileReadResult file = files.ReadAll(path);
  if (!file.Ok()) return DsKindsFile{file.error, {}};
  return DsKindsFile{0, ReadDsKinds(file.bytes)};
}

std::optional<int32_t> ClassifyDsKind(StringView className) {
  if (Contains(className, u"DVFunction.")) return std::nullopt;
  if (Contains(className, u"DVDefault.File")) return toolkit::kind::kFile;
  if (Contains(className, u"DVDefault.Memory")) return toolkit::kind::kMemory;
  if (Contains(className, u"DVDefault.Constant")) return toolkit::kind::kConstant;
  return toolkit::kind::kCustom;
}

}  // namespace vd::platform
