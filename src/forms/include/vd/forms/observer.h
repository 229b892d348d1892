#pragma once
// How a view learns that something it mirrors has changed. Every assignment
// that changes a value reports one Change after the value is stored and before
// any event handler runs; an assignment of the value already held reports nothing.
#include <cstdint>

namespace vd::forms {

class Control;
class Form;
class Node;

enum class Property : uint8_t {
  // Any control, and the form itself.
  kCaption,
  kVisible,
  kEnabled,
  kLeft,
  kTop,
  kWidth,
  kHeight,
  kToolTipText,
  kTag,
  kMousePointer,
  // Text, values and selections.
  kText,
  kValue,
  kListIndex,
  kListItemAdded,    // index: the new entry's position
  kListItemRemoved,  // index: the position it had
  kListItemChanged,  // index: the entry whose text changed
  kListCleared,
  kItemData,  // index: the entry
  kMin,
  kMax,
  kSimpleText,
  kPanelText,  // index: the 1-based panel
  kStyle,
  kImageAdded,  // index: the 1-based image
  kImagesCleared,
  // The tree; node names the node.
  kImageList,
  kSorted,  // the tree's own Sorted (top-level order)
  kSelectedItem,
  kNodeAdded,
  kNodeRemoving,  // reported before the node and its subtree leave the tree
  kNodesCleared,
  kNodeText,
  kNodeImage,
  kNodeExpandedImage,
  kNodeSelectedImage,
  kNodeExpanded,
  kNodeSorted,
  kNodeOrder,  // the children of node (nullptr: the top-level nodes) were reordered
  kNodeEnsureVisible,
  // The form only.
  kKeyPreview,
  kActiveControl,
  kLoaded,
};

struct Change {
  Form* form = nullptr;
  Control* control = nullptr;  // nullptr when the change is the form's own
  Property property = Property::kCaption;
  int32_t index = -1;
  const Node* node = nullptr;
};

class PropertyObserver {
 public:
  PropertyObserver() = default;
  PropertyObserver(const PropertyObserver&) = default;
  PropertyObserver& operator=(const PropertyObserver&) = default;
  virtual ~PropertyObserver() = default;
  virtual void PropertyChanged(const Change& change) = 0;
};

}  // namespace vd::forms
