#include "component/system_ui_core.h"

#include "platform/services.h"

namespace vd::win32 {

SystemUiCore::SystemUiCore(platform::Services& services) : system_(services) {
  // Read at the moment of the event: the COM object sets them after construction.
  system_.onEditCustomDs = [this](automation::ObjectRef& obj) {
    if (onEditCustomDs) onEditCustomDs(obj);
  };
  system_.onEditCustomDsv = [this](automation::ObjectRef& obj) {
    if (onEditCustomDsv) onEditCustomDsv(obj);
  };
}

bool SystemUiCore::IsModified() { return system_.IsModified(); }

void SystemUiCore::EditDataSources(const toolkit::DisplayRef& display) { system_.EditDataSources(display); }

toolkit::DsvRef SystemUiCore::SelectDataVar(const toolkit::DisplayRef& display, int32_t context, int32_t dsvType,
                                            int32_t rows, int32_t cols) {
  return system_.SelectDataVar(display, context, dsvType, rows, cols);
}

automation::String SystemUiCore::HelpFile() { return host::VarDeskUI::HelpFile(); }

void SystemUiCore::SetHelpFile(const automation::String& path) { host::VarDeskUI::SetHelpFile(path); }

void SystemUiCore::SetCommunication(const toolkit::CommunicationRef& communication) {
  system_.SetCommunication(communication);
}

}  // namespace vd::win32
