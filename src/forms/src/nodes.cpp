#include "vd/forms/nodes.h"

#include <algorithm>
#include <limits>

#include "node_links.h"
#include "vd/automation/conversions.h"
#include "vd/automation/error.h"
#include "vd/forms/tree_view.h"

namespace vd::forms {
namespace {
using vd::automation::Raise;
namespace aerr = vd::automation::err;
}  // namespace

Nodes::Nodes(TreeView& tree) : tree_(&tree), root_(std::make_shared<Node>(Node::Token{}, &tree, String(), String())) {
  root_->expanded_ = true;
}

Nodes::~Nodes() {
  // Nodes that callers still hold must not reach back into a destroyed tree.
  for (const NodeRef& node : slots_) {
    if (node) node->tree_ = nullptr;
  }
  root_->tree_ = nullptr;
}

NodeRelative::NodeRelative(const Variant& relative) {
  using vd::automation::VarType;
  switch (relative.Type()) {
    case VarType::kEmpty:
      break;
    case VarType::kString:
      kind_ = Kind::kKey;
      key_ = relative.AsString();
      break;
    case VarType::kInteger:
    case VarType::kLong:
    case VarType::kSingle:
    case VarType::kDouble:
      kind_ = Kind::kIndex;
      index_ = vd::automation::CLng(relative);
      break;
    default:
      Raise(aerr::kTypeMismatch);
  }
}

Node* Nodes::Resolve(const NodeRelative& relative) const {
  switch (relative.kind_) {
    case NodeRelative::Kind::kNone:
      return nullptr;
    case NodeRelative::Kind::kKey: {
      Node* node = keys_.Find(relative.key_);
      if (node == nullptr) Raise(aerr::kTreeElementNotFound);
      return node;
    }
    case NodeRelative::Kind::kIndex:
      return At(relative.index_);
    case NodeRelative::Kind::kNode:
      if (relative.node_ == nullptr || relative.node_->tree_ != tree_) Raise(aerr::kTreeElementNotFound);
      return const_cast<Node*>(relative.node_);
  }
  return nullptr;
}

Node* Nodes::At(int32_t index) const {
  if (index < 1 || index > live_) Raise(aerr::kTreeIndexOutOfBounds);
  const auto slot = static_cast<size_t>(index - 1);
  CompactThrough(slot);
  return slots_[slot].get();
}

void Nodes::CompactThrough(size_t slot) const {
  if (slot < compactPrefix_) return;
  size_t write = compactPrefix_;
  for (size_t read = compactPrefix_; read < slots_.size(); ++read) {
    if (!slots_[read]) continue;
    if (write != read) slots_[write] = std::move(slots_[read]);
    slots_[write]->slot_ = write;
    ++write;
  }
  slots_.resize(write);
  compactPrefix_ = write;
}

NodeRef Nodes::Add(const NodeRelative& relative, int32_t relationship, StringView key, StringView text, int32_t image,
                   int32_t selectedImage) {
  Node* rel = Resolve(relative);
  if (relationship < tvwFirst || relationship > tvwChild) Raise(aerr::kInvalidProcedureCall);
  const uint32_t keyHash = detail::NodeKeyIndex::Hash(key);
  if (!key.empty() && keys_.Find(key, keyHash) != nullptr) Raise(aerr::kTreeKeyNotUnique);
  tree_->CheckImage(image);
  tree_->CheckImage(selectedImage);

  Node* parent = root_.get();
  Node* after = parent->lastChild_;
  if (rel == nullptr) {
    if (relationship == tvwFirst) after = nullptr;
  } else {
    parent = relationship == tvwChild ? rel : rel->parent_;
    switch (relationship) {
      case tvwFirst:
        after = nullptr;
        break;
      case tvwNext:
        after = rel;
        break;
      case tvwPrevious:
        after = rel->prev_;
        break;
      default:
        after = parent->lastChild_;
        break;
    }
  }
  if (parent->sorted_) after = detail::SortedPlace(*parent, text);

  auto node = std::make_shared<Node>(Node::Token{}, tree_, key, text);
  node->image_ = image;
  node->selectedImage_ = selectedImage;
  detail::LinkAfter(*parent, after, *node);
  node->slot_ = slots_.size();
  if (compactPrefix_ == slots_.size()) ++compactPrefix_;
  slots_.push_back(node);
  if (!key.empty()) keys_.Insert(node.get(), keyHash);
  ++live_;
  tree_->ReportNode(Property::kNodeAdded, node.get());
  return node;
}

NodeRef Nodes::Item(int32_t index) const { return RefOf(At(index)); }

NodeRef Nodes::Item(StringView key) const {
  Node* node = keys_.Find(key);
  if (node == nullptr) Raise(aerr::kTreeElementNotFound);
  return RefOf(node);
}

NodeRef Nodes::Find(StringView key) const {
  Node* node = keys_.Find(key);
  return RefOf(node);
}

void Nodes::Remove(int32_t index) { RemoveNode(At(index)); }

void Nodes::Remove(StringView key) {
  Node* node = keys_.Find(key);
  if (node == nullptr) Raise(aerr::kTreeElementNotFound);
  RemoveNode(node);
}

void Nodes::Remove(const NodeRef& node) {
  if (!node || node->tree_ != tree_) Raise(aerr::kTreeElementNotFound);
  RemoveNode(node.get());
}

void Nodes::RemoveNode(Node* node) {
  bool selectionGoes = false;
  for (Node* n = tree_->selected_; n != nullptr; n = n->parent_) {
    if (n == node) {
      selectionGoes = true;
      break;
    }
  }
  Node* successor = node->next_ != nullptr ? node->next_ : node->prev_;
  if (successor == nullptr && node->parent_ != root_.get()) successor = node->parent_;

  tree_->ReportNode(Property::kNodeRemoving, node);
  detail::Unlink(*node);

  // Walk the subtree in pre-order, taking every node out of the slots and keys.
  size_t lowestSlot = std::numeric_limits<size_t>::max();
  doomed_.clear();
  for (Node* n = node; n != nullptr;) {
    if (!n->key_.empty()) keys_.Erase(n);
    lowestSlot = std::min(lowestSlot, n->slot_);
    doomed_.push_back(std::move(slots_[n->slot_]));
    if (n->firstChild_ != nullptr) {
      n = n->firstChild_;
      continue;
    }
    while (n != node && n->next_ == nullptr) n = n->parent_;
    n = n == node ? nullptr : n->next_;
  }
  for (const NodeRef& gone : doomed_) {
    gone->tree_ = nullptr;
    gone->parent_ = gone->firstChild_ = gone->lastChild_ = gone->prev_ = gone->next_ = nullptr;
    gone->childCount_ = 0;
  }
  live_ -= static_cast<int32_t>(doomed_.size());
  while (!slots_.empty() && !slots_.back()) slots_.pop_back();
  compactPrefix_ = std::min({compactPrefix_, lowestSlot, slots_.size()});
  doomed_.clear();

  if (selectionGoes) {
    tree_->selected_ = successor;
    tree_->ReportNode(Property::kSelectedItem, successor);
  }
}

void Nodes::Clear() {
  for (const NodeRef& node : slots_) {
    if (!node) continue;
    node->tree_ = nullptr;
    node->parent_ = node->firstChild_ = node->lastChild_ = node->prev_ = node->next_ = nullptr;
    node->childCount_ = 0;
  }
  slots_.clear();
  compactPrefix_ = 0;
  live_ = 0;
  keys_.Clear();
  root_->firstChild_ = root_->lastChild_ = nullptr;
  root_->childCount_ = 0;
  tree_->ReportNode(Property::kNodesCleared, nullptr);
  if (tree_->selected_ != nullptr) {
    tree_->selected_ = nullptr;
    tree_->ReportNode(Property::kSelectedItem, nullptr);
  }
}

}  // namespace vd::forms
