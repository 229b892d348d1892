#pragma once
// The core of the component: the system's own VarDeskUI (which owns the data
// browser form) behind the UiCore the COM class drives. The form's events come
// back through the UiCore's callbacks with the object by reference, so that
// the COM object can hand them to its sinks and take a replacement back.
#include "host/var_desk_ui.h"
#include "server/ui_core.h"

namespace vd::platform {
struct Services;
}

namespace vd::win32 {

class SystemUiCore final : public UiCore {
 public:
  // services outlives the core.
  explicit SystemUiCore(platform::Services& services);

  bool IsModified() override;
  void EditDataSources(const toolkit::DisplayRef& display) override;
  toolkit::DsvRef SelectDataVar(const toolkit::DisplayRef& display, int32_t context, int32_t dsvType, int32_t rows,
                                int32_t cols) override;
  automation::String HelpFile() override;
  void SetHelpFile(const automation::String& path) override;
  void SetCommunication(const toolkit::CommunicationRef& communication) override;

  [[nodiscard]] host::VarDeskUI& System() { return system_; }

 private:
  host::VarDeskUI system_;
};

}  // namespace vd::win32
