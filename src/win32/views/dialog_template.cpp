#include "views/dialog_template.h"

namespace vd::win32::views {

DialogTemplate::DialogTemplate(DWORD style, DWORD exStyle, vd::automation::StringView caption) {
  style |= DS_SETFONT;
  Add(LOWORD(style));
  Add(HIWORD(style));
  Add(LOWORD(exStyle));
  Add(HIWORD(exStyle));
  Add(0);                              // no items
  for (int i = 0; i < 4; ++i) Add(0);  // x, y, cx, cy: placed and sized afterwards
  Add(0);                              // no menu
  Add(0);                              // the dialog class
  Add(caption);
  Add(8);  // point size of the dialog font
  Add(u"MS Shell Dlg");
}

void DialogTemplate::Add(vd::automation::StringView text) {
  for (const char16_t c : text) Add(static_cast<WORD>(c));
  Add(0);
}

}  // namespace vd::win32::views
