// What the user does to the tree's window, reported through the tree's User*
// entry points, and the robot's questions about the items.
#include "views/tree_mirror.h"

#include <windowsx.h>

#include <cstring>

#include "views/control_lookup.h"
#include "views/wide_text.h"

namespace vd::win32::views {

using vd::forms::NodeRef;

namespace {

int16_t MouseButtons(WPARAM keys) {
  int16_t buttons = 0;
  if ((keys & MK_LBUTTON) != 0) buttons |= 1;
  if ((keys & MK_RBUTTON) != 0) buttons |= 2;
  if ((keys & MK_MBUTTON) != 0) buttons |= 4;
  return buttons;
}

int16_t ShiftKeys(WPARAM keys) {
  int16_t shift = 0;
  if ((keys & MK_SHIFT) != 0) shift |= 1;
  if ((keys & MK_CONTROL) != 0) shift |= 2;
  if (GetKeyState(VK_MENU) < 0) shift |= 4;
  return shift;
}

}  // namespace

NodeRef TreeMirror::NodeAt(POINT point) const {
  TVHITTESTINFO hit{};
  hit.pt = point;
  const auto item = reinterpret_cast<HTREEITEM>(Send(TVM_HITTEST, 0, &hit));
  if (item == nullptr || (hit.flags & TVHT_ONITEM) == 0) return nullptr;
  return NodeOf(item);
}

void TreeMirror::OnButton(LPARAM lParam) {
  // A new press: nothing of it is reported yet. The window reports the
  // selection (by mouse) and the click in an order of its own.
  lastButton_ = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  clickReported_ = nullptr;
}

void TreeMirror::OnMouseMove(WPARAM wParam, LPARAM lParam) {
  const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  const int16_t buttons = MouseButtons(wParam);
  const int16_t shift = ShiftKeys(wParam);
  host_.UserAction([&] {
    tree_.UserMouseMove(buttons, shift, twips_.FromPixels(point.x), twips_.FromPixels(point.y), NodeAt(point));
  });
}

void TreeMirror::UserSelected(const NMTREEVIEWW& change) {
  // A selection from code (the form's or the window's own) is no click.
  if (change.action != TVC_BYMOUSE && change.action != TVC_BYKEYBOARD) return;
  if (change.action == TVC_BYMOUSE) clickReported_ = change.itemNew.hItem;
  UserSelectedNode(NodeOf(change.itemNew.hItem));
}

void TreeMirror::UserSelectedNode(const NodeRef& node) {
  if (!node) return;
  host_.UserAction([&] { tree_.UserSelectNode(node); });
  // The form may have refused the click (or its handlers selected another node).
  host_.Quietly([&] { Select(tree_.SelectedItem().get()); });
}

void TreeMirror::UserClicked() {
  // A click on the node that is selected already changes no selection, yet it
  // is a NodeClick all the same.
  TVHITTESTINFO hit{};
  hit.pt = lastButton_;
  const auto item = reinterpret_cast<HTREEITEM>(Send(TVM_HITTEST, 0, &hit));
  if (item == nullptr || (hit.flags & TVHT_ONITEM) == 0 || item == clickReported_) return;
  const auto selected = reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_CARET, 0));
  if (item != selected) return;  // the selection change reports this click
  clickReported_ = item;
  UserSelectedNode(NodeOf(item));
}

void TreeMirror::UserDoubleClicked() {
  const NodeRef node = NodeAt(lastButton_);
  host_.UserAction([&] { tree_.UserDoubleClickNode(node); });
}

void TreeMirror::UserExpanded(const NMTREEVIEWW& change) {
  Item* item = Find(change.itemNew.hItem);
  if (item == nullptr) return;
  item->expanded = (change.itemNew.state & TVIS_EXPANDED) != 0;
  const NodeRef node = NodeOf(item->handle);
  if ((change.action & TVE_COLLAPSE) != 0) {
    host_.UserAction([&] { tree_.UserCollapse(node); });
  } else if ((change.action & TVE_EXPAND) != 0) {
    host_.UserAction([&] { tree_.UserExpand(node); });
  }
  // The handlers may have rebuilt the tree, or the form may have refused:
  // the window shows what the form holds.
  host_.Quietly([&] {
    if (Item* again = Find(node.get())) {
      ShowExpanded(*again);
      ShowImages(*again);
    }
  });
}

bool TreeMirror::OnNotify(const NMHDR& header, LRESULT& result) {
  switch (header.code) {
    case TVN_SELCHANGEDW:
      UserSelected(reinterpret_cast<const NMTREEVIEWW&>(header));
      return true;
    case TVN_ITEMEXPANDEDW:
      UserExpanded(reinterpret_cast<const NMTREEVIEWW&>(header));
      return true;
    case NM_CLICK:
      UserClicked();
      return true;
    case NM_DBLCLK:
      UserDoubleClicked();
      result = TRUE;  // a double click does not toggle the node
      return true;
    default:
      return false;
  }
}

LRESULT TreeMirror::AnswerQuery(WPARAM query, LPARAM argument) {
  switch (query) {
    case kFindNode: {
      wchar_t key[256];
      const UINT length = GlobalGetAtomNameW(static_cast<ATOM>(argument), key, 256);
      const NodeRef node = tree_.Nodes().Find(FromWide(key, length));
      return node ? reinterpret_cast<LRESULT>(ItemOf(*node)) : 0;
    }
    case kNodeClickPoint: {
      const Item* item = Find(reinterpret_cast<HTREEITEM>(argument));
      if (item == nullptr || !item->node->Displayed()) return 0;
      host_.Quietly([&] {
        Flush();
        Send(TVM_ENSUREVISIBLE, 0, item->handle);
      });
      RECT text{};
      // The window reads the item handle itself (not what it points at) from the rectangle.
      std::memcpy(&text, &item->handle, sizeof(item->handle));  // NOLINT(bugprone-sizeof-expression)
      if (Send(TVM_GETITEMRECT, TRUE, &text) == FALSE) return 0;
      return MAKELPARAM((text.left + text.right) / 2, (text.top + text.bottom) / 2);
    }
    case kSelectedKey: {
      const auto selected = reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_CARET, 0));
      const NodeRef node = NodeOf(selected);
      if (!node || node->Key().empty()) return 0;
      return GlobalAddAtomW(Wide(node->Key()));
    }
    default:
      return 0;
  }
}

}  // namespace vd::win32::views
