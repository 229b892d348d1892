#pragma once
// A picture as a Windows bitmap file (.bmp): 24 bits per pixel, rows from the
// bottom up, each row padded to a multiple of 4 bytes, no compression.
#include <cstdint>
#include <vector>

namespace vd::robot {

// pixels: width * height values 0x00RRGGBB, the top row first.
std::vector<uint8_t> EncodeBitmapFile(int width, int height, const std::vector<uint32_t>& pixels);

}  // namespace vd::robot
