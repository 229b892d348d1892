#pragma once
// The SCADA system's communication object as the component uses it. Every
// failure is an AutomationError, as the real object's late-bound calls raise.
#include <cstdint>
#include <memory>

#include "vd/automation/object.h"
#include "vd/automation/string.h"
#include "vd/automation/variant.h"

namespace vd::toolkit {

class Communication : public automation::Object {
 public:
  // Two arrays of equal bounds: application names, application numbers.
  virtual void GetApplications(automation::Variant& names, automation::Variant& numbers) = 0;
  // Runs a KORL request; result is the value of its "#return".
  virtual void ExecuteKorl(const automation::String& request, automation::Variant& result) = 0;
  // Tells the system that a script file was just edited (full path).
  virtual void ScriptFileChanged(const automation::String& path) = 0;
  // Runs a KORL request in the application with the given number.
  virtual void ExecuteKorlInApp(int16_t applicationNr, const automation::String& request,
                                automation::Variant& result) = 0;
  // Checks an OPC item id against the running system; value receives its current value.
  virtual void ValidateItem(const automation::String& itemId, automation::Variant& value) = 0;
};

using CommunicationRef = std::shared_ptr<Communication>;

}  // namespace vd::toolkit
