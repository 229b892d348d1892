#include "server/unavailable_ui_core.h"

#include <mutex>

#include <windows.h>

#include "vd/automation/error.h"

namespace vd::win32 {
namespace {

// The help-file path is one per application, shared by every VarDeskUI object.
struct ApplicationHelpFile {
  std::mutex mutex;
  automation::String path;
};

ApplicationHelpFile& TheHelpFile() {
  static ApplicationHelpFile helpFile;
  return helpFile;
}

[[noreturn]] void RaiseUnavailable() {
  automation::Raise(static_cast<int32_t>(E_NOTIMPL), UnavailableUiCore::kDescription);
}

}  // namespace

const char16_t* const UnavailableUiCore::kDescription =
    u"The data browser dialog is not available in this build of VarDeskGUI";

bool UnavailableUiCore::IsModified() { RaiseUnavailable(); }

void UnavailableUiCore::EditDataSources(const toolkit::DisplayRef&) { RaiseUnavailable(); }

toolkit::DsvRef UnavailableUiCore::SelectDataVar(const toolkit::DisplayRef&, int32_t, int32_t, int32_t, int32_t) {
  RaiseUnavailable();
}

automation::String UnavailableUiCore::HelpFile() {
  ApplicationHelpFile& helpFile = TheHelpFile();
  std::lock_guard lock(helpFile.mutex);
  return helpFile.path;
}

void UnavailableUiCore::SetHelpFile(const automation::String& path) {
  ApplicationHelpFile& helpFile = TheHelpFile();
  std::lock_guard lock(helpFile.mutex);
  helpFile.path = path;
}

void UnavailableUiCore::SetCommunication(const toolkit::CommunicationRef& communication) {
  communication_ = communication;
}

}  // namespace vd::win32
