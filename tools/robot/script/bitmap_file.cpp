#include "bitmap_file.h"

#include <cstddef>

namespace vd::robot {
namespace {

constexpr uint32_t kFileHeaderSize = 14;
constexpr uint32_t kInfoHeaderSize = 40;
constexpr uint32_t kPixelsPerMetre = 3780;  // 96 dots per inch

void Put16(std::vector<uint8_t>& out, uint32_t value) {
  out.push_back(static_cast<uint8_t>(value & 0xFF));
  out.push_back(static_cast<uint8_t>((value >> 8) & 0xFF));
}
void Put32(std::vector<uint8_t>& out, uint32_t value) {
  Put16(out, value & 0xFFFF);
  Put16(out, value >> 16);
}

}  // namespace

std::vector<uint8_t> EncodeBitmapFile(int width, int height, const std::vector<uint32_t>& pixels) {
  if (width <= 0 || height <= 0 || pixels.size() != static_cast<size_t>(width) * static_cast<size_t>(height)) return {};
  const auto w = static_cast<uint32_t>(width);
  const auto h = static_cast<uint32_t>(height);
  const uint32_t rowSize = (w * 3 + 3) / 4 * 4;
  const uint32_t imageSize = rowSize * h;
  const uint32_t offset = kFileHeaderSize + kInfoHeaderSize;
  std::vector<uint8_t> out;
  out.reserve(offset + imageSize);
  out.push_back('B');
  out.push_back('M');
  Put32(out, offset + imageSize);
  Put32(out, 0);  // reserved
  Put32(out, offset);
  Put32(out, kInfoHeaderSize);
  Put32(out, w);
  Put32(out, h);  // positive: bottom-up rows
  Put16(out, 1);  // planes
  Put16(out, 24);
  Put32(out, 0);  // BI_RGB
  Put32(out, imageSize);
  Put32(out, kPixelsPerMetre);
  Put32(out, kPixelsPerMetre);
  Put32(out, 0);
  Put32(out, 0);
  for (uint32_t row = h; row-- > 0;) {
    const size_t start = out.size();
    for (uint32_t x = 0; x < w; ++x) {
      const uint32_t rgb = pixels[static_cast<size_t>(row) * w + x];
      out.push_back(static_cast<uint8_t>(rgb & 0xFF));
      out.push_back(static_cast<uint8_t>((rgb >> 8) & 0xFF));
      out.push_back(static_cast<uint8_t>((rgb >> 16) & 0xFF));
    }
    while (out.size() - start < rowSize) out.push_back(0);
  }
  return out;
}

}  // namespace vd::robot
