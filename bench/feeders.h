#pragma once
// The display the rescan of item offsets is timed over: one SCADA data source
// of kVariables status colour variables, each with its object in the
// simulated SCADA system.
#include <cstdio>
#include <memory>

#include "vd/sample/memory_toolkit.h"
#include "vd/sample/sample_file.h"
#include "vd/sample/simulated_scada.h"

namespace vd::bench {

inline constexpr int32_t kVariables = 2000;
inline constexpr int16_t kApplication = 1;

inline vd::automation::String Name(int32_t i) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "FDR%04d", i);
  return vd::automation::FromUtf8(buffer);
}

// One SCADA data source of kVariables status colour variables, each with its object in the system.
inline vd::sample::SampleDisplay Feeders() {
  namespace paramtype = vd::toolkit::paramtype;
  vd::sample::SampleDisplay sample{vd::sample::MemoryDisplay::Create(), std::make_shared<vd::sample::SimulatedScada>()};
  sample.scada->AddApplication(vd::sample::ScadaApplication{kApplication, u"FEEDERS", u"apl/FEEDERS"});
  const auto ds = sample.display->DataSources()->Add(vd::toolkit::kind::kCustom, u"TelvaneDV.DataSource");
  ds->SetDsName(u"Feeders");
  ds->Params()->Append(paramtype::kText, vd::automation::String(u"Telvane DV DataSource"));
  ds->Params()->Append(paramtype::kNumber, static_cast<double>(kApplication));
  for (int32_t i = 1; i <= kVariables; ++i) {
    const auto dsv = ds->Variables()->Add();
    dsv->SetDsvName(Name(i) + u"_Status");
    const auto params = dsv->Params();
    params->AppendEmpty();
    params->Append(paramtype::kText, u"\\\\APL\\1\\P\\" + Name(i) + u"\\11:OV");
    params->Append(paramtype::kNumber, 1.0);
    params->Append(paramtype::kText, vd::automation::String(u"0,0,0"));
    vd::sample::ScadaObject object;
    object.application = kApplication;
    object.name = Name(i);
    object.index = 11;
    object.offsets = vd::automation::ToDecimal(i % 97) + u",12,40";
    sample.scada->AddObject(std::move(object));
  }
  return sample;
}

}  // namespace vd::bench
