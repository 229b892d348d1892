#include "vd/forms/tree_view.h"

#include "vd/automation/error.h"
#include "vd/forms/constants.h"
#include "vd/forms/image_list.h"

namespace vd::forms {

TreeView::TreeView(Container& parent, String name) : Control(parent, std::move(name)), nodes_(*this) {}

TreeView::~TreeView() = default;

NodeRef TreeView::SelectedItem() const { return nodes_.RefOf(selected_); }

void TreeView::SetSelectedItem(const NodeRef& node) {
  if (node && node->tree_ != this) vd::automation::Raise(vd::automation::err::kTreeElementNotFound);
  Select(node.get());
}

void TreeView::Select(Node* node) {
  if (node != nullptr) {
    // As the native control: selecting a node inside a collapsed one shows it.
    for (Node* n = node->parent_; n != nullptr && n != nodes_.root_.get(); n = n->parent_) n->SetExpanded(true);
  }
  if (selected_ == node) return;
  selected_ = node;
  ReportNode(Property::kSelectedItem, node);
}

bool TreeView::Sorted() const { return nodes_.root_->sorted_; }

void TreeView::SetSorted(bool sorted) { nodes_.root_->SetSorted(sorted); }

void TreeView::SetImageList(forms::ImageList* images) {
  if (imageList_ == images) return;
  imageList_ = images;
  Notify(Property::kImageList);
}

void TreeView::CheckImage(int32_t image) const {
  if (image == 0) return;
  if (imageList_ == nullptr)
    vd::automation::Raise(err::kImageListNotInitialized, u"ImageList must be initialized before it can be used");
  if (image < 0 || image > imageList_->Count()) vd::automation::Raise(vd::automation::err::kTreeIndexOutOfBounds);
}

NodeRef TreeView::HitTest(float x, float y) const {
  if (hitTester) return hitTester(x, y);
  NodeRef node = hitNode_.lock();
  if (!node || node->Removed() || x != hitX_ || y != hitY_) return nullptr;
  return node;
}

bool TreeView::UserSelectNode(const NodeRef& node) {
  if (!node || node->tree_ != this || !UserFocus()) return false;
  // A focus handler may have rebuilt the tree or disabled it: the click is lost.
  if (node->tree_ != this || !CanUse()) return true;
  Select(node.get());
  Fire(onNodeClick, node);
  Fire(onClick);
  return true;
}

bool TreeView::UserCollapse(const NodeRef& node) {
  if (!node || node->tree_ != this || !node->expanded_ || node->childCount_ == 0 || !UserFocus()) return false;
  if (node->tree_ != this) return true;
  node->SetExpanded(false);
  Fire(onCollapse, node);
  return true;
}

bool TreeView::UserExpand(const NodeRef& node) {
  if (!node || node->tree_ != this || node->expanded_ || node->childCount_ == 0 || !UserFocus()) return false;
  if (node->tree_ != this) return true;
  node->SetExpanded(true);
  Fire(onExpand, node);
  return true;
}

bool TreeView::UserDoubleClickNode(const NodeRef& node) {
  if (node ? !UserSelectNode(node) : !UserClick()) return false;
  if (CanUse()) Fire(onDblClick);
  return true;
}

bool TreeView::UserMouseMove(int16_t button, int16_t shift, float x, float y, NodeRef nodeUnderMouse) {
  if (!CanUse()) return false;
  hitX_ = x;
  hitY_ = y;
  hitNode_ = nodeUnderMouse;
  Fire(onMouseMove, button, shift, x, y);
  return true;
}

}  // namespace vd::forms
