// A desktop that answers every message box with OK and asks nothing else:
// the benchmarks time the system, never a dialog of the desktop.
#pragma once

#include <cstdint>
#include <optional>

#include "vd/automation/string.h"
#include "vd/forms/ui_services.h"

namespace vd::bench {

class SilentUi final : public vd::forms::UiServices {
 public:
  using String = vd::automation::String;
  using StringView = vd::automation::StringView;

  int32_t MsgBox(StringView, int32_t, const std::optional<String>&) override { return vd::forms::vbOK; }
  String InputBox(StringView, StringView, StringView) override { return {}; }
  String OpenFileDialog(const vd::forms::Form*, StringView, StringView, StringView, uint32_t) override { return {}; }
  bool StartProgramAndWait(StringView) override { return false; }
  void BringToFront(const vd::forms::Form&) override {}
  void SetScreenMousePointer(int16_t) override {}
  void RefreshNow(const vd::forms::Control&) override {}
};

}  // namespace vd::bench
