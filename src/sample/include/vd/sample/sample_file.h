#pragma once
// Sample displays as JSON files: a display of the in-memory toolkit and,
// optionally, the simulated SCADA system that goes with it.
//
// Layout (every object may also carry a "comment" text; any other key that is
// not listed is an error, so that a misspelt key never goes unnoticed):
//
// { "dataSources": [                                         required
//     { "name": text,                                        required, not empty
//       "kind": "file" | "constant" | "memory" | "custom",   required
//       "ascii": Boolean,                                    file only (default true)
//       "className": text,                                   custom only, required there
//       "params": [param, ...],                              custom only (default: what the class starts with)
//       "variables": [                                       default none
//         { "name": text,                                    required; unique in its data source, ignoring case
//           "type": "Byte" | "UByte" | "Short" | "UShort" | "Long" | "ULong" | "Float" | "Double" | "Text",
//           "rows": n, "cols": n,                            0..65535 (default 1)
//           "scope": "private" | "public",                   default private
//           "value": number,                                 default 0
//           "useCount": n,                                   >= 0 (default 0)
//           "access": n,                                     custom only (default 0; 1 = read only)
//           "params": [param, ...] } ] } ],                  custom only (default none)
//   "scada": {                                               optional; without it there is no SCADA system
//     "currentApplication": n,                               one of the applications (default the first)
//     "applications": [ { "number": 1..32767, "name": text, "directory": text } ],
//     "objects": [ { "application": n,                       an application's number; not for kind "B"
//                    "name": text, "kind": one letter, "index": n (>= 0, default 0 = none),
//                    "attributes": { name: value, ... },      number, text, Boolean, null or an array of those
//                    "offsets": text } ] } }                 the answer to the offsets request; a whole
//                                                            number: that status (a Long); false: it fails
//
// param: { "type": "text", "value": text } | { "type": "number", "value": number } | { "type": "empty" }
// (the last is what AddParam appends: type code 0, Empty value).
//
// A relative application directory is taken from the folder of the file (from
// baseDirectory for text). Equal data source names are allowed (the toolkit
// allows them too); equal variable names in one data source, application
// numbers and objects are not.
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "vd/sample/memory_toolkit.h"
#include "vd/sample/simulated_scada.h"

namespace vd::sample {

struct SampleDisplay {
  std::shared_ptr<MemoryDisplay> display;
  std::shared_ptr<SimulatedScada> scada;  // nullptr when the file has no "scada" section
};

// A file that cannot be read or does not describe a sample display. Nothing of
// it is loaded. what() reads "<file>:<line>: <reason>"; line 0 when the file
// could not be read at all.
class SampleFileError : public std::runtime_error {
 public:
  SampleFileError(std::string file, int line, std::string reason);
  [[nodiscard]] const std::string& File() const { return file_; }
  [[nodiscard]] int Line() const { return line_; }
  [[nodiscard]] const std::string& Reason() const { return reason_; }

 private:
  std::string file_;
  int line_;
  std::string reason_;
};

SampleDisplay LoadDisplayFile(const std::filesystem::path& path);
// text as a file of that name in baseDirectory would hold it.
SampleDisplay LoadDisplayText(std::string_view text, const std::string& fileName,
                              const std::filesystem::path& baseDirectory);

// The sample as JSON text that LoadDisplayText reads back to the same display
// and system; absolute application directories are written relative to
// baseDirectory where that is possible.
std::string WriteDisplayJson(const SampleDisplay& sample, const std::filesystem::path& baseDirectory);
// Writes the file; SampleFileError (line 0) when it cannot be written.
void SaveDisplayFile(const SampleDisplay& sample, const std::filesystem::path& path);

}  // namespace vd::sample
