#pragma once
// Searching folders and writing files, as the dialog does for the data-change
// script files of a SCADA application. Paths are the system's own texts, in
// Windows form ("C:\kv\apl\PLANT\PICT\PUMP.KORL").
#include <cstdint>
#include <string_view>
#include <vector>

#include "vd/automation/string.h"

namespace vd::platform {

using automation::String;
using automation::StringView;

class FileSystem {
 public:
  FileSystem() = default;
  FileSystem(const FileSystem&) = delete;
  FileSystem& operator=(const FileSystem&) = delete;
  virtual ~FileSystem() = default;

  // The names (without their folder) that a search pattern such as
  // "C:\apl\PICT\*.KORL" finds: "*" and "?" in the last part, ignoring case.
  // A platform may list "." and ".." too. Nothing when the folder is missing.
  [[nodiscard]] virtual std::vector<String> Dir(StringView pattern) const = 0;
  // Whether path names an existing file (not a folder).
  [[nodiscard]] virtual bool FileExists(StringView path) const = 0;
  // Copies a file over any file of the target's name. 0, or the Automation
  // error number of the failure (53 file not found, 75 path/file access
  // error, 76 path not found).
  virtual int32_t CopyFile(StringView source, StringView target) = 0;
  // Creates the file (emptying one that exists) and writes these bytes.
  // 0, or the Automation error number of the failure (75, 76).
  virtual int32_t WriteNewFile(StringView path, std::string_view bytes) = 0;
};

}  // namespace vd::platform
