#pragma once
// A tree view's nodes as the items of a Win32 tree view, both ways: the
// form's changes become item changes at once, and what the user does to the
// items (clicks, keys, the plus and minus signs, double clicks, the mouse
// moving) reaches the tree's User* entry points.
//
// Every node maps to its item and back in constant time. Adding, removing and
// reordering run with the window's redraw off; it comes back on at Flush,
// which the view runs once the handler that rebuilt the tree has returned.
// (The window lays out its items only with redraw on, so scrolling to a node
// waits for Flush too, and so does opening or closing an item meanwhile.)
#include <windows.h>
// after windows.h
#include <commctrl.h>

#include <deque>
#include <type_traits>
#include <vector>

#include "vd/forms/tree_view.h"
#include "views/mirror_host.h"
#include "views/pointer_table.h"
#include "views/twips.h"

namespace vd::win32::views {

class TreeMirror {
 public:
  // windowProc: the tree class's own procedure, which the mirror calls
  // directly (its own changes need no look by the view's subclass).
  TreeMirror(vd::forms::TreeView& tree, HWND window, WNDPROC windowProc, MirrorHost& host, const Twips& twips);
  TreeMirror(const TreeMirror&) = delete;
  TreeMirror& operator=(const TreeMirror&) = delete;
  ~TreeMirror();

  // Every node of the tree, as it stands now.
  void Rebuild();
  // One change the form reported (a node property, the selection, the order).
  void Apply(const vd::forms::Change& change);
  // Redraw on again after a run of changes.
  void Flush();
  void SetImages(HIMAGELIST images);

  // What the window reports: answers whether the notification was handled and its result.
  bool OnNotify(const NMHDR& header, LRESULT& result);
  // A mouse button goes down or double-clicks at lParam (before the window handles it).
  void OnButton(LPARAM lParam);
  void OnMouseMove(WPARAM wParam, LPARAM lParam);
  // The robot's questions (see control_lookup.h).
  LRESULT AnswerQuery(WPARAM query, LPARAM argument);

  [[nodiscard]] HTREEITEM ItemOf(const vd::forms::Node& node) const;
  [[nodiscard]] vd::forms::NodeRef NodeOf(HTREEITEM item) const;
  [[nodiscard]] size_t ItemCount() const { return byNode_.Size(); }
  [[nodiscard]] bool RedrawSuspended() const { return batching_; }

 private:
  struct Item {
    HTREEITEM handle = nullptr;
    vd::forms::Node* node = nullptr;
    int32_t order = 0;           // position among its siblings, while they are sorted
    bool expanded = false;       // as the window shows it
    bool expandPending = false;  // in expandAtFlush_
  };

  static int CALLBACK CompareOrder(LPARAM first, LPARAM second, LPARAM unused) noexcept;
  LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const;
  template <class Argument>
  LRESULT Send(UINT message, WPARAM wParam, Argument* argument) const {
    return Send(message, wParam, reinterpret_cast<LPARAM>(argument));
  }
  [[nodiscard]] Item* Find(const vd::forms::Node* node) const { return byNode_.Find(node); }
  [[nodiscard]] Item* Find(HTREEITEM handle) const { return byHandle_.Find(handle); }
  Item& NewItem();
  void Forget(Item& item);
  [[nodiscard]] vd::forms::NodeRef FirstTopLevel() const;
  void BeginBatch();
  Item& Insert(vd::forms::Node& node, HTREEITEM parent, HTREEITEM after);
  void Add(vd::forms::Node& node);
  void Remove(const vd::forms::Node& node);
  void Clear();
  void Reorder(const vd::forms::Node* parent);
  void Select(const vd::forms::Node* node);
  void EnsureVisible(const vd::forms::Node* node);
  void ShowText(const Item& item);
  void ShowImages(const Item& item);
  void ShowExpanded(Item& item);
  [[nodiscard]] vd::forms::NodeRef NodeAt(POINT point) const;

  void UserSelected(const NMTREEVIEWW& change);
  void UserSelectedNode(const vd::forms::NodeRef& node);
  void UserClicked();
  void UserDoubleClicked();
  void UserExpanded(const NMTREEVIEWW& change);

  vd::forms::TreeView& tree_;
  HWND window_;
  WNDPROC windowProc_;
  MirrorHost& host_;
  const Twips& twips_;
  std::deque<Item> items_;  // items keep their address (an item's lParam points at it)
  std::vector<Item*> freeItems_;
  PointerTable<vd::forms::Node, Item> byNode_;
  PointerTable<std::remove_pointer_t<HTREEITEM>, Item> byHandle_;
  bool batching_ = false;
  const vd::forms::Node* pendingVisible_ = nullptr;  // to scroll into view once the window lays out again
  // Items to open or close at Flush: a window lays out every item below an
  // open parent again at each insert, so children go in under closed parents.
  std::vector<Item*> expandAtFlush_;
  POINT lastButton_{};                 // where the last button press of the mouse landed
  HTREEITEM clickReported_ = nullptr;  // the item this press already reported as clicked
};

}  // namespace vd::win32::views
