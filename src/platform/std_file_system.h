#pragma once
// The file system service over the real file system (std::filesystem), with
// paths mapped by ToNativePath.
#include "platform/file_system.h"

namespace vd::platform {

// Whether name matches a search pattern's last part: "*" any run of
// characters, "?" any one character, letters ignoring case.
bool MatchesPattern(StringView name, StringView pattern);

class StdFileSystem final : public FileSystem {
 public:
  [[nodiscard]] std::vector<String> Dir(StringView pattern) const override;
  [[nodiscard]] bool FileExists(StringView path) const override;
  int32_t CopyFile(StringView source, StringView target) override;
  int32_t WriteNewFile(StringView path, std::string_view bytes) override;
};

}  // namespace vd::platform
