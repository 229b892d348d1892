#pragma once
// Finds a tree node by its key, ignoring case, in constant time: an open
// addressing table of each key's hash and its node's place in the
// collection's slots, eight bytes an entry so that a large tree's table stays
// small enough for the caches. Keys are read from the nodes themselves.
#include <cstdint>
#include <memory>
#include <vector>

#include "vd/automation/string.h"

namespace vd::forms {
class Node;
}

namespace vd::forms::detail {

class NodeKeyIndex {
 public:
  // slots are the collection's: a node's place there is its slot_.
  explicit NodeKeyIndex(const std::vector<std::shared_ptr<Node>>& slots) : nodes_(&slots) {}

  [[nodiscard]] Node* Find(vd::automation::StringView key) const { return Find(key, Hash(key)); }
  [[nodiscard]] Node* Find(vd::automation::StringView key, uint32_t hash) const;
  // One probe for both: the node that has the key, or nullptr and in `at`
  // the entry where InsertAt puts a node with that key, if nothing else
  // changes the index in between.
  [[nodiscard]] Node* FindForInsert(vd::automation::StringView key, uint32_t hash, size_t& at);
  // Asks for the entry a key with this hash starts its probe at, so that the
  // memory is on its way while the caller does other work before probing.
  void Prefetch(uint32_t hash) const {
    if (!entries_.empty()) __builtin_prefetch(&entries_[hash & Mask()]);
  }
  // The node is in its slot already; its key is hashed to hash and not present.
  void InsertAt(size_t at, const Node& node, uint32_t hash);
  // The node must still be in its slot_ (it may have left the slots vector).
  void Erase(const Node& node);
  void Clear();
  // Makes room for this many keys in all, so that adding up to them rehashes nothing.
  void Reserve(size_t keys);
  // After the slots were renumbered: indexes every node that has a key again.
  void Rebuild();
  [[nodiscard]] size_t Size() const { return size_; }

  // The hash of a key with its letters upper-cased as text comparison does.
  [[nodiscard]] static uint32_t Hash(vd::automation::StringView key);

 private:
  struct Entry {
    uint32_t hash = 0;
    uint32_t place = 0;  // the node's slot + 1; 0 is an empty entry
  };
  [[nodiscard]] const Node& NodeAt(const Entry& entry) const;
  [[nodiscard]] bool Fits(size_t keys) const { return keys * 5 <= entries_.size() * 4; }
  void Rehash(size_t entryCount);
  [[nodiscard]] size_t Mask() const { return entries_.size() - 1; }

  const std::vector<std::shared_ptr<Node>>* nodes_;
  std::vector<Entry> entries_;
  size_t size_ = 0;
};

}  // namespace vd::forms::detail
