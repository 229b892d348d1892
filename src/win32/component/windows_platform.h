#pragma once
// What the system runs on inside the component's DLL: the Windows
// implementations of the platform services, one set per apartment thread
// (each single-threaded apartment that creates the component gets its own
// modal host, so that each shows its own dialogs), kept until the DLL
// unloads. Building one makes its Win32 modal host the default of the forms
// on that thread (every modal Show becomes a real dialog with its message
// loop) and hands Automation's number parsing with the user's locale to the
// conversions (the same for every thread).
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

// The platform of the calling thread's apartment, built at its first call there.
WindowsPlatform& ApartmentPlatform();

}  // namespace vd::win32
