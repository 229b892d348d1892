#include "views/wide_text.h"

#include <vector>

namespace vd::win32::views {

String WindowText(HWND window) {
  const int length = GetWindowTextLengthW(window);
  if (length <= 0) return String();
  std::vector<wchar_t> buffer(static_cast<size_t>(length) + 1);
  const int copied = GetWindowTextW(window, buffer.data(), length + 1);
  return FromWide(buffer.data(), static_cast<size_t>(copied > 0 ? copied : 0));
}

}  // namespace vd::win32::views
