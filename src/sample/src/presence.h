#pragma once
// Whether a model object is still part of its display. A variable's presence
// hangs below its data source's, so deleting the data source also retires its
// variables and parameter lists. Presences point only upwards: no cycles.
#include <memory>
#include <utility>

#include "vd/automation/error.h"

namespace vd::sample::detail {

class Presence {
 public:
  explicit Presence(std::shared_ptr<Presence> parent = nullptr) : parent_(std::move(parent)) {}

  [[nodiscard]] bool Gone() const { return removed_ || (parent_ && parent_->Gone()); }
  void MarkRemoved() { removed_ = true; }

  // Error 5 with the description when the object is gone.
  // The description is made into a String only when it is raised: every read
  // of the display checks presence.
  void Check(const char16_t* description) const {
    if (Gone()) automation::Raise(automation::err::kInvalidProcedureCall, automation::String(description));
  }

 private:
  bool removed_ = false;
  std::shared_ptr<Presence> parent_;
};

}  // namespace vd::sample::detail
