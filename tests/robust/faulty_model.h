#pragma once
// Fault-injecting decorators over a display model and a communication object:
// every call through them is counted by one FaultPlan, and the call the plan
// names fails with an Automation error, as a host's object or the SCADA
// system's can fail any call. Every object a call hands out is decorated too,
// so that the calls through it count as well.
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "vd/toolkit/communication.h"
#include "vd/toolkit/toolkit.h"

namespace vd::robust_test {

// "Automation error": how a failing call of an Automation object reaches its caller.
inline constexpr int32_t kInjectedError = 440;

class FaultPlan {
 public:
  // The call numbered k (1-based, counted from now) fails; 0: none fails.
  void FailAt(int64_t k);
  // Counts one call of site; raises the injected error at the planned call.
  void Call(const char* site);

  [[nodiscard]] int64_t Calls() const { return calls_; }
  // The site whose call failed ("" while none has).
  [[nodiscard]] const std::string& FailedSite() const { return failedSite_; }
  // How often each site was called since the last FailAt.
  [[nodiscard]] const std::map<std::string, int64_t>& Sites() const { return sites_; }

 private:
  int64_t failAt_ = 0;
  int64_t calls_ = 0;
  std::string failedSite_;
  std::map<std::string, int64_t> sites_;
};

toolkit::DisplayRef FaultyDisplay(toolkit::DisplayRef inner, FaultPlan& plan);
toolkit::CommunicationRef FaultyCommunication(toolkit::CommunicationRef inner, FaultPlan& plan);

}  // namespace vd::robust_test
