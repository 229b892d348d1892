// The JSON sample loader on any text: a display that loads writes out as JSON
// that loads to the same JSON again; any other text loads nothing and names
// the file, a line of the text and a reason, and no other exception escapes.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz_text.h"
#include "vd/sample/sample_file.h"

namespace {

using vd::fuzz::Require;

constexpr char kFile[] = "fuzz.json";

int LineCount(std::string_view text) {
  int lines = 1;
  for (const char c : text)
    if (c == '\n') ++lines;
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::filesystem::path base = "/nonexistent/samples";
  vd::sample::SampleDisplay sample;
  try {
    sample = vd::sample::LoadDisplayText(text, kFile, base);
  } catch (const vd::sample::SampleFileError& error) {
    Require(error.File() == kFile);
    Require(error.Line() >= 1 && error.Line() <= LineCount(text));
    Require(!error.Reason().empty());
    Require(std::string(error.what()) ==
            std::string(kFile) + ":" + std::to_string(error.Line()) + ": " + error.Reason());
    return 0;
  }
  Require(sample.display != nullptr);
  const std::string written = vd::sample::WriteDisplayJson(sample, base);
  const vd::sample::SampleDisplay again = vd::sample::LoadDisplayText(written, kFile, base);
  Require(vd::sample::WriteDisplayJson(again, base) == written);
  return 0;
}
