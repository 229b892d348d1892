#pragma once
// The registry as the ANSI Win32 calls see it: key and value names are ANSI
// text, values come back as raw bytes in a caller's buffer, every answer is a
// Win32 status code. Windows implements it with RegOpenKeyExA,
// RegQueryValueExA and RegCloseKey; tests with an in-memory fake.
#include <cstdint>
#include <span>
#include <string_view>

namespace vd::platform {

// A key handle as an integer. Predefined hives are the sign-extended 32-bit
// values Windows defines them as (HKEY_LOCAL_MACHINE is the Long &H80000002).
using RegHandle = std::intptr_t;

namespace reg {
inline constexpr RegHandle kHkeyClassesRoot = static_cast<int32_t>(0x80000000u);
inline constexpr RegHandle kHkeyCurrentUser = static_cast<int32_t>(0x80000001u);
inline constexpr RegHandle kHkeyLocalMachine = static_cast<int32_t>(0x80000002u);

inline constexpr uint32_t kKeyRead = 0x20019;

inline constexpr int32_t kErrorSuccess = 0;
inline constexpr int32_t kErrorFileNotFound = 2;
inline constexpr int32_t kErrorInvalidHandle = 6;
inline constexpr int32_t kErrorMoreData = 234;

inline constexpr uint32_t kRegSz = 1;
inline constexpr uint32_t kRegExpandSz = 2;
inline constexpr uint32_t kRegBinary = 3;
inline constexpr uint32_t kRegDword = 4;
}  // namespace reg

struct RegOpenResult {
  int32_t status = reg::kErrorSuccess;
  RegHandle key = 0;  // left 0 when the open fails
};

struct RegQueryResult {
  int32_t status = reg::kErrorSuccess;
  uint32_t type = 0;
  // Bytes written on success; the size the value needs on kErrorMoreData.
  uint32_t byteCount = 0;
};

class Registry {
 public:
  Registry() = default;
  Registry(const Registry&) = delete;
  Registry& operator=(const Registry&) = delete;
  virtual ~Registry() = default;

  // Opens subKey under an open key or a predefined hive.
  virtual RegOpenResult OpenKey(RegHandle parent, std::string_view subKey, uint32_t options, uint32_t access) = 0;
  // Reads a value into buffer; the buffer's size is the size offered. A value
  // larger than the buffer answers kErrorMoreData and writes nothing.
  virtual RegQueryResult QueryValue(RegHandle key, std::string_view valueName, std::span<char> buffer) = 0;
  virtual int32_t CloseKey(RegHandle key) = 0;
};

}  // namespace vd::platform
