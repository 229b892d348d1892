#include "platform/testing/memory_file_system.h"

#include "platform/std_file_system.h"
#include "vd/automation/error.h"
#include "vd/automation/text.h"

namespace vd::platform::testing {
namespace {
// The folder part of a path, with its closing separator.
String FolderOf(StringView path) {
  const size_t slash = path.find_last_of(u"\\/");
  return slash == StringView::npos ? String() : String(path.substr(0, slash + 1));
}
}  // namespace

void MemoryFileSystem::SetFile(StringView path, std::string bytes) {
  files_[automation::UCase(path)] = File{String(path), std::move(bytes)};
}

void MemoryFileSystem::Remove(StringView path) { files_.erase(automation::UCase(path)); }

void MemoryFileSystem::AddListedName(StringView folder, String name) {
  listed_.emplace(automation::UCase(folder), std::move(name));
}

std::vector<String> MemoryFileSystem::Dir(StringView pattern) const {
  const String folder = automation::UCase(FolderOf(pattern));
  const StringView namePattern = pattern.substr(folder.size());
  std::vector<String> names;
  auto [first, last] = listed_.equal_range(folder);
  for (auto entry = first; entry != last; ++entry) names.push_back(entry->second);
  for (const auto& [key, file] : files_) {
    if (automation::UCase(FolderOf(key)) != folder) continue;
    const String name = file.path.substr(folder.size());
    if (MatchesPattern(name, namePattern)) names.push_back(name);
  }
  return names;
}

bool MemoryFileSystem::FileExists(StringView path) const { return files_.contains(automation::UCase(path)); }

int32_t MemoryFileSystem::CopyFile(StringView source, StringView target) {
  log_.push_back(u"copy " + String(source) + u" > " + String(target));
  if (copyError_ != 0) return copyError_;
  const auto from = files_.find(automation::UCase(source));
  if (from == files_.end()) return automation::err::kFileNotFound;
  std::string bytes = from->second.bytes;
  SetFile(target, std::move(bytes));
  return 0;
}

int32_t MemoryFileSystem::WriteNewFile(StringView path, std::string_view bytes) {
  log_.push_back(u"write " + String(path));
  if (writeError_ != 0) return writeError_;
  SetFile(path, std::string(bytes));
  return 0;
}

std::string MemoryFileSystem::Bytes(StringView path) const {
  const auto file = files_.find(automation::UCase(path));
  return file == files_.end() ? std::string() : file->second.bytes;
}

}  // namespace vd::platform::testing
