#pragma once
// Test-only core for VarDeskUI objects that the harness creates: instead of a
// dialog it raises the events at once, as the dialog does when the user asks
// to edit a custom object, and keeps what came back.
#include <memory>

#include "server/ui_core.h"

namespace vd::testbridge {

// What the last runs saw; shared between the harness and its cores.
struct RelayRecord {
  automation::ObjectRef lastEventObject;
  int32_t runs = 0;
};

class RelayCore final : public win32::UiCore {
 public:
  explicit RelayCore(std::shared_ptr<RelayRecord> record) : record_(std::move(record)) {}

  // Raises EditCustomDs with the first data source; Nothing raises 91.
  void EditDataSources(const toolkit::DisplayRef& display) override;
  // Raises EditCustomDsv with the first variable of the first data source and
  // returns the object after the event; a context outside 0..4 raises 5.
  toolkit::DsvRef SelectDataVar(const toolkit::DisplayRef& display, int32_t context, int32_t dsvType, int32_t rows,
                                int32_t cols) override;
  bool IsModified() override { return record_->runs > 0; }
  automation::String HelpFile() override { return helpFile_; }
  void SetHelpFile(const automation::String& path) override { helpFile_ = path; }
  void SetCommunication(const toolkit::CommunicationRef& communication) override { communication_ = communication; }

 private:
  std::shared_ptr<RelayRecord> record_;
  automation::String helpFile_;
  toolkit::CommunicationRef communication_;
};

}  // namespace vd::testbridge
