// The commands that change the display's data sources through the tree: add,
// delete, move, sort, and the view-only sort and expansion of the tree.
//
// Every change goes to the display's objects first; the tree is then rebuilt
// from them (the whole tree when the list of data sources changed, one data
// source's variable nodes otherwise). The toolkit alone decides whether a move
// or a delete is possible: a refusal changes nothing and shows nothing.
#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "platform/services.h"
#include "vd/automation/text.h"

namespace vd::browser {
namespace {

// The kind of data source whose creation text names the entry itself.
constexpr int32_t kNamedByEntryKind = 5;
// The name the toolkit gives a new custom data source.
constexpr char16_t kDefaultCustomName[] = u"default.custom";

}  // namespace

void frmDataBrowser::WireTreeCommands() {
  cmdAddDs.onClick = [this] { cmdAddDs_Click(); };
  cmdAddDsv.onClick = [this] { cmdAddDsv_Click(); };
  cmdDelete.onClick = [this] { cmdDelete_Click(); };
  cmdMoveUp.onClick = [this] { cmdMoveUp_Click(); };
  cmdMoveDown.onClick = [this] { cmdMoveDown_Click(); };
  cmdSort.onClick = [this] { cmdSort_Click(); };
  chkSort.onClick = [this] { chkSort_Click(); };
  chkExpandAll.onClick = [this] { chkExpandAll_Click(); };
}

void frmDataBrowser::SetDsSortFlag(int32_t n, bool value) {
  DsSortFlags.AddAfter(n, value);
  DsSortFlags.Remove(n);
}

void frmDataBrowser::ExchangeDsSortFlags(int32_t oldIndex, int32_t newIndex) {
  // Taken from the nodes as they stand before the rebuild.
  forms::Nodes& nodes = treDataSources.Nodes();
  const bool oldSorted = nodes.Item(oldIndex)->Sorted();
  const bool newSorted = nodes.Item(newIndex)->Sorted();
  SetDsSortFlag(newIndex, oldSorted);
  SetDsSortFlag(oldIndex, newSorted);
}

void frmDataBrowser::RefreshSelectedDsNode() {
  const int16_t ds = GetCurrentDsIndex();
  if (ds < 0) return;
  int16_t index = -1;
  const toolkit::DsvRef dsv = SelectedNodeDsv(&index);
  if (dsv) {
    RebuildDsvNodes(ds, index);
  } else {
    RebuildDsvNodes(ds);
  }
}

// --- Add ---

void frmDataBrowser::cmdAddDs_Click() {
  const int32_t kind = cboDsAdd.ItemData(cboDsAdd.ListIndex());
  const String entry = cboDsAdd.List(cboDsAdd.ListIndex());
  toolkit::DsRef ds;
  if (kind == toolkit::kind::kCustom) {
    if (!CustomDsClasses) automation::Raise(automation::err::kObjectNotSet);
    const String className = CustomDsClasses->Item(entry);
    ds = Obj(dsList).AddDs(kind, className);
    if (ds && ds->GetDsName() == kDefaultCustomName) ds->SetDsName(entry + u".custom");
  } else if (kind == kNamedByEntryKind) {
    ds = Obj(dsList).AddDs(kind, entry);
  } else {
    ds = Obj(dsList).AddDs(kind, u"");
  }
  if (!ds) return;
  dsNodeCount = ToInteger(int32_t{dsNodeCount} + 1);
  DsSortFlags.Add(false);
  // The toolkit puts the new data source last: select it and show its panel.
  RebuildTreeAndSelectDs(dsNodeCount);
  modified = true;
}

void frmDataBrowser::cmdAddDsv_Click() {
  const int16_t ds = GetCurrentDsIndex();
  const toolkit::DsvListRef vars = Obj(Obj(dsList).DsItem(ds)).GetDsVars();
  const toolkit::DsvRef dsv = Obj(vars).AddDsv();
  if (!dsv) return;
  modified = true;
  // The toolkit names the new variable and appends it last.
  RebuildDsvNodes(ds, ToInteger(vars->DsvCount()));
}

// --- Delete ---

void frmDataBrowser::cmdDelete_Click() {
  const int32_t selectedIndex = Obj(treDataSources.SelectedItem()).Index();
  bool deleted = false;
  if (selectedIndex <= dsNodeCount) {
    const int32_t dsIndex = selectedIndex;
    deleted = DeleteSelectedDs();
    if (deleted) {
      modified = true;
      DsSortFlags.Remove(dsIndex);
    }
  } else {
    deleted = DeleteSelectedDsv();
    if (deleted) modified = true;
  }

  // The view sort box follows the new selection's data source.
  forms::NodeRef selected = treDataSources.SelectedItem();
  if (!selected) {
    chkSort.SetValue(forms::vbUnchecked);
    return;
  }
  if (const forms::NodeRef parent = selected->Parent()) selected = parent;
  chkSort.SetValue(DsSortFlags.Item(selected->Index()) ? forms::vbChecked : forms::vbUnchecked);
}

bool frmDataBrowser::IsDsvInUse(const toolkit::DsvRef& dsv) { return Obj(dsv).GetDsvUseCount() >= 1; }

bool frmDataBrowser::IsDsInUse(const toolkit::DsRef& ds) {
  const toolkit::DsvListRef vars = Obj(ds).GetDsVars();
  const int16_t count = ToInteger(Obj(vars).DsvCount());
  for (int32_t i = 1; i <= count; ++i) {
    if (IsDsvInUse(vars->DsvItem(i))) return true;
  }
  return false;
}

bool frmDataBrowser::DeleteSelectedDs() {
  const int32_t index = Obj(treDataSources.SelectedItem()).Index();
  const toolkit::DsRef ds = Obj(dsList).DsItem(index);
  if (IsDsInUse(ds)) {
    services.ui.MsgBox(u"The data source \"" + Obj(ds).GetDsName() + u"\" is in use.",
                       forms::vbOKOnly + forms::vbExclamation, Caption());
    return false;
  }
  const bool removed = Obj(ds).RemoveDs();
  if (removed) {
    RebuildTree(0);  // out of range: the first node
    modified = true;
  }
  return removed;
}

bool frmDataBrowser::DeleteSelectedDsv() {
  const int16_t ds = GetCurrentDsIndex();
  int16_t index = -1;
  const toolkit::DsvRef dsv = SelectedNodeDsv(&index);
  if (IsDsvInUse(dsv)) {
    services.ui.MsgBox(u"The data variable \"" + Obj(dsv).GetDsvName() + u"\" is in use.",
                       forms::vbOKOnly + forms::vbExclamation, Caption());
    return false;
  }
  const bool removed = Obj(dsv).RemoveDsv();
  if (removed) {
    CurrentDsv = nullptr;
    const int16_t count = ToInteger(Obj(Obj(Obj(dsList).DsItem(ds)).GetDsVars()).DsvCount());
    int16_t select = 1;
    if (count == 0) {
      select = 0;
    } else if (index >= 2) {
      select = static_cast<int16_t>(index - 1);
    }
    RebuildDsvNodes(ds, select);
    modified = true;
  }
  return removed;
}

// --- Move ---

void frmDataBrowser::cmdMoveUp_Click() {
  const bool variableNode = Obj(treDataSources.SelectedItem()).Index() > dsNodeCount;
  if (variableNode ? MoveSelectedDsvUp() : MoveSelectedDsUp()) modified = true;
}

void frmDataBrowser::cmdMoveDown_Click() {
  const bool variableNode = Obj(treDataSources.SelectedItem()).Index() > dsNodeCount;
  if (variableNode ? MoveSelectedDsvDown() : MoveSelectedDsDown()) modified = true;
}

bool frmDataBrowser::MoveSelectedDsUp() {
  const int32_t oldIndex = Obj(treDataSources.SelectedItem()).Index();
  const int32_t newIndex = oldIndex - 1;
  const bool moved = Obj(Obj(dsList).DsItem(oldIndex)).DsMoveUp();
  if (moved) {
    ExchangeDsSortFlags(oldIndex, newIndex);
    RebuildTree(ToInteger(newIndex));
    modified = true;
  }
  return moved;
}

bool frmDataBrowser::MoveSelectedDsDown() {
  const int32_t oldIndex = Obj(treDataSources.SelectedItem()).Index();
  const int32_t newIndex = oldIndex + 1;
  const bool moved = Obj(Obj(dsList).DsItem(oldIndex)).DsMoveDown();
  if (moved) {
    ExchangeDsSortFlags(oldIndex, newIndex);
    RebuildTree(ToInteger(newIndex));
    modified = true;
  }
  return moved;
}

bool frmDataBrowser::MoveSelectedDsvUp() {
  int16_t index = -1;
  const toolkit::DsvRef dsv = SelectedNodeDsv(&index);
  const bool moved = Obj(dsv).DsvMoveUp();
  if (moved) {
    RebuildDsvNodes(GetCurrentDsIndex(), static_cast<int16_t>(index - 1));
    modified = true;
  }
  return moved;
}

bool frmDataBrowser::MoveSelectedDsvDown() {
  int16_t index = -1;
  const toolkit::DsvRef dsv = SelectedNodeDsv(&index);
  const bool moved = Obj(dsv).DsvMoveDown();
  if (moved) {
    RebuildDsvNodes(GetCurrentDsIndex(), ToInteger(int32_t{index} + 1));
    modified = true;
  }
  return moved;
}

// --- Sort ---

void frmDataBrowser::cmdSort_Click() { SortDsVariables(); }

void frmDataBrowser::SortDsVariables() {
  const int16_t ds = GetCurrentDsIndex();
  if (ds >= 1) {
    // An insertion sort by upper-cased name, one toolkit exchange at a time;
    // equal names keep their order.
    const toolkit::DsvListRef vars = Obj(Obj(dsList).DsItem(ds)).GetDsVars();
    if (vars) {
      const int16_t count = ToInteger(vars->DsvCount());
      for (int32_t i = 2; i <= count; ++i) {
        const String key = automation::UCase(Obj(vars->DsvItem(i)).GetDsvName());
        for (int32_t j = i; j > 1; --j) {
          if (automation::UCase(Obj(vars->DsvItem(j - 1)).GetDsvName()) <= key) break;
          Obj(vars->DsvItem(j)).DsvMoveUp();
        }
      }
    }
  }
  RebuildTree(ds);
  if (ds >= 1) treDataSources.Nodes().Item(ds)->EnsureVisible();
  modified = true;  // also when nothing moved
}

void frmDataBrowser::chkSort_Click() {
  const forms::NodeRef node = treDataSources.SelectedItem();
  if (node) {
    if (const forms::NodeRef parent = node->Parent()) {
      const int32_t ds = parent->Index();
      const bool sorted = chkSort.Value() == forms::vbChecked;
      // A view-sorted data source's variables cannot be moved.
      cmdMoveUp.SetEnabled(!sorted);
      cmdMoveDown.SetEnabled(!sorted);
      SetDsSortFlag(ds, sorted);
    }
  }
  RefreshSelectedDsNode();
}

void frmDataBrowser::chkExpandAll_Click() {
  if (PanelFilling) return;
  const bool expanded = chkExpandAll.Value() == forms::vbChecked;
  forms::Nodes& nodes = treDataSources.Nodes();
  const int32_t count = nodes.Count();
  for (int32_t i = 1; i <= count; ++i) nodes.Item(i)->SetExpanded(expanded);
}

}  // namespace vd::browser
