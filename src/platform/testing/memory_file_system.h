#pragma once
// An in-memory file system for tests and benchmarks: files are byte strings
// found by their Windows path ignoring case. Copies and writes can be set up
// to fail with an error number; every copy and write is logged.
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace vd::platform::testing {

class MemoryFileSystem final : public FileSystem {
 public:
  void SetFile(StringView path, std::string bytes);
  void Remove(StringView path);
  // Extra names that Dir lists for a folder ("C:\apl\PICT\") whatever the pattern, as "." and "..".
  void AddListedName(StringView folder, String name);
  void SetCopyError(int32_t error) { copyError_ = error; }
  void SetWriteError(int32_t error) { writeError_ = error; }

  [[nodiscard]] std::vector<String> Dir(StringView pattern) const override;
  [[nodiscard]] bool FileExists(StringView path) const override;
  int32_t CopyFile(StringView source, StringView target) override;
  int32_t WriteNewFile(StringView path, std::string_view bytes) override;

  // The file's bytes; empty when there is none.
  [[nodiscard]] std::string Bytes(StringView path) const;
  [[nodiscard]] size_t FileCount() const { return files_.size(); }
  // "copy <source> > <target>" and "write <path>", in order, also the failed ones.
  [[nodiscard]] const std::vector<String>& Log() const { return log_; }

 private:
  struct File {
    String path;
    std::string bytes;
  };
  std::map<String, File> files_;  // keyed by the upper-cased path
  std::multimap<String, String> listed_;
  int32_t copyError_ = 0;
  int32_t writeError_ = 0;
  std::vector<String> log_;
};

}  // namespace vd::platform::testing
