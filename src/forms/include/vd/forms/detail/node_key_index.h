#pragma once
// Finds a tree node by its key, ignoring case, in constant time: an open
// addressing table of node pointers that reads each key from its node.
#include <cstdint>
#include <vector>

#include "vd/automation/string.h"

namespace vd::forms {
class Node;
}

namespace vd::forms::detail {

class NodeKeyIndex {
 public:
  [[nodiscard]] Node* Find(vd::automation::StringView key) const { return Find(key, Hash(key)); }
  [[nodiscard]] Node* Find(vd::automation::StringView key, uint32_t hash) const;
  // The node's key must be non-empty and not yet present; hash is Hash of it.
  void Insert(Node* node, uint32_t hash);
  void Erase(const Node* node);
  void Clear();
  [[nodiscard]] size_t Size() const { return size_; }

  // The hash of a key with its letters upper-cased as text comparison does.
  [[nodiscard]] static uint32_t Hash(vd::automation::StringView key);

 private:
  struct Slot {
    Node* node = nullptr;
    uint32_t hash = 0;
  };
  void Grow();
  [[nodiscard]] size_t Mask() const { return slots_.size() - 1; }

  std::vector<Slot> slots_;
  size_t size_ = 0;
};

}  // namespace vd::forms::detail
