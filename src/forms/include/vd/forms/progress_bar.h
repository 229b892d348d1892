#pragma once
// A progress bar with a value between Min and Max (0 and 100 to begin with).
#include "vd/forms/control.h"

namespace vd::forms {

class ProgressBar : public Control {
 public:
  ProgressBar(Container& parent, String name);
  [[nodiscard]] ControlKind Kind() const override { return ControlKind::kProgressBar; }

  [[nodiscard]] float Min() const { return min_; }
  [[nodiscard]] float Max() const { return max_; }
  // Error 380 when Min would not be below Max or the value would leave the range.
  void SetMin(float min);
  void SetMax(float max);
  [[nodiscard]] float Value() const { return value_; }
  void SetValue(float value);

 private:
  float min_ = 0;
  float max_ = 100;
  float value_ = 0;
};

}  // namespace vd::forms
