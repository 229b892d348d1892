#pragma once
// A status bar: one simple text, or panels numbered from 1 (one to begin with).
#include <cstdint>
#include <vector>

#include "vd/forms/constants.h"
#include "vd/forms/control.h"

namespace vd::forms {

class StatusBar : public Control {
 public:
  StatusBar(Container& parent, String name, int16_t style = sbrNormal);
  [[nodiscard]] ControlKind Kind() const override { return ControlKind::kStatusBar; }

  [[nodiscard]] int16_t Style() const { return style_; }
  void SetStyle(int16_t style);
  [[nodiscard]] const String& SimpleText() const { return simpleText_; }
  void SetSimpleText(String text);

  [[nodiscard]] int32_t PanelCount() const { return static_cast<int32_t>(panels_.size()); }
  // Appends a panel; answers its 1-based index.
  int32_t AddPanel(String text = {});
  // Error 35600 outside 1..PanelCount.
  [[nodiscard]] const String& PanelText(int32_t index) const;
  void SetPanelText(int32_t index, String text);

 private:
  int16_t style_;
  String simpleText_;
  std::vector<String> panels_;
};

}  // namespace vd::forms
