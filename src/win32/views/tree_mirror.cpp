#include "views/tree_mirror.h"

#include <utility>
#include <vector>

#include "views/wide_text.h"

namespace vd::win32::views {

using vd::forms::Node;
using vd::forms::NodeRef;
using vd::forms::Property;

namespace {

// The image the window shows for a node (index into the image list), none: I_IMAGENONE.
int ShownImage(const Node& node) {
  const int32_t image = node.Expanded() && node.ExpandedImage() != 0 ? node.ExpandedImage() : node.Image();
  return image != 0 ? image - 1 : I_IMAGENONE;
}
int ShownSelectedImage(const Node& node) {
  return node.SelectedImage() != 0 ? node.SelectedImage() - 1 : ShownImage(node);
}

}  // namespace

int CALLBACK TreeMirror::CompareOrder(LPARAM first, LPARAM second, LPARAM /*unused*/) noexcept {
  return reinterpret_cast<const Item*>(first)->order - reinterpret_cast<const Item*>(second)->order;
}

TreeMirror::TreeMirror(vd::forms::TreeView& tree, HWND window, WNDPROC windowProc, MirrorHost& host, const Twips& twips)
    : tree_(tree), window_(window), windowProc_(windowProc), host_(host), twips_(twips) {
  // HitTest asks the window, so that the form sees the node the user sees.
  tree_.hitTester = [this](float x, float y) { return NodeAt({twips_.ToPixels(x), twips_.ToPixels(y)}); };
}

TreeMirror::~TreeMirror() { tree_.hitTester = nullptr; }

LRESULT TreeMirror::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
  return windowProc_ != nullptr ? CallWindowProcW(windowProc_, window_, message, wParam, lParam)
                                : SendMessageW(window_, message, wParam, lParam);
}

TreeMirror::Item& TreeMirror::NewItem() {
  if (freeItems_.empty()) return items_.emplace_back();
  Item& item = *freeItems_.back();
  freeItems_.pop_back();
  item = Item{};
  return item;
}

void TreeMirror::Forget(Item& item) {
  byHandle_.Erase(item.handle);
  byNode_.Erase(item.node);
  if (item.node == pendingVisible_) pendingVisible_ = nullptr;
  item = Item{};
  freeItems_.push_back(&item);
}

HTREEITEM TreeMirror::ItemOf(const Node& node) const {
  const Item* item = Find(&node);
  return item != nullptr ? item->handle : nullptr;
}

NodeRef TreeMirror::NodeOf(HTREEITEM handle) const {
  const Item* item = handle != nullptr ? Find(handle) : nullptr;
  // The collection holds the shared reference; a node's index leads to it in constant time.
  return item != nullptr ? tree_.Nodes().Item(item->node->Index()) : nullptr;
}

NodeRef TreeMirror::FirstTopLevel() const {
  if (tree_.Nodes().Count() == 0) return nullptr;
  NodeRef node = tree_.Nodes().Item(1);
  while (NodeRef parent = node->Parent()) node = std::move(parent);
  return node->FirstSibling();
}

void TreeMirror::BeginBatch() {
  if (batching_) return;
  batching_ = true;
  Send(WM_SETREDRAW, FALSE, 0);
  host_.RequestFlush();
}

void TreeMirror::Flush() {
  if (!batching_) return;
  batching_ = false;
  const std::vector<Item*> expand = std::move(expandAtFlush_);
  expandAtFlush_.clear();
  for (Item* item : expand) {
    item->expandPending = false;
    if (item->node != nullptr) ShowExpanded(*item);
  }
  Send(WM_SETREDRAW, TRUE, 0);
  // The window lays its items out again only now: scroll to the node asked for meanwhile.
  if (const Item* item = pendingVisible_ != nullptr ? Find(pendingVisible_) : nullptr)
    Send(TVM_ENSUREVISIBLE, 0, item->handle);
  pendingVisible_ = nullptr;
  InvalidateRect(window_, nullptr, TRUE);
}

void TreeMirror::EnsureVisible(const Node* node) {
  if (batching_) {
    pendingVisible_ = node;
    return;
  }
  if (const Item* item = Find(node)) Send(TVM_ENSUREVISIBLE, 0, item->handle);
}

void TreeMirror::SetImages(HIMAGELIST images) { Send(TVM_SETIMAGELIST, TVSIL_NORMAL, images); }

TreeMirror::Item& TreeMirror::Insert(Node& node, HTREEITEM parent, HTREEITEM after) {
  Item& item = NewItem();
  item.node = &node;
  TVINSERTSTRUCTW insert{};
  insert.hParent = parent;
  insert.hInsertAfter = after;
  insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  insert.item.pszText = const_cast<wchar_t*>(Wide(node.Text()));
  insert.item.iImage = ShownImage(node);
  insert.item.iSelectedImage = ShownSelectedImage(node);
  insert.item.lParam = reinterpret_cast<LPARAM>(&item);
  item.handle = reinterpret_cast<HTREEITEM>(Send(TVM_INSERTITEMW, 0, &insert));
  byNode_.Insert(&node, &item);
  byHandle_.Insert(item.handle, &item);
  return item;
}

