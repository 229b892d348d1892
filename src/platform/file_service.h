#pragma once
// The files the system reads, behind an interface so that tests and other
// platforms can stand in for the disk. Paths are the system's own texts, in
// Windows form ("C:\DV\etc\CustomDs.dat").
#include <cstdint>
#include <string>

#include "vd/automation/string.h"

namespace vd::platform {

using automation::String;
using automation::StringView;

struct FileReadResult {
  // 0, or the Automation error number of the failure: 53 file not found,
  // 75 path/file access error, 57 device I/O error, 7 out of memory (a file
  // larger than the system ever reads whole).
  int32_t error = 0;
  std::string bytes;

  [[nodiscard]] bool Ok() const { return error == 0; }
};

class FileService {
 public:
  FileService() = default;
  FileService(const FileService&) = delete;
  FileService& operator=(const FileService&) = delete;
  virtual ~FileService() = default;

  // The whole file, byte for byte.
  [[nodiscard]] virtual FileReadResult ReadAll(StringView path) const = 0;
  // Whether path names an existing file (not a folder).
  [[nodiscard]] virtual bool Exists(StringView path) const = 0;
};

}  // namespace vd::platform
