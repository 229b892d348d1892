#include "vd/forms/nodes.h"

#include <algorithm>

#include "node_links.h"
#include "vd/automation/conversions.h"
#include "vd/automation/error.h"
#include "vd/forms/tree_view.h"

namespace vd::forms {
namespace {
using vd::automation::Raise;
namespace aerr = vd::automation::err;
}  // namespace

Nodes::Nodes(TreeView& tree)
    : tree_(&tree), root_(std::make_shared<Node>(Node::Token{}, &tree, String(), String())), keys_(slots_) {
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
      // Children are mostly added one after the other under the same parent.
      if (lastRelative_ != nullptr && lastRelative_->key_ == relative.key_) return const_cast<Node*>(lastRelative_);
      Node* node = keys_.Find(relative.key_);
      if (node == nullptr) Raise(aerr::kTreeElementNotFound);
      lastRelative_ = node;
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
  if (gaps_ == 0) return slots_[static_cast<size_t>(index) - 1].get();
  // Descend the Fenwick tree to the slot that holds the index-th node.
  size_t pos = 0;
  int32_t rest = index;
  size_t step = 1;
  while (step * 2 <= counts_.size()) step *= 2;
  for (; step > 0; step /= 2) {
    if (pos + step <= counts_.size() && counts_[pos + step - 1] < rest) {
      pos += step;
      rest -= counts_[pos - 1];
    }
  }
  return slots_[pos].get();
}

int32_t Nodes::IndexOf(const Node& node) const {
  if (gaps_ == 0) return static_cast<int32_t>(node.slot_) + 1;
  int32_t index = 0;
  for (size_t pos = node.slot_ + 1; pos > 0; pos &= pos - 1) index += counts_[pos - 1];
  return index;
}

void Nodes::AppendSlot(NodeRef node) {
  // The new entry covers the slots (pos - lowbit(pos), pos]: its own 1 and the
  // entries of its Fenwick children pos - 1, pos - 2, pos - 4, ...
  const size_t pos = slots_.size() + 1;
  const size_t lowBit = pos & (~pos + 1);
  int32_t count = 1;
  for (size_t step = 1; step < lowBit; step *= 2) count += counts_[pos - step - 1];
  node->slot_ = slots_.size();
  slots_.push_back(std::move(node));
  counts_.push_back(count);
}

void Nodes::VacateSlot(size_t slot) {
  doomed_.push_back(std::move(slots_[slot]));
  ++gaps_;
  for (size_t pos = slot + 1; pos <= counts_.size(); pos += pos & (~pos + 1)) --counts_[pos - 1];
}

void Nodes::Compact() {
  size_t write = 0;
  for (size_t read = 0; read < slots_.size(); ++read) {
    if (!slots_[read]) continue;
    if (write != read) slots_[write] = std::move(slots_[read]);
    slots_[write]->slot_ = write;
    ++write;
  }
  slots_.resize(write);
  counts_.assign(write, 1);
  for (size_t pos = 1; pos <= write; ++pos) {
    const size_t up = pos + (pos & (~pos + 1));
    if (up <= write) counts_[up - 1] += counts_[pos - 1];
  }
  gaps_ = 0;
  keys_.Rebuild();  // it names nodes by their slots
}

void Nodes::Reserve(int32_t count) {
  if (count <= 0) return;
  const auto wanted = static_cast<size_t>(count);
  keys_.Reserve(wanted);
  // Gaps take slots until they are closed.
  if (wanted + gaps_ > slots_.capacity()) {
    slots_.reserve(wanted + gaps_);
    counts_.reserve(wanted + gaps_);
  }
}

NodeRef Nodes::Add(const NodeRelative& relative, int32_t relationship, StringView key, const NodeText& text,
                   int32_t image, int32_t selectedImage) {
  Node* rel = Resolve(relative);
  if (relationship < tvwFirst || relationship > tvwChild) Raise(aerr::kInvalidProcedureCall);
  const uint32_t keyHash = key.empty() ? 0 : detail::NodeKeyIndex::Hash(key);
  if (!key.empty()) keys_.Prefetch(keyHash);
  // Made before the key is probed, which mostly waits for memory; a node
  // that an error below refuses goes straight back to the pool.
  auto node = std::allocate_shared<Node>(detail::NodeAllocator<Node>(pool_), Node::Token{}, tree_, key, text.Take());
  size_t keySlot = 0;
  if (!key.empty() && keys_.FindForInsert(key, keyHash, keySlot) != nullptr) Raise(aerr::kTreeKeyNotUnique);
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
  if (parent->sorted_) after = detail::SortedPlace(*parent, node->text_);

  if (slots_.size() == slots_.capacity()) {
    slots_.reserve(slots_.size() * 2 + 16);
    counts_.reserve(slots_.capacity());
  }
  node->image_ = image;
  node->selectedImage_ = selectedImage;
  detail::LinkAfter(*parent, after, *node);
  Node* added = node.get();
  AppendSlot(node);
  if (!key.empty()) keys_.InsertAt(keySlot, *added, keyHash);
  ++live_;
  tree_->ReportNode(Property::kNodeAdded, added);
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
  lastRelative_ = nullptr;
  doomed_.clear();
  for (Node* n = node; n != nullptr;) {
    if (!n->key_.empty()) keys_.Erase(*n);
    VacateSlot(n->slot_);
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
  // Gaps at the end go at once (what is left of the Fenwick tree still counts
  // right); the rest once they are as many as the nodes.
  while (!slots_.empty() && !slots_.back()) {
    slots_.pop_back();
    counts_.pop_back();
    --gaps_;
  }
  if (gaps_ > static_cast<size_t>(live_)) Compact();
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
  counts_.clear();
  gaps_ = 0;
  live_ = 0;
  keys_.Clear();
  lastRelative_ = nullptr;
  root_->firstChild_ = root_->lastChild_ = nullptr;
  root_->childCount_ = 0;
  tree_->ReportNode(Property::kNodesCleared, nullptr);
  if (tree_->selected_ != nullptr) {
    tree_->selected_ = nullptr;
    tree_->ReportNode(Property::kSelectedItem, nullptr);
  }
}

}  // namespace vd::forms
