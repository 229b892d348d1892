#pragma once
// The core of a build without the data browser dialog: the help-file path and
// the communication object are kept, every dialog run fails with E_NOTIMPL
// and a description that says why.
#include "server/ui_core.h"

namespace vd::win32 {

class UnavailableUiCore final : public UiCore {
 public:
  bool IsModified() override;
  void EditDataSources(const toolkit::DisplayRef& display) override;
  toolkit::DsvRef SelectDataVar(const toolkit::DisplayRef& display, int32_t context, int32_t dsvType, int32_t rows,
                                int32_t cols) override;
  automation::String HelpFile() override;
  void SetHelpFile(const automation::String& path) override;
  void SetCommunication(const toolkit::CommunicationRef& communication) override;

  static const char16_t* const kDescription;

 private:
  toolkit::CommunicationRef communication_;
};

}  // namespace vd::win32
