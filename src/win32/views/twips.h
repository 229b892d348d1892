#pragma once
// Forms are designed in twips (1440 to the inch); windows are placed in
// pixels: 15 twips to the pixel at 96 dots per inch.
#include <windows.h>

namespace vd::win32::views {

class Twips {
 public:
  // The screen's resolution.
  Twips();
  explicit Twips(int dotsPerInch) : perPixel_(1440.0 / dotsPerInch) {}

  [[nodiscard]] int ToPixels(float twips) const;
  [[nodiscard]] float FromPixels(int pixels) const;
  [[nodiscard]] double PerPixel() const { return perPixel_; }

 private:
  double perPixel_;
};

}  // namespace vd::win32::views
