#pragma once
// A tree view over its Nodes collection. Selecting a node from code (Selected,
// SelectedItem) raises nothing; NodeClick, Collapse, Expand, DblClick,
// MouseMove and KeyPress come from the user through the User* entry points.
#include <functional>

#include "vd/forms/control.h"
#include "vd/forms/node.h"
#include "vd/forms/nodes.h"

namespace vd::forms {

class ImageList;

class TreeView : public Control {
 public:
  TreeView(Container& parent, String name);
  ~TreeView() override;
  [[nodiscard]] ControlKind Kind() const override { return ControlKind::kTreeView; }
  [[nodiscard]] bool TakesFocus() const override { return true; }

  [[nodiscard]] forms::Nodes& Nodes() { return nodes_; }
  [[nodiscard]] const forms::Nodes& Nodes() const { return nodes_; }

  // nullptr when no node is selected.
  [[nodiscard]] NodeRef SelectedItem() const;
  // As the node's Selected = True; nullptr clears the selection.
  void SetSelectedItem(const NodeRef& node);

  // Sorted for the top-level nodes.
  [[nodiscard]] bool Sorted() const;
  void SetSorted(bool sorted);

  [[nodiscard]] forms::ImageList* ImageList() const { return imageList_; }
  void SetImageList(forms::ImageList* images);

  // The node at a point of the tree, nullptr for none: asked of hitTester when
  // a view installs one, else the node that the last UserMouseMove named for
  // that very point.
  [[nodiscard]] NodeRef HitTest(float x, float y) const;
  std::function<NodeRef(float x, float y)> hitTester;

  std::function<void(const NodeRef& node)> onNodeClick;
  std::function<void(const NodeRef& node)> onCollapse;
  std::function<void(const NodeRef& node)> onExpand;

  // A click on a node: the focus comes here, the node becomes the selected
  // item, then NodeClick and Click fire (also when it was selected already).
  bool UserSelectNode(const NodeRef& node);
  // A click on a node's minus sign: only for an expanded node with children.
  // The node collapses (taking the selection from a node below it), then Collapse.
  bool UserCollapse(const NodeRef& node);
  // A click on the plus sign: only for a collapsed node with children.
  bool UserExpand(const NodeRef& node);
  // A double click on a node (its click first, then DblClick), or with nullptr
  // on the tree where there is no node (Click, then DblClick). The expansion
  // of the node does not toggle.
  bool UserDoubleClickNode(const NodeRef& node);
  // The mouse moves over the point (x, y), where nodeUnderMouse lies (nullptr:
  // none); HitTest at that point answers it while MouseMove runs and after.
  bool UserMouseMove(int16_t button, int16_t shift, float x, float y, NodeRef nodeUnderMouse);
  using Control::UserMouseMove;

 private:
  friend class forms::Node;
  friend class forms::Nodes;

  void Select(Node* node);
  void ReportNode(Property property, const Node* node) { Notify(property, -1, node); }
  void CheckImage(int32_t image) const;

  forms::Nodes nodes_;
  Node* selected_ = nullptr;
  forms::ImageList* imageList_ = nullptr;
  float hitX_ = 0;
  float hitY_ = 0;
  std::weak_ptr<Node> hitNode_;
};

}  // namespace vd::forms
