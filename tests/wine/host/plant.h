#pragma once
// The display the host tests hand around: the sample's in-memory model with
// Tanks (file: Level, Pressure), Scada (custom, two parameters: Flow read
// only, Speed) and Scratch (memory, no variables).
#include <memory>

#include "vd/automation/error.h"
#include "vd/sample/memory_toolkit.h"

namespace vd::testhost {

inline std::shared_ptr<sample::MemoryDisplay> MakePlant() {
  auto display = sample::MemoryDisplay::Create();
  auto list = display->DataSources();
  auto tanks = list->Add(toolkit::kind::kFile, u"Tanks");
  tanks->Variables()->Add()->SetDsvName(u"Level");
  tanks->Variables()->Add()->SetDsvName(u"Pressure");
  auto scada = list->Add(toolkit::kind::kCustom, u"Riverside.Custom");
  scada->SetDsName(u"Scada");
  scada->Params()->AppendEmpty();
  scada->Params()->AppendEmpty();
  auto flow = scada->Variables()->Add();
  flow->SetDsvName(u"Flow");
  flow->SetAccess(1);
  scada->Variables()->Add()->SetDsvName(u"Speed");
  list->Add(toolkit::kind::kMemory, u"")->SetDsName(u"Scratch");
  return display;
}

// The Automation error a call raises; number 0 when it raises none.
template <class Call>
automation::AutomationError ErrorOf(Call call) {
  try {
    call();
  } catch (const automation::AutomationError& e) {
    return e;
  }
  return automation::AutomationError(0, u"");
}

}  // namespace vd::testhost
