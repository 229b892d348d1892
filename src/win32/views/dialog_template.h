#pragma once
// An in-memory dialog template without items: the views create their controls
// themselves, the template gives the dialog manager's window, its frame and
// the dialog font ("MS Shell Dlg", 8 points).
#include <windows.h>

#include <vector>

#include "vd/automation/string.h"

namespace vd::win32::views {

class DialogTemplate {
 public:
  DialogTemplate(DWORD style, DWORD exStyle, vd::automation::StringView caption);
  [[nodiscard]] const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

 private:
  void Add(WORD word) { words_.push_back(word); }
  void Add(vd::automation::StringView text);
  std::vector<WORD> words_;  // a template is a run of WORDs, DWORD-aligned at its start
};

}  // namespace vd::win32::views
