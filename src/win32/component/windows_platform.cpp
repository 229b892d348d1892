#include "component/windows_platform.h"

#include <memory>
#include <mutex>
#include <vector>

#include "vd/automation/numeric.h"
#include "vd/forms/form.h"
#include "win32/services/locale_numbers.h"
#include "win32/services/open_file_dialog.h"

namespace vd::win32 {
namespace {

// Every thread's platform, owned until the DLL unloads: a thread that ends
// leaves its idle platform behind rather than destroying it from a thread
// exit callback after the DLL may have gone.
struct Platforms {
  std::mutex mutex;
  std::vector<std::unique_ptr<WindowsPlatform>> all;
};

Platforms& ThePlatforms() {
  static Platforms platforms;
  return platforms;
}

}  // namespace

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

WindowsPlatform& ApartmentPlatform() {
  thread_local WindowsPlatform* mine = nullptr;
  if (mine == nullptr) {
    Platforms& platforms = ThePlatforms();
    const std::lock_guard lock(platforms.mutex);
    platforms.all.push_back(std::make_unique<WindowsPlatform>());
    mine = platforms.all.back().get();
  }
  return *mine;
}

}  // namespace vd::win32
