#include "platform/std_file_service.h"

#include <fstream>
#include <system_error>

#include "platform/native_path.h"
#include "vd/automation/error.h"

namespace vd::platform {
namespace {
constexpr int32_t kDeviceIoError = 57;
constexpr int32_t kPathFileAccessError = 75;
constexpr int32_t kOutOfMemory = 7;

FileReadResult Failure(int32_t error) { return FileReadResult{error, {}}; }
}  // namespace

FileReadResult StdFileService::ReadAll(StringView path) const {
  const std::filesystem::path native = ToNativePath(path);
  std::error_code status;
  const std::filesystem::file_status kind = std::filesystem::status(native, status);
  if (!std::filesystem::exists(kind)) return Failure(automation::err::kFileNotFound);
  if (std::filesystem::is_directory(kind)) return Failure(kPathFileAccessError);

  std::ifstream file(native, std::ios::binary);
  if (!file) return Failure(kPathFileAccessError);
  FileReadResult result;
  char chunk[64 * 1024];
  while (file) {
    file.read(chunk, sizeof chunk);
    result.bytes.append(chunk, static_cast<size_t>(file.gcount()));
    if (result.bytes.size() > kMaxReadBytes) return Failure(kOutOfMemory);
  }
  if (file.bad()) return Failure(kDeviceIoError);
  return result;
}

bool StdFileService::Exists(StringView path) const {
  std::error_code status;
  const std::filesystem::file_status kind = std::filesystem::status(ToNativePath(path), status);
  return std::filesystem::exists(kind) && !std::filesystem::is_directory(kind);
}

}  // namespace vd::platform
