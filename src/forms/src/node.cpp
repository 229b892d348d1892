#include "vd/forms/node.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "assign.h"
#include "node_links.h"
#include "vd/automation/error.h"
#include "vd/automation/text.h"
#include "vd/forms/constants.h"
#include "vd/forms/tree_view.h"

namespace vd::forms {

namespace detail {
// Node's links are private; these helpers reach them through a friend shim.
struct NodeAccess {
  static Node*& Parent(Node& n) { return n.parent_; }
  static Node*& First(Node& n) { return n.firstChild_; }
  static Node*& Last(Node& n) { return n.lastChild_; }
  static Node*& Prev(Node& n) { return n.prev_; }
  static Node*& Next(Node& n) { return n.next_; }
  static int32_t& Count(Node& n) { return n.childCount_; }
};

void LinkAfter(Node& parent, Node* after, Node& node) {
  using A = NodeAccess;
  A::Parent(node) = &parent;
  A::Prev(node) = after;
  Node* next = after != nullptr ? A::Next(*after) : A::First(parent);
  A::Next(node) = next;
  if (after != nullptr) {
    A::Next(*after) = &node;
  } else {
    A::First(parent) = &node;
  }
  if (next != nullptr) {
    A::Prev(*next) = &node;
  } else {
    A::Last(parent) = &node;
  }
  ++A::Count(parent);
}

void Unlink(Node& node) {
  using A = NodeAccess;
  Node& parent = *A::Parent(node);
  if (A::Prev(node) != nullptr) {
    A::Next(*A::Prev(node)) = A::Next(node);
  } else {
    A::First(parent) = A::Next(node);
  }
  if (A::Next(node) != nullptr) {
    A::Prev(*A::Next(node)) = A::Prev(node);
  } else {
    A::Last(parent) = A::Prev(node);
  }
  A::Prev(node) = nullptr;
  A::Next(node) = nullptr;
  --A::Count(parent);
}

Node* SortedPlace(const Node& parent, vd::automation::StringView text) {
  using A = NodeAccess;
  Node* after = A::Last(const_cast<Node&>(parent));
  while (after != nullptr && vd::automation::CompareIgnoreCase(after->Text(), text) > 0) after = A::Prev(*after);
  return after;
}
}  // namespace detail

Node::Node(Token, TreeView* tree, StringView key, String text) : tree_(tree), key_(key), text_(std::move(text)) {}

void Node::CheckLive() const {
  if (tree_ == nullptr) vd::automation::Raise(err::kNodeRemoved, u"Control has been deleted");
}

TreeView& Node::Tree() const {
  CheckLive();
  return *tree_;
}

NodeRef Node::Ref(Node* node) const { return tree_->nodes_.RefOf(node); }

bool Node::IsTopLevel() const { return parent_ == tree_->nodes_.root_.get(); }

int32_t Node::Index() const {
  CheckLive();
  return tree_->nodes_.IndexOf(*this);
}

const String& Node::Key() const {
  CheckLive();
  return key_;
}

const String& Node::Text() const {
  CheckLive();
  return text_;
}

void Node::SetText(String text) {
  CheckLive();
  if (!detail::Assign(text_, std::move(text))) return;
  tree_->ReportNode(Property::kNodeText, this);
  if (!parent_->sorted_) return;
  Node* parent = parent_;
  detail::Unlink(*this);
  detail::LinkAfter(*parent, detail::SortedPlace(*parent, text_), *this);
  tree_->ReportNode(Property::kNodeOrder, IsTopLevel() ? nullptr : parent);
}

const Variant& Node::Tag() const {
  CheckLive();
  return tag_;
}

void Node::SetTag(Variant tag) {
  CheckLive();
  tag_ = std::move(tag);
}

int32_t Node::Image() const {
  CheckLive();
  return image_;
}

void Node::SetImage(int32_t image) {
  CheckLive();
  tree_->CheckImage(image);
  if (detail::Assign(image_, image)) tree_->ReportNode(Property::kNodeImage, this);
}

int32_t Node::ExpandedImage() const {
  CheckLive();
  return expandedImage_;
}

void Node::SetExpandedImage(int32_t image) {
  CheckLive();
  tree_->CheckImage(image);
  if (detail::Assign(expandedImage_, image)) tree_->ReportNode(Property::kNodeExpandedImage, this);
}

int32_t Node::SelectedImage() const {
  CheckLive();
  return selectedImage_;
}

void Node::SetSelectedImage(int32_t image) {
  CheckLive();
  tree_->CheckImage(image);
  if (detail::Assign(selectedImage_, image)) tree_->ReportNode(Property::kNodeSelectedImage, this);
}

bool Node::Expanded() const {
  CheckLive();
  return expanded_;
}

void Node::SetExpanded(bool expanded) {
  CheckLive();
  if (!detail::Assign(expanded_, expanded)) return;
  tree_->ReportNode(Property::kNodeExpanded, this);
  if (expanded) return;
  // The selection cannot stay hidden under a collapsed node: it moves here.
  Node* selected = tree_->selected_;
  for (Node* n = selected != nullptr ? selected->parent_ : nullptr; n != nullptr; n = n->parent_) {
    if (n == this) {
      tree_->selected_ = this;
      tree_->ReportNode(Property::kSelectedItem, this);
      break;
    }
  }
}

bool Node::Sorted() const {
  CheckLive();
  return sorted_;
}

void Node::SetSorted(bool sorted) {
  CheckLive();
  if (!detail::Assign(sorted_, sorted)) return;
  const bool topLevel = this == tree_->nodes_.root_.get();
  tree_->ReportNode(topLevel ? Property::kSorted : Property::kNodeSorted, topLevel ? nullptr : this);
  if (!sorted || childCount_ < 2) return;
  std::vector<Node*> children;
  children.reserve(static_cast<size_t>(childCount_));
  for (Node* c = firstChild_; c != nullptr; c = c->next_) children.push_back(c);
  if (std::is_sorted(children.begin(), children.end(), [](const Node* a, const Node* b) {
        return vd::automation::CompareIgnoreCase(a->text_, b->text_) < 0;
      }))
    return;
  std::stable_sort(children.begin(), children.end(), [](const Node* a, const Node* b) {
    return vd::automation::CompareIgnoreCase(a->text_, b->text_) < 0;
  });
  firstChild_ = lastChild_ = nullptr;
  childCount_ = 0;
  for (Node* c : children) detail::LinkAfter(*this, lastChild_, *c);
  tree_->ReportNode(Property::kNodeOrder, topLevel ? nullptr : this);
}

NodeRef Node::Parent() const {
  CheckLive();
  return IsTopLevel() ? nullptr : Ref(parent_);
}

NodeRef Node::Child() const {
  CheckLive();
  return Ref(firstChild_);
}

NodeRef Node::Next() const {
  CheckLive();
  return Ref(next_);
}

NodeRef Node::Previous() const {
  CheckLive();
  return Ref(prev_);
}

NodeRef Node::FirstSibling() const {
  CheckLive();
  return Ref(parent_->firstChild_);
}

NodeRef Node::LastSibling() const {
  CheckLive();
  return Ref(parent_->lastChild_);
}

int32_t Node::Children() const {
  CheckLive();
  return childCount_;
}

bool Node::Selected() const {
  CheckLive();
  return tree_->selected_ == this;
}

void Node::SetSelected(bool selected) {
  CheckLive();
  if (selected) {
    tree_->Select(this);
  } else if (tree_->selected_ == this) {
    tree_->Select(nullptr);
  }
}

void Node::EnsureVisible() {
  CheckLive();
  for (Node* n = parent_; n != nullptr && n != tree_->nodes_.root_.get(); n = n->parent_) n->SetExpanded(true);
  tree_->ReportNode(Property::kNodeEnsureVisible, this);
}

bool Node::Displayed() const {
  CheckLive();
  for (const Node* n = parent_; n != nullptr && n != tree_->nodes_.root_.get(); n = n->parent_)
    if (!n->expanded_) return false;
  return true;
}

}  // namespace vd::forms
