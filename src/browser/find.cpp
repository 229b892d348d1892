// Finding a data source or variable by its name: the find dialog, the keys
// that reach the search from anywhere in the dialog, and the walk over the tree.
#include "browser/frm_data_browser.h"
#include "browser/frm_find_dialog.h"
#include "browser/object_access.h"
#include "platform/services.h"
#include "vd/automation/text.h"

namespace vd::browser {
namespace {

// The next node of a pre-order walk, nullptr after the last one. Data source
// nodes hold variable nodes only, so the walk is two levels deep.
forms::NodeRef NextNodeDown(const forms::Node& node) {
  if (node.Children() > 0) return node.Child();  // expanded or not
  if (forms::NodeRef next = node.Next()) return next;
  const forms::NodeRef parent = node.Parent();
  if (!parent) return nullptr;
  return parent->Next();  // nullptr when the parent is the last of its siblings
}

// The previous node of that walk, nullptr before the first one.
forms::NodeRef NextNodeUp(const forms::Node& node) {
  forms::NodeRef previous = node.Previous();
  if (!previous) return node.Parent();
  if (previous->Children() > 0) return previous->Child()->LastSibling();
  return previous;
}

// The pointer a form shows while it lives; the default pointer again at its end.
class PointerWhile {
 public:
  PointerWhile(forms::Form& form, int16_t pointer) : form_(form) { form_.SetMousePointer(pointer); }
  PointerWhile(const PointerWhile&) = delete;
  PointerWhile& operator=(const PointerWhile&) = delete;
  ~PointerWhile() { form_.SetMousePointer(forms::vbDefault); }

 private:
  forms::Form& form_;
};

}  // namespace

frmFindDialog& frmDataBrowser::FindDialog() {
  if (!findDialog) findDialog = std::make_unique<frmFindDialog>();
  findDialog->Load();
  return *findDialog;
}

void frmDataBrowser::Form_KeyDown(int16_t& keyCode, int16_t shift) {
  if (keyCode == forms::vbKeyF3) {
    frmFindDialog& find = FindDialog();
    if (find.cboFindWhat.Text().empty()) {
      cmdFind_Click();  // nothing confirmed yet: ask for the text
      return;
    }
    bool down = find.optDown.Value();
    if ((shift & forms::vbShiftMask) != 0) down = !down;
    FindNode(find.cboFindWhat.Text(), find.chkMatchCase.Value() != forms::vbUnchecked,
             find.chkFindWholeWord.Value() != forms::vbUnchecked, down);
  } else if (keyCode == forms::vbKeyF && (shift & forms::vbCtrlMask) != 0) {
    cmdFind_Click();
  }
}

void frmDataBrowser::cmdFind_Click() {
  frmFindDialog& find = FindDialog();
  find.Show(true, this);
  if (find.Cancelled) return;
  FindNode(find.cboFindWhat.Text(), find.chkMatchCase.Value() != forms::vbUnchecked,
           find.chkFindWholeWord.Value() != forms::vbUnchecked, find.optDown.Value());
}

void frmDataBrowser::FindNode(const String& text, bool matchCase, bool wholeWord, bool down) {
  forms::NodeRef node = treDataSources.SelectedItem();
  if (!node) {
    if (treDataSources.Nodes().Count() == 0) {
      services.ui.MsgBox(u"There are no objects to search.", forms::vbOKOnly, Caption());
      return;
    }
    node = treDataSources.Nodes().Item(1);
  }

  forms::NodeRef found;
  {
    const PointerWhile hourglass(*this, forms::vbHourglass);
    // The start node is never tested, and the walk does not wrap around.
    for (node = down ? NextNodeDown(*node) : NextNodeUp(*node); node;
         node = down ? NextNodeDown(*node) : NextNodeUp(*node)) {
      if (NodeMatches(node, text, matchCase, wholeWord)) {
        found = node;
        break;
      }
    }
  }

  if (!found) {
    services.ui.MsgBox(u"Cannot find \"" + text + u"\"", forms::vbOKOnly + forms::vbInformation, Caption());
    return;
  }
  // Selected without the click handling: the panels stay until the user clicks.
  found->EnsureVisible();
  found->SetSelected(true);
}

bool frmDataBrowser::NodeMatches(const forms::NodeRef& node, const String& text, bool matchCase, bool wholeWord) {
  const String& nodeText = Obj(node).Text();
  if (wholeWord) return matchCase ? nodeText == text : automation::EqualsIgnoreCase(nodeText, text);
  return matchCase ? nodeText.find(text) != String::npos : automation::ContainsIgnoreCase(nodeText, text);
}

}  // namespace vd::browser
