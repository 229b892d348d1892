#pragma once
// An in-memory file service for tests and benchmarks: files are byte strings
// found by their Windows path ignoring case, as the Windows file system finds
// them. A path may also be set up to fail with a given error. Every read is
// recorded.
#include <map>
#include <string>
#include <vector>

#include "platform/file_service.h"

namespace vd::platform::testing {

class MemoryFileService final : public FileService {
 public:
  void SetFile(StringView path, std::string bytes);
  // The file exists, but reading it fails with this error number.
  void SetReadError(StringView path, int32_t error);
  void Remove(StringView path);

  [[nodiscard]] FileReadResult ReadAll(StringView path) const override;
  [[nodiscard]] bool Exists(StringView path) const override;

  // The paths read, as they were asked for, in order.
  [[nodiscard]] const std::vector<String>& Reads() const { return reads_; }

 private:
  std::map<String, FileReadResult> files_;  // keyed by the upper-cased path
  mutable std::vector<String> reads_;
};

}  // namespace vd::platform::testing
