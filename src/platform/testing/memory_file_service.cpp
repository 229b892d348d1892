#include "platform/testing/memory_file_service.h"

#include "vd/automation/error.h"
#include "vd/automation/text.h"

namespace vd::platform::testing {

void MemoryFileService::SetFile(StringView path, std::string bytes) {
  files_[automation::UCase(path)] = FileReadResult{0, std::move(bytes)};
}

void MemoryFileService::SetReadError(StringView path, int32_t error) {
  files_[automation::UCase(path)] = FileReadResult{error, {}};
}

void MemoryFileService::Remove(StringView path) { files_.erase(automation::UCase(path)); }

FileReadResult MemoryFileService::ReadAll(StringView path) const {
  reads_.emplace_back(path);
  const auto file = files_.find(automation::UCase(path));
  if (file == files_.end()) return FileReadResult{automation::err::kFileNotFound, {}};
  return file->second;
}

bool MemoryFileService::Exists(StringView path) const { return files_.contains(automation::UCase(path)); }

}  // namespace vd::platform::testing
