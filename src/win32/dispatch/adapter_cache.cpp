#include "dispatch/adapter_cache.h"

#include <functional>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace vd::win32 {
namespace {

using Key = std::pair<IUnknown*, std::type_index>;
struct KeyHash {
  size_t operator()(const Key& key) const noexcept {
    return std::hash<IUnknown*>()(key.first) * 31 + key.second.hash_code();
  }
};

struct Cache {
  std::mutex mutex;
  std::unordered_map<Key, std::weak_ptr<automation::Object>, KeyHash> entries;
  size_t sweepAt = 64;
};

Cache& TheCache() {
  static Cache* cache = new Cache;  // never destroyed: adapters may outlive static destruction order
  return *cache;
}

}  // namespace

automation::ObjectRef FindAdapter(IUnknown* identity, std::type_index kind) {
  Cache& cache = TheCache();
  std::lock_guard lock(cache.mutex);
  auto found = cache.entries.find({identity, kind});
  return found == cache.entries.end() ? nullptr : found->second.lock();
}

void RememberAdapter(IUnknown* identity, std::type_index kind, const automation::ObjectRef& adapter) {
  Cache& cache = TheCache();
  std::lock_guard lock(cache.mutex);
  cache.entries[{identity, kind}] = adapter;
  if (cache.entries.size() >= cache.sweepAt) {
    std::erase_if(cache.entries, [](const auto& entry) { return entry.second.expired(); });
    cache.sweepAt = cache.entries.size() * 2 + 64;
  }
}

}  // namespace vd::win32
