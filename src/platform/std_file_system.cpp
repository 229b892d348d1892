#include "platform/std_file_system.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/native_path.h"
#include "vd/automation/error.h"
#include "vd/automation/text.h"

namespace vd::platform {
namespace {

namespace fs = std::filesystem;

constexpr int32_t kPathFileAccessError = 75;
constexpr int32_t kPathNotFound = 76;

bool SameLetter(char16_t a, char16_t b) {
  return a == b || automation::EqualsIgnoreCase(StringView(&a, 1), StringView(&b, 1));
}

// The error of a file that cannot be created: its folder is missing, or it cannot be written.
int32_t CreateError(const fs::path& target) {
  std::error_code status;
  const fs::path folder = target.parent_path();
  if (!folder.empty() && !fs::is_directory(folder, status)) return kPathNotFound;
  return kPathFileAccessError;
}

}  // namespace

bool MatchesPattern(StringView name, StringView pattern) {
  // Greedy matching with one step back to the last "*".
  size_t n = 0;
  size_t p = 0;
  size_t starAt = StringView::npos;
  size_t starName = 0;
  while (n < name.size()) {
    if (p < pattern.size() && (pattern[p] == u'?' || (pattern[p] != u'*' && SameLetter(pattern[p], name[n])))) {
      ++n;
      ++p;
    } else if (p < pattern.size() && pattern[p] == u'*') {
      starAt = p++;
      starName = n;
    } else if (starAt != StringView::npos) {
      p = starAt + 1;
      n = ++starName;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == u'*') ++p;
  return p == pattern.size();
}

std::vector<String> StdFileSystem::Dir(StringView pattern) const {
  const size_t slash = pattern.find_last_of(u"\\/");
  const StringView folderText = slash == StringView::npos ? StringView() : pattern.substr(0, slash + 1);
  const StringView namePattern = slash == StringView::npos ? pattern : pattern.substr(slash + 1);
  const fs::path folder = folderText.empty() ? fs::path(".") : ToNativePath(folderText);

  std::vector<String> names;
  std::error_code status;
  fs::directory_iterator entry(folder, status);
  if (status) return names;
  for (; entry != fs::directory_iterator(); entry.increment(status)) {
    if (status) break;
    if (!entry->is_regular_file(status)) continue;
    String name = entry->path().filename().u16string();
    if (MatchesPattern(name, namePattern)) names.push_back(std::move(name));
  }
  // The listing order of a folder is the platform's; name order keeps runs alike.
  std::sort(names.begin(), names.end());
  return names;
}

bool StdFileSystem::FileExists(StringView path) const {
  std::error_code status;
  return fs::is_regular_file(ToNativePath(path), status);
}

int32_t StdFileSystem::CopyFile(StringView source, StringView target) {
  const fs::path from = ToNativePath(source);
  std::error_code status;
  if (!fs::is_regular_file(from, status)) return automation::err::kFileNotFound;
  const fs::path to = ToNativePath(target);
  if (!fs::copy_file(from, to, fs::copy_options::overwrite_existing, status)) return CreateError(to);
  return 0;
}

int32_t StdFileSystem::WriteNewFile(StringView path, std::string_view bytes) {
  const fs::path target = ToNativePath(path);
  std::ofstream file(target, std::ios::binary | std::ios::trunc);
  if (!file) return CreateError(target);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return file ? 0 : kPathFileAccessError;
}

}  // namespace vd::platform
