#include "views/cursors.h"

namespace vd::win32::views {

HCURSOR CursorFor(int16_t pointer) {
  LPCWSTR id = nullptr;
  switch (pointer) {
    case 1:
      id = IDC_ARROW;
      break;
    case 2:
      id = IDC_CROSS;
      break;
    case 3:
      id = IDC_IBEAM;
      break;
    case 4:
      id = IDC_ICON;
      break;
    case 5:
      id = IDC_SIZEALL;
      break;
    case 6:
      id = IDC_SIZENESW;
      break;
    case 7:
      id = IDC_SIZENS;
      break;
    case 8:
      id = IDC_SIZENWSE;
      break;
    case 9:
      id = IDC_SIZEWE;
      break;
    case 10:
      id = IDC_UPARROW;
      break;
    case 11:
      id = IDC_WAIT;
      break;
    case 12:
      id = IDC_NO;
      break;
    case 13:
      id = IDC_APPSTARTING;
      break;
    case 14:
      id = IDC_HELP;
      break;
    case 15:
      id = IDC_SIZEALL;
      break;
    default:
      return nullptr;
  }
  return LoadCursorW(nullptr, id);
}

}  // namespace vd::win32::views
