#pragma once
// Key names of robot scripts ("F3", "TAB", "A", "ENTER", ...) and the
// virtual-key codes Windows gives those keys.
#include <cstdint>
#include <optional>
#include <string_view>

namespace vd::robot {

// The virtual-key code of a key name, ignoring case; none for an unknown name.
std::optional<uint16_t> VirtualKeyOf(std::string_view name);

}  // namespace vd::robot
