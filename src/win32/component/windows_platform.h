#pragma once
// What the system runs on inside the component's DLL: the Windows
// implementations of the platform services, built once per process and kept
// until the DLL unloads. Building it installs what the forms and the
// conversions take process-wide: the Win32 modal host as the forms' default
// (every modal Show becomes a real dialog with its message loop) and
// Automation's own number parsing with the user's locale.
#include "platform/services.h"
#include "platform/std_file_service.h"
#include "platform/std_file_system.h"
#include "views/win32_modal_host.h"
#include "views/win32_ui_services.h"
#include "win32/services/windows_processes.h"
#include "win32/services/windows_registry.h"

namespace vd::win32 {

class WindowsPlatform {
 public:
  WindowsPlatform();
  WindowsPlatform(const WindowsPlatform&) = delete;
  WindowsPlatform& operator=(const WindowsPlatform&) = delete;
  ~WindowsPlatform();

  [[nodiscard]] platform::Services& Services() { return services_; }
  [[nodiscard]] views::Win32ModalHost& ModalHost() { return modalHost_; }

 private:
  views::Win32ModalHost modalHost_;
  views::Win32UiServices ui_{modalHost_};
  services::WindowsRegistry registry_;
  platform::StdFileService files_;
  platform::StdFileSystem fileSystem_;
  // The editor's wait serves the dialog's modal loop.
  services::WindowsProcesses processes_{[this] { modalHost_.PumpPending(); }};
  // Every service the system asks for, by reference to the members above.
  platform::Services services_{
      .ui = ui_, .registry = registry_, .files = files_, .fileSystem = &fileSystem_, .processes = &processes_};
};

// The process's platform, built at the first call.
WindowsPlatform& TheWindowsPlatform();

}  // namespace vd::win32
