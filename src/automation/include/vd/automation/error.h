#pragma once
// One error type for the whole system: an Automation error number and its
// description. A "trap" is a try/catch of this type at the routine that traps.
#include <cstdint>
#include <exception>
#include <string>

#include "vd/automation/string.h"

namespace vd::automation {

namespace err {
inline constexpr int32_t kInvalidProcedureCall = 5;
inline constexpr int32_t kOverflow = 6;
inline constexpr int32_t kSubscriptOutOfRange = 9;
inline constexpr int32_t kTypeMismatch = 13;
inline constexpr int32_t kFileNotFound = 53;
inline constexpr int32_t kObjectNotSet = 91;
inline constexpr int32_t kInvalidUseOfNull = 94;
inline constexpr int32_t kObjectRequired = 424;
inline constexpr int32_t kMethodNotSupported = 438;
inline constexpr int32_t kKeyAlreadyInCollection = 457;
inline constexpr int32_t kTreeIndexOutOfBounds = 35600;
inline constexpr int32_t kTreeElementNotFound = 35601;
inline constexpr int32_t kTreeKeyNotUnique = 35602;
}  // namespace err

// The standard description of an Automation error number ("Overflow", ...);
// "Application-defined or object-defined error" for numbers it does not know.
String StandardDescription(int32_t number);

class AutomationError : public std::exception {
 public:
  explicit AutomationError(int32_t number);
  AutomationError(int32_t number, String description);

  [[nodiscard]] int32_t Number() const noexcept { return number_; }
  [[nodiscard]] const String& Description() const noexcept { return description_; }
  [[nodiscard]] const char* what() const noexcept override { return what_.c_str(); }

 private:
  int32_t number_;
  String description_;
  std::string what_;
};

[[noreturn]] void Raise(int32_t number);
[[noreturn]] void Raise(int32_t number, String description);

}  // namespace vd::automation
