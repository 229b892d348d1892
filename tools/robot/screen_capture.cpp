#include "screen_capture.h"

#include <cstdint>
#include <cstring>
#include <vector>

#include "bitmap_file.h"
#include "views/wide_text.h"
#include "views/win_handles.h"

namespace vd::win32::robot {
namespace {

using vd::win32::views::GdiObject;
using vd::win32::views::KernelHandle;
using vd::win32::views::ScreenDc;
using vd::win32::views::SelectedObject;

class MemoryDc {
 public:
  explicit MemoryDc(HDC like) : dc_(CreateCompatibleDC(like)) {}
  MemoryDc(const MemoryDc&) = delete;
  MemoryDc& operator=(const MemoryDc&) = delete;
  ~MemoryDc() {
    if (dc_ != nullptr) DeleteDC(dc_);
  }
  [[nodiscard]] HDC Get() const { return dc_; }

 private:
  HDC dc_;
};

bool Capture(const RECT& area, std::vector<uint32_t>& pixels) {
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  if (width <= 0 || height <= 0) return false;
  const ScreenDc screen;
  const MemoryDc memory(screen.Get());
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // top row first
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  const GdiObject bitmap(CreateDIBSection(screen.Get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap || bits == nullptr || memory.Get() == nullptr) return false;
  {
    const SelectedObject selected(memory.Get(), bitmap.Get());
    if (!BitBlt(memory.Get(), 0, 0, width, height, screen.Get(), area.left, area.top, SRCCOPY)) return false;
  }
  GdiFlush();
  pixels.resize(static_cast<size_t>(width) * static_cast<size_t>(height));
  std::memcpy(pixels.data(), bits, pixels.size() * sizeof(uint32_t));
  for (uint32_t& pixel : pixels) pixel &= 0x00FFFFFFu;  // BI_RGB 32: blue, green, red, unused
  return true;
}

}  // namespace

std::string CaptureToBitmapFile(const RECT& area, const vd::automation::String& path) {
  std::vector<uint32_t> pixels;
  if (!Capture(area, pixels)) return "the screen could not be read";
  const std::vector<uint8_t> file = vd::robot::EncodeBitmapFile(area.right - area.left, area.bottom - area.top, pixels);
  const HANDLE created = CreateFileW(vd::win32::views::Wide(path), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                     FILE_ATTRIBUTE_NORMAL, nullptr);
  if (created == INVALID_HANDLE_VALUE) return "the file cannot be created";
  const KernelHandle out(created);
  DWORD written = 0;
  if (!WriteFile(out.Get(), file.data(), static_cast<DWORD>(file.size()), &written, nullptr) || written != file.size())
    return "the file cannot be written";
  return "";
}

}  // namespace vd::win32::robot
