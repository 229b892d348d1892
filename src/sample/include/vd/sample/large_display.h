#pragma once
// A large, deterministic display for benchmarks and load tests: units of a
// plant, each one data source of a kind taken in turn (file, memory, constant,
// SCADA), each with the same number of variables named after instrument tags.
// Some variables are in use, so deletes are refused as in a real display; the
// SCADA variables are mapped with all three signal types, and the simulated
// system's object table holds every object they address.
#include <cstdint>

#include "vd/sample/sample_file.h"

namespace vd::sample {

struct LargeDisplaySize {
  int32_t dataSources = 2000;
  int32_t variablesPerDs = 50;
};

// The same size always gives the same display and system.
SampleDisplay GenerateLargeDisplay(LargeDisplaySize size = {});

}  // namespace vd::sample
