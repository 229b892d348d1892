#include "views/twips.h"

#include <cmath>

#include "views/win_handles.h"

namespace vd::win32::views {
namespace {
int ScreenDotsPerInch() {
  const ScreenDc screen;
  const int dpi = screen.Get() != nullptr ? GetDeviceCaps(screen.Get(), LOGPIXELSX) : 0;
  return dpi > 0 ? dpi : 96;
}
}  // namespace

Twips::Twips() : Twips(ScreenDotsPerInch()) {}

int Twips::ToPixels(float twips) const { return static_cast<int>(std::lround(twips / perPixel_)); }

float Twips::FromPixels(int pixels) const { return static_cast<float>(pixels * perPixel_); }

}  // namespace vd::win32::views
