#pragma once
// What one VarDeskUI COM object drives: the component's entry (VarDeskUI
// implements it), which owns the data browser form, runs the modal dialog and
// raises the form's events. The COM object only converts arguments, results
// and errors; a host program may drive a core of its own.
#include <cstdint>
#include <functional>

#include "vd/automation/object.h"
#include "vd/automation/string.h"
#include "vd/toolkit/communication.h"
#include "vd/toolkit/toolkit.h"

namespace vd::host {

class UiCore {
 public:
  UiCore() = default;
  UiCore(const UiCore&) = delete;
  UiCore& operator=(const UiCore&) = delete;
  virtual ~UiCore() = default;  // unloads the form

  virtual bool IsModified() = 0;
  // Shows the dialog modally over the display's data sources; returns when it is hidden.
  virtual void EditDataSources(const toolkit::DisplayRef& display) = 0;
  // Shows the dialog modally for a selection; the selected variable, or nullptr.
  virtual toolkit::DsvRef SelectDataVar(const toolkit::DisplayRef& display, int32_t context, int32_t dsvType,
                                        int32_t rows, int32_t cols) = 0;
  virtual automation::String HelpFile() = 0;
  virtual void SetHelpFile(const automation::String& path) = 0;
  virtual void SetCommunication(const toolkit::CommunicationRef& communication) = 0;

  // Raised while the dialog is shown, synchronously; the handler may replace
  // the object it is given.
  std::function<void(automation::ObjectRef&)> onEditCustomDs;
  std::function<void(automation::ObjectRef&)> onEditCustomDsv;
};

}  // namespace vd::host