void TreeMirror::Rebuild() {
  BeginBatch();
  Clear();
  byNode_.Reserve(static_cast<size_t>(tree_.Nodes().Count()));
  byHandle_.Reserve(static_cast<size_t>(tree_.Nodes().Count()));
  // Breadth first: every parent is in the window before its children, and
  // siblings come in their order, each last under its parent.
  std::vector<NodeRef> pending;
  for (NodeRef node = FirstTopLevel(); node; node = node->Next()) pending.push_back(node);
  std::vector<Item*> expanded;
  for (size_t next = 0; next < pending.size();) {
    NodeRef node = std::move(pending[next++]);
    Item* parent = node->Parent() ? Find(node->Parent().get()) : nullptr;
    Item& item = Insert(*node, parent != nullptr ? parent->handle : TVI_ROOT, TVI_LAST);
    if (node->Expanded() && node->Children() > 0) expanded.push_back(&item);
    for (NodeRef child = node->Child(); child; child = child->Next()) pending.push_back(child);
  }
  for (Item* item : expanded) ShowExpanded(*item);
  Select(tree_.SelectedItem().get());
}

void TreeMirror::Add(Node& node) {
  const NodeRef parentNode = node.Parent();
  Item* parent = parentNode ? Find(parentNode.get()) : nullptr;
  if (parentNode && parent == nullptr) return;  // not a node of this window
  // First and last need no handle of a sibling, which the window would look up.
  HTREEITEM after = TVI_LAST;
  if (const NodeRef previous = node.Previous()) {
    if (node.Next()) {
      const Item* sibling = Find(previous.get());
      if (sibling != nullptr) after = sibling->handle;
    }
  } else {
    after = TVI_FIRST;
  }
  Insert(node, parent != nullptr ? parent->handle : TVI_ROOT, after);
  if (parent != nullptr) ShowExpanded(*parent);
}

void TreeMirror::Remove(const Node& node) {
  Item* item = Find(&node);
  if (item == nullptr) return;
  // The node is still linked: its parent counts it among its children.
  const NodeRef parentNode = node.Parent();
  Send(TVM_DELETEITEM, 0, item->handle);
  std::vector<const Node*> subtree{&node};
  while (!subtree.empty()) {
    const Node* gone = subtree.back();
    subtree.pop_back();
    for (NodeRef child = gone->Child(); child; child = child->Next()) subtree.push_back(child.get());
    if (Item* goneItem = Find(gone)) Forget(*goneItem);
  }
  if (parentNode && parentNode->Children() == 1) {
    if (Item* parent = Find(parentNode.get())) parent->expanded = false;  // nothing left to show expanded
  }
}

void TreeMirror::Clear() {
  Send(TVM_DELETEITEM, 0, TVI_ROOT);
  byNode_.Clear();
  byHandle_.Clear();
  items_.clear();
  freeItems_.clear();
  expandAtFlush_.clear();
  pendingVisible_ = nullptr;
}

void TreeMirror::Reorder(const Node* parent) {
  HTREEITEM parentHandle = TVI_ROOT;
  NodeRef first = FirstTopLevel();
  if (parent != nullptr) {
    const Item* item = Find(parent);
    if (item == nullptr) return;
    parentHandle = item->handle;
    first = parent->Child();
  }
  int32_t order = 0;
  for (NodeRef node = first; node; node = node->Next()) {
    if (Item* item = Find(node.get())) item->order = order++;
  }
  TVSORTCB sort{parentHandle, CompareOrder, 0};
  Send(TVM_SORTCHILDRENCB, 0, &sort);
}

void TreeMirror::Select(const Node* node) {
  const Item* item = node != nullptr ? Find(node) : nullptr;
  Send(TVM_SELECTITEM, TVGN_CARET, item != nullptr ? item->handle : nullptr);
  if (batching_ && item != nullptr) pendingVisible_ = node;  // the selection is scrolled to once laid out
}

void TreeMirror::ShowText(const Item& item) {
  TVITEMW change{};
  change.mask = TVIF_TEXT;
  change.hItem = item.handle;
  change.pszText = const_cast<wchar_t*>(Wide(item.node->Text()));
  Send(TVM_SETITEMW, 0, &change);
}

void TreeMirror::ShowImages(const Item& item) {
  TVITEMW change{};
  change.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  change.hItem = item.handle;
  change.iImage = ShownImage(*item.node);
  change.iSelectedImage = ShownSelectedImage(*item.node);
  Send(TVM_SETITEMW, 0, &change);
}

void TreeMirror::ShowExpanded(Item& item) {
  if (batching_) {
    if (!item.expandPending) expandAtFlush_.push_back(&item);
    item.expandPending = true;
    return;
  }
  // A node expanded before it has children shows expanded once they come.
  const bool expanded = item.node->Expanded() && item.node->Children() > 0;
  if (expanded == item.expanded) return;
  item.expanded = expanded;
  Send(TVM_EXPAND, expanded ? TVE_EXPAND : TVE_COLLAPSE, item.handle);
}

void TreeMirror::Apply(const vd::forms::Change& change) {
  auto* node = const_cast<Node*>(change.node);
  switch (change.property) {
    case Property::kNodeAdded:
      BeginBatch();
      Add(*node);
      return;
    case Property::kNodeRemoving:
      BeginBatch();
      Remove(*node);
      return;
    case Property::kNodesCleared:
      BeginBatch();
      Clear();
      return;
    case Property::kNodeOrder:
      BeginBatch();
      Reorder(node);
      return;
    case Property::kSelectedItem:
      Select(node);
      return;
    default:
      break;
  }
  Item* item = node != nullptr ? Find(node) : nullptr;
  if (item == nullptr) return;
  switch (change.property) {
    case Property::kNodeText:
      ShowText(*item);
      break;
    case Property::kNodeImage:
    case Property::kNodeExpandedImage:
    case Property::kNodeSelectedImage:
      ShowImages(*item);
      break;
    case Property::kNodeExpanded:
      ShowExpanded(*item);
      ShowImages(*item);
      break;
    case Property::kNodeEnsureVisible:
      EnsureVisible(node);
      break;
    default:
      break;
  }
}

}  // namespace vd::win32::views
