#include "component/windows_platform.h"

#include "vd/automation/numeric.h"
#include "vd/forms/form.h"
#include "win32/services/locale_numbers.h"
#include "win32/services/open_file_dialog.h"

namespace vd::win32 {

WindowsPlatform::WindowsPlatform() {
  // The file dialog the system describes is the ANSI one.
  ui_.SetOpenFileHandler(&services::ShowOpenFileNameDialog);
  forms::Form::SetDefaultModalHost(&modalHost_);
  automation::SetNumberParser(&services::ParseLocaleNumber);
  automation::SetDecimalSeparatorSource(&services::LocaleDecimalSeparator);
}

WindowsPlatform::~WindowsPlatform() {
  if (forms::Form::DefaultModalHost() == &modalHost_) forms::Form::SetDefaultModalHost(nullptr);
}

WindowsPlatform& TheWindowsPlatform() {
  static WindowsPlatform instance;
  return instance;
}

}  // namespace vd::win32
