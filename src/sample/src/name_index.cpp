#include "vd/automation/text.h"
#include "vd/sample/memory_toolkit.h"

namespace vd::sample {

void NameIndex::Add(automation::StringView name) { ++counts_[automation::UCase(name)]; }

void NameIndex::Remove(automation::StringView name) {
  auto it = counts_.find(automation::UCase(name));
  if (it == counts_.end()) return;
  if (--it->second == 0) counts_.erase(it);
}

bool NameIndex::Contains(automation::StringView name) const { return counts_.contains(automation::UCase(name)); }

String NameIndex::Fresh(automation::StringView prefix, int32_t start, automation::StringView suffix) const {
  for (long long n = start;; ++n) {
    String candidate = String(prefix) + automation::ToDecimal(n) + String(suffix);
    if (!Contains(candidate)) return candidate;
  }
}

}  // namespace vd::sample
