#include "component/windows_platform.h"

#include "vd/automation/number_parser_win32.h"
#include "vd/forms/form.h"
#include "win32/services/open_file_dialog.h"

namespace vd::win32 {

WindowsPlatform::WindowsPlatform() {
  // The file dialog the system describes is the ANSI one.
  ui_.SetOpenFileHandler(&services::ShowOpenFileNameDialog);
  modalHost_.SetDialogKeys(u"frmFindDialog", {u"OKButton", u"CancelButton"});
  forms::Form::SetDefaultModalHost(&modalHost_);
  automation::InstallWindowsNumberSyntax();
}

WindowsPlatform::~WindowsPlatform() {
  if (forms::Form::DefaultModalHost() == &modalHost_) forms::Form::SetDefaultModalHost(nullptr);
}

WindowsPlatform& TheWindowsPlatform() {
  static WindowsPlatform instance;
  return instance;
}

}  // namespace vd::win32
