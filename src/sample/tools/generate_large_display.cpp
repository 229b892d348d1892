// Writes the generated large display as a sample file, so that the loader can
// be exercised on it: vd_sample_generate OUT.json [DATA_SOURCES [VARIABLES]].
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

#include "vd/sample/large_display.h"

int main(int argc, char** argv) {
  if (argc < 2 || argc > 4) {
    std::fprintf(stderr, "usage: %s OUT.json [DATA_SOURCES [VARIABLES]]\n", argv[0]);
    return 2;
  }
  try {
    vd::sample::LargeDisplaySize size;
    if (argc > 2) size.dataSources = std::stoi(argv[2]);
    if (argc > 3) size.variablesPerDs = std::stoi(argv[3]);
    vd::sample::SaveDisplayFile(vd::sample::GenerateLargeDisplay(size), argv[1]);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "%s\n", e.what());
    return 1;
  }
  return 0;
}
