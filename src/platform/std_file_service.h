#pragma once
// The file service over the real file system (std::filesystem), with paths
// mapped by ToNativePath.
#include <cstdint>

#include "platform/file_service.h"

namespace vd::platform {

class StdFileService final : public FileService {
 public:
  // Files larger than this are not read whole (error 7); the kinds file is a
  // few lines, so this only guards against a wrong path naming a huge file.
  static constexpr uintmax_t kMaxReadBytes = uintmax_t{64} << 20;

  [[nodiscard]] FileReadResult ReadAll(StringView path) const override;
  [[nodiscard]] bool Exists(StringView path) const override;
};

}  // namespace vd::platform
