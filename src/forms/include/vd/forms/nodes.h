#pragma once
// The Nodes collection of a tree view. Index is the 1-based collection order:
// a new node always comes last, removing nodes renumbers the ones after them.
// Keys are unique ignoring case (a duplicate raises 35602) and optional (an
// empty key is none).
//
// Adding, finding by key and removing a node are constant time (amortised,
// the subtree of a removed node aside). Removing leaves a gap where the node
// was; while there are gaps, a node's Index and the node at an index are
// counted in logarithmic time, and the gaps are closed in one pass once they
// are as many as the nodes.
#include <cstdint>
#include <utility>
#include <vector>

#include "vd/forms/constants.h"
#include "vd/forms/detail/node_key_index.h"
#include "vd/forms/detail/node_pool.h"
#include "vd/forms/node.h"

namespace vd::forms {

// The node that Nodes.Add places a new node next to: none, a key, an index,
// a node, or a Variant holding Empty, a key or a number. A key is only looked
// at, never copied.
class NodeRelative {
 public:
  NodeRelative() = default;
  NodeRelative(StringView key) : kind_(Kind::kKey), key_(key) {}                // NOLINT(google-explicit-constructor)
  NodeRelative(const String& key) : kind_(Kind::kKey), key_(key) {}             // NOLINT(google-explicit-constructor)
  NodeRelative(const char16_t* key) : kind_(Kind::kKey), key_(key) {}           // NOLINT(google-explicit-constructor)
  NodeRelative(int32_t index) : kind_(Kind::kIndex), index_(index) {}           // NOLINT(google-explicit-constructor)
  NodeRelative(const NodeRef& node) : kind_(Kind::kNode), node_(node.get()) {}  // NOLINT(google-explicit-constructor)
  NodeRelative(const Variant& relative);                                        // NOLINT(google-explicit-constructor)

 private:
  friend class Nodes;
  enum class Kind : uint8_t { kNone, kKey, kIndex, kNode };
  Kind kind_ = Kind::kNone;
  StringView key_;
  int32_t index_ = 0;
  const Node* node_ = nullptr;
};

// The text of a node that Nodes.Add makes: looked at and copied, or, when
// the caller hands over a String it no longer needs, taken as it is.
class NodeText {
 public:
  NodeText() = default;
  NodeText(StringView text) : view_(text) {}               // NOLINT(google-explicit-constructor)
  NodeText(const char16_t* text) : view_(text) {}          // NOLINT(google-explicit-constructor)
  NodeText(const String& text) : view_(text) {}            // NOLINT(google-explicit-constructor)
  NodeText(String&& text) : view_(text), taken_(&text) {}  // NOLINT(google-explicit-constructor)

  [[nodiscard]] StringView View() const { return view_; }
  // The text as a String of its own; a handed-over String is moved.
  [[nodiscard]] String Take() const { return taken_ != nullptr ? std::move(*taken_) : String(view_); }

 private:
  StringView view_;
  String* taken_ = nullptr;  // lives until the end of the call that got it
};

class Nodes {
 public:
  explicit Nodes(TreeView& tree);
  Nodes(const Nodes&) = delete;
  Nodes& operator=(const Nodes&) = delete;
  ~Nodes();

  [[nodiscard]] int32_t Count() const { return live_; }

  // Adds a node and answers it. relative names an existing node by key or
  // index, or is none for a top-level node; relationship places
  // the new node as that node's child (tvwChild), first or last sibling, or
  // next to it. Under a sorted parent the node goes to its place by text.
  // Errors: 35601 unknown relative key, 35600 relative index out of range,
  // 35602 duplicate key, 5 unknown relationship, 35613 / 35600 an image without
  // an image list or outside it, 13 a Variant of another kind, 35601 a node of
  // another tree or one removed.
  NodeRef Add(const NodeRelative& relative = {}, int32_t relationship = tvwLast, StringView key = {},
              const NodeText& text = {}, int32_t image = 0, int32_t selectedImage = 0);

  // Error 35600 outside 1..Count.
  [[nodiscard]] NodeRef Item(int32_t index) const;
  // Error 35601 when no node has the key.
  [[nodiscard]] NodeRef Item(StringView key) const;
  // nullptr when no node has the key.
  [[nodiscard]] NodeRef Find(StringView key) const;

  // Removes the node and its subtree. When the selected node goes with them the
  // selection moves to the removed node's next sibling, else its previous
  // sibling, else its parent, else to nothing (no NodeClick).
  void Remove(int32_t index);
  void Remove(StringView key);
  void Remove(const NodeRef& node);
  void Clear();

  // Makes room for this many nodes in all (a hint: adding more is fine), so
  // that a large build grows nothing on its way.
  void Reserve(int32_t count);

 private:
  friend class Node;
  friend class TreeView;

  [[nodiscard]] Node* Resolve(const NodeRelative& relative) const;
  // The shared reference of a node of this tree (nullptr for nullptr).
  [[nodiscard]] NodeRef RefOf(const Node* node) const { return node != nullptr ? slots_[node->slot_] : nullptr; }
  [[nodiscard]] Node* At(int32_t index) const;
  [[nodiscard]] int32_t IndexOf(const Node& node) const;
  void RemoveNode(Node* node);
  void AppendSlot(NodeRef node);
  void VacateSlot(size_t slot);
  // Closes the gaps: every node's slot becomes its index - 1.
  void Compact();

  TreeView* tree_;
  detail::NodePool pool_;  // declared first: the nodes below go back to it
  NodeRef root_;           // parent of the top-level nodes; never in the collection
  // The nodes in collection order, nullptr where one was removed (a gap);
  // counts_ is a Fenwick tree over them (1 for a node, 0 for a gap), so that
  // counting the nodes before a slot, or finding the slot of the n-th node,
  // walks only its logarithmic number of entries.
  std::vector<NodeRef> slots_;
  std::vector<int32_t> counts_;
  size_t gaps_ = 0;
  int32_t live_ = 0;
  detail::NodeKeyIndex keys_;
  mutable const Node* lastRelative_ = nullptr;  // the node a relative key named last
  std::vector<NodeRef> doomed_;                 // a removed subtree, kept alive while it is taken apart
};

}  // namespace vd::forms
