#include "key_names.h"

#include <array>
#include <cctype>
#include <string>

namespace vd::robot {
namespace {

struct NamedKey {
  std::string_view name;
  uint16_t code;
};

// Windows' virtual-key codes of the keys that have names rather than a character.
constexpr std::array kNamedKeys{
    NamedKey{"BACKSPACE", 0x08}, NamedKey{"BACK", 0x08},     NamedKey{"TAB", 0x09},   NamedKey{"ENTER", 0x0D},
    NamedKey{"RETURN", 0x0D},    NamedKey{"ESCAPE", 0x1B},   NamedKey{"ESC", 0x1B},   NamedKey{"SPACE", 0x20},
    NamedKey{"PAGEUP", 0x21},    NamedKey{"PAGEDOWN", 0x22}, NamedKey{"END", 0x23},   NamedKey{"HOME", 0x24},
    NamedKey{"LEFT", 0x25},      NamedKey{"UP", 0x26},       NamedKey{"RIGHT", 0x27}, NamedKey{"DOWN", 0x28},
    NamedKey{"INSERT", 0x2D},    NamedKey{"DELETE", 0x2E},   NamedKey{"DEL", 0x2E},
};
constexpr uint16_t kF1 = 0x70;
constexpr int kFunctionKeys = 24;

std::string Upper(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return upper;
}

}  // namespace

std::optional<uint16_t> VirtualKeyOf(std::string_view name) {
  const std::string upper = Upper(name);
  // A letter or a digit is its own code, as the character's upper case.
  if (upper.size() == 1 && std::isalnum(static_cast<unsigned char>(upper[0])) != 0)
    return static_cast<uint16_t>(upper[0]);
  if (upper.size() >= 2 && upper[0] == 'F' && upper.find_first_not_of("0123456789", 1) == std::string::npos &&
      upper.size() <= 3) {
    const int number = std::stoi(upper.substr(1));
    if (number >= 1 && number <= kFunctionKeys) return static_cast<uint16_t>(kF1 + number - 1);
    return std::nullopt;
  }
  for (const NamedKey& key : kNamedKeys)
    if (key.name == upper) return key.code;
  return std::nullopt;
}

}  // namespace vd::robot
