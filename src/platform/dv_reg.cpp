#include "platform/dv_reg.h"

#include <algorithm>
#include <string>

#include "platform/ansi_text.h"
#include "vd/automation/numeric.h"

namespace vd::platform::DvReg {
namespace {

constexpr uint32_t kValueBufferSize = 1024;

// The registry's place for the toolkit home.
constexpr char16_t kDvKeyPath[] = u"Software\\DataViews\\DVtools\\2.6";
constexpr char16_t kDvHomeValue[] = u"DVhome";
constexpr char16_t kFallbackHome[] = u"C:\\";

Registry* gRegistry = nullptr;
String gCachedHome;

// Closes the key when the lookup ends, whichever way; a failed open leaves the
// handle 0 and that is closed too.
class KeyCloser {
 public:
  explicit KeyCloser(Registry& registry) : registry_(registry) {}
  KeyCloser(const KeyCloser&) = delete;
  KeyCloser& operator=(const KeyCloser&) = delete;
  ~KeyCloser() { registry_.CloseKey(key); }

  RegHandle key = 0;

 private:
  Registry& registry_;
};

// The value's bytes up to the returned count, without the last one when it is
// a NUL. A count of 0 has no last byte and keeps nothing.
std::string_view TrimToCount(std::string_view buffer, uint32_t byteCount) {
  const size_t count = std::min<size_t>(byteCount, buffer.size());
  if (count == 0) return {};
  return buffer.substr(0, buffer[count - 1] == '\0' ? count - 1 : count);
}

// Upper-case hexadecimal without leading zeros, as Hex renders a byte.
void AppendHex(String& text, unsigned char byte) {
  constexpr char16_t kDigits[] = u"0123456789ABCDEF";
  if (byte >= 0x10) text.push_back(kDigits[byte >> 4]);
  text.push_back(kDigits[byte & 0x0F]);
}

// The DWORD branch: each byte's hex, from the last byte to the first, appended
// to what value holds, then read back as one "&h" number. The bytes are the
// characters' ANSI codes, so this does not depend on the code page.
void ReadDwordText(std::string_view trimmed, String& value) {
  for (auto it = trimmed.rbegin(); it != trimmed.rend(); ++it) AppendHex(value, static_cast<unsigned char>(*it));
  value = automation::FormatGeneral(automation::Val(u"&h" + value));
}

}  // namespace

bool RegQueryString(Registry& registry, RegHandle hive, StringView keyPath, StringView valueName, String& value) {
  KeyCloser closer(registry);
  const RegOpenResult opened = registry.OpenKey(hive, ToAnsiText(keyPath), 0, reg::kKeyRead);
  closer.key = opened.key;
  if (opened.status != reg::kErrorSuccess) {
    value.clear();
    return false;
  }

  std::string buffer(kValueBufferSize, '\0');
  const RegQueryResult queried = registry.QueryValue(closer.key, ToAnsiText(valueName), buffer);
  if (queried.status != reg::kErrorSuccess) {
    value.clear();
    return false;
  }

  const std::string_view trimmed = TrimToCount(buffer, queried.byteCount);
  if (queried.type == reg::kRegSz) {
    value = FromAnsiText(trimmed);
  } else if (queried.type == reg::kRegDword) {
    ReadDwordText(trimmed, value);
  }
  return true;
}

String GetDvHome() {
  if (!gCachedHome.empty()) return gCachedHome;
  const bool found =
      gRegistry != nullptr && RegQueryString(*gRegistry, reg::kHkeyLocalMachine, kDvKeyPath, kDvHomeValue, gCachedHome);
  if (!found) gCachedHome = kFallbackHome;
  return gCachedHome;
}

void UseRegistry(Registry* registry) { gRegistry = registry; }

Registry* InstalledRegistry() { return gRegistry; }

void ResetDvHomeForTesting() { gCachedHome.clear(); }

}  // namespace vd::platform::DvReg
