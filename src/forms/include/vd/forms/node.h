#pragma once
// One node of a tree view. Callers hold nodes as NodeRef (shared); a node that
// has been removed from its tree stays a valid object, Removed() turns True and
// every other member raises error 35605.
//
// Navigation (Child, Next, Previous, FirstSibling, LastSibling) follows the
// order in which the tree shows a node's children: the order they were added
// in, or, under a parent whose Sorted is True (the tree's own Sorted for
// top-level nodes), by text ignoring case with equal texts in the order they
// came.
#include <cstdint>
#include <memory>

#include "vd/automation/string.h"
#include "vd/automation/variant.h"

namespace vd::forms {

using vd::automation::String;
using vd::automation::StringView;
using vd::automation::Variant;

class Node;
class Nodes;
class TreeView;
namespace detail {
class NodeKeyIndex;
struct NodeAccess;
}  // namespace detail

using NodeRef = std::shared_ptr<Node>;

class Node {
  struct Token {};

 public:
  Node(Token, TreeView* tree, StringView key, String text);
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  [[nodiscard]] bool Removed() const { return tree_ == nullptr; }
  [[nodiscard]] TreeView& Tree() const;

  // 1-based position in the tree's Nodes collection (renumbered on removal).
  [[nodiscard]] int32_t Index() const;
  [[nodiscard]] const String& Key() const;
  [[nodiscard]] const String& Text() const;
  // Under a sorted parent the node moves to its place by the new text.
  void SetText(String text);
  [[nodiscard]] const Variant& Tag() const;
  void SetTag(Variant tag);
  // Image indexes into the tree's image list; 0 is none.
  [[nodiscard]] int32_t Image() const;
  void SetImage(int32_t image);
  [[nodiscard]] int32_t ExpandedImage() const;
  void SetExpandedImage(int32_t image);
  [[nodiscard]] int32_t SelectedImage() const;
  void SetSelectedImage(int32_t image);
  // Collapsing a node that holds the selected node below it selects this node
  // (no NodeClick). No events either way: Collapse and Expand come from the user.
  [[nodiscard]] bool Expanded() const;
  void SetExpanded(bool expanded);
  // True sorts the children by text ignoring case (stable) and keeps them so as
  // nodes are added or renamed; False keeps the order they have.
  [[nodiscard]] bool Sorted() const;
  void SetSorted(bool sorted);

  // nullptr when there is none (Parent of a top-level node).
  [[nodiscard]] NodeRef Parent() const;
  [[nodiscard]] NodeRef Child() const;
  [[nodiscard]] NodeRef Next() const;
  [[nodiscard]] NodeRef Previous() const;
  [[nodiscard]] NodeRef FirstSibling() const;
  [[nodiscard]] NodeRef LastSibling() const;
  [[nodiscard]] int32_t Children() const;

  [[nodiscard]] bool Selected() const;
  // True selects this node as the tree's SelectedItem (expanding its ancestors,
  // as the native control does; no NodeClick). False on the selected node
  // leaves the tree without a selection.
  void SetSelected(bool selected);
  // Expands every ancestor so that the node can be seen.
  void EnsureVisible();
  // Whether every ancestor is expanded.
  [[nodiscard]] bool Displayed() const;

 private:
  friend class Nodes;
  friend class TreeView;
  friend class detail::NodeKeyIndex;
  friend struct detail::NodeAccess;

  void CheckLive() const;
  [[nodiscard]] NodeRef Ref(Node* node) const;
  [[nodiscard]] bool IsTopLevel() const;

  TreeView* tree_;
  Node* parent_ = nullptr;
  Node* firstChild_ = nullptr;
  Node* lastChild_ = nullptr;
  Node* prev_ = nullptr;
  Node* next_ = nullptr;
  int32_t childCount_ = 0;
  size_t slot_ = 0;  // position in the collection's slot array
  String key_;
  String text_;
  Variant tag_;
  int32_t image_ = 0;
  int32_t expandedImage_ = 0;
  int32_t selectedImage_ = 0;
  bool expanded_ = false;
  bool sorted_ = false;
};

}  // namespace vd::forms
