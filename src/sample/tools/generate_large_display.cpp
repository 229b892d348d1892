// Writes the generated large display as a sample file, or loads a sample file
// and tells what it holds, so that the loader can be exercised on big input:
//   vd_sample_generate OUT.json [DATA_SOURCES [VARIABLES]]
//   vd_sample_generate --load FILE.json
#include <cstdio>
#include <exception>
#include <string>

#include "vd/sample/large_display.h"

namespace {

int Load(const char* path) {
  const vd::sample::SampleDisplay sample = vd::sample::LoadDisplayFile(path);
  auto list = sample.display->GetDataSources();
  long variables = 0;
  for (int32_t i = 1; i <= list->DsCount(); ++i) variables += list->DsItem(i)->GetDsVars()->DsvCount();
  std::printf("%s: %d data sources, %ld variables, %zu SCADA objects\n", path, list->DsCount(), variables,
              sample.scada ? sample.scada->Objects().size() : size_t{0});
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string first = argc > 1 ? argv[1] : "";
  if (argc < 2 || argc > 4 || (first == "--load" && argc != 3)) {
    std::fprintf(stderr, "usage: %s OUT.json [DATA_SOURCES [VARIABLES]]\n       %s --load FILE.json\n", argv[0],
                 argv[0]);
    return 2;
  }
  try {
    if (first == "--load") return Load(argv[2]);
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
