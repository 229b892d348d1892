#include "bitmap_file.h"

#include <gtest/gtest.h>

namespace vd::robot {
namespace {

uint32_t Read32(const std::vector<uint8_t>& bytes, size_t at) {
  return static_cast<uint32_t>(bytes[at]) | static_cast<uint32_t>(bytes[at + 1]) << 8 |
         static_cast<uint32_t>(bytes[at + 2]) << 16 | static_cast<uint32_t>(bytes[at + 3]) << 24;
}
uint16_t Read16(const std::vector<uint8_t>& bytes, size_t at) {
  return static_cast<uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

// Every pixel different: red = x, green = y, blue = 0x80.
std::vector<uint32_t> Gradient(int width, int height) {
  std::vector<uint32_t> pixels;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      pixels.push_back(static_cast<uint32_t>(x) << 16 | static_cast<uint32_t>(y) << 8 | 0x80u);
  return pixels;
}

class BitmapWidth : public ::testing::TestWithParam<int> {};

TEST_P(BitmapWidth, HeadersDescribeThePixels) {
  const int width = GetParam();
  const int height = 3;
  const auto file = EncodeBitmapFile(width, height, Gradient(width, height));
  ASSERT_GE(file.size(), 54u);
  EXPECT_EQ(file[0], 'B');
  EXPECT_EQ(file[1], 'M');
  EXPECT_EQ(Read32(file, 2), file.size());
  EXPECT_EQ(Read32(file, 10), 54u);  // pixels follow both headers
  EXPECT_EQ(Read32(file, 14), 40u);
  EXPECT_EQ(static_cast<int>(Read32(file, 18)), width);
  EXPECT_EQ(static_cast<int>(Read32(file, 22)), height);
  EXPECT_EQ(Read16(file, 26), 1);
  EXPECT_EQ(Read16(file, 28), 24);
  EXPECT_EQ(Read32(file, 30), 0u);
  EXPECT_EQ(Read32(file, 34), file.size() - 54);
}

TEST_P(BitmapWidth, RowsArePaddedToFourBytesAndStoredBottomUp) {
  const int width = GetParam();
  const int height = 3;
  const auto file = EncodeBitmapFile(width, height, Gradient(width, height));
  const size_t row = (static_cast<size_t>(width) * 3 + 3) / 4 * 4;
  ASSERT_EQ(file.size(), 54 + row * height);
  for (int y = 0; y < height; ++y) {
    const size_t start = 54 + row * static_cast<size_t>(height - 1 - y);  // the top row is stored last
    for (int x = 0; x < width; ++x) {
      const size_t at = start + static_cast<size_t>(x) * 3;
      EXPECT_EQ(file[at], 0x80) << "blue of " << x << "," << y;
      EXPECT_EQ(file[at + 1], y) << "green of " << x << "," << y;
      EXPECT_EQ(file[at + 2], x) << "red of " << x << "," << y;
    }
    for (size_t pad = static_cast<size_t>(width) * 3; pad < row; ++pad) EXPECT_EQ(file[start + pad], 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Widths, BitmapWidth, ::testing::Values(1, 2, 3, 4, 5));

TEST(BitmapFile, RefusesPixelsThatDoNotFitTheSize) {
  EXPECT_TRUE(EncodeBitmapFile(2, 2, std::vector<uint32_t>(3)).empty());
  EXPECT_TRUE(EncodeBitmapFile(0, 2, {}).empty());
  EXPECT_TRUE(EncodeBitmapFile(2, -1, {}).empty());
}

}  // namespace
}  // namespace vd::robot
