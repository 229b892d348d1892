// Feeds arbitrary bytes to the kinds-file reader and does with each entry what
// the dialog does: classify it and key the custom kinds by display name. A
// duplicate display name (error 457) ends the loading, as it ends the dialog's;
// any other error, and any entry that breaks the reader's promises, is a
// finding.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/ansi_text.h"
#include "platform/ds_kinds_file.h"
#include "vd/automation/collection.h"
#include "vd/automation/error.h"

namespace {

using vd::platform::DsKindEntry;

void Require(bool condition) {
  if (!condition) std::abort();
}

// What every entry must look like, whatever the file held.
void CheckEntry(const DsKindEntry& entry) {
  Require(!entry.name.empty() && !entry.className.empty());
  Require(entry.name.find_first_of(u" \t#") == std::u16string::npos);
  Require(entry.className.find_first_of(u"\t#\r\n") == std::u16string::npos);
  Require(entry.className.front() != u' ' && entry.className.back() != u' ');
  Require(entry.className.find(u"  ") == std::u16string::npos);
}

void LoadLikeTheDialog(const std::vector<DsKindEntry>& entries) {
  vd::automation::Collection<vd::automation::String> customClasses;
  try {
    for (const DsKindEntry& entry : entries) {
      CheckEntry(entry);
      const std::optional<int32_t> kind = vd::platform::ClassifyDsKind(entry.className);
      if (kind == 105) customClasses.Add(entry.className, entry.name);
    }
  } catch (const vd::automation::AutomationError& error) {
    Require(error.Number() == vd::automation::err::kKeyAlreadyInCollection);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  LoadLikeTheDialog(vd::platform::ReadDsKinds(bytes));
  // The whole input as one line too, line ends included.
  if (const auto entry = vd::platform::ParseDsKindLine(vd::platform::FromAnsiText(bytes))) {
    Require(!entry->name.empty() && !entry->className.empty());
  }
  return 0;
}
