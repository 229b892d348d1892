// The tree of data sources and variables, always rebuilt from the display.
//
// Node scheme: data source i is top-level node i, keyed "_" + name + i, so
// equal names still get distinct keys; its variables are its children, keyed
// "i:j" and tagged j, added after every data source node. So nodes
// 1..dsNodeCount are the data sources and a higher index is a variable node.
#include "browser/frm_data_browser.h"
#include "browser/object_access.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vd::browser {

using automation::ToDecimal;

void frmDataBrowser::InitTree(const toolkit::DisplayRef& newDisplay, int32_t& newFilterType, int32_t& rows,
                              int32_t& cols) {
  display = newDisplay;
  dsList = Obj(display).GetDataSources();
  const int16_t count = ToInteger(Obj(dsList).DsCount());
  for (int32_t i = 0; i < count; ++i) DsSortFlags.Add(false);
  modified = false;
  PanelFilling = true;
  LoadDsKinds();
  filterType = newFilterType;
  filterRows = rows;
  filterCols = cols;
  ShowSelectStatus();
  RebuildTreeAndSelectDs();
}

void frmDataBrowser::RebuildTreeAndSelectDs(std::optional<int16_t> selectIndex) {
  RebuildTree();
  UpdateButtonToolTips();
  if (dsNodeCount >= 1) {
    const bool inRange = selectIndex && *selectIndex >= 1 && *selectIndex <= dsNodeCount;
    treDataSources.Nodes().Item(inRange ? *selectIndex : 1)->SetSelected(true);
  }
  FillDsPanel();
}

void frmDataBrowser::RebuildTree(std::optional<int16_t> selectIndex) {
  PanelFilling = true;
  BuildDsNodes();
  RebuildAllDsvNodes();
  if (treDataSources.Nodes().Count() >= 1) {
    const bool inRange = selectIndex && *selectIndex >= 1 && *selectIndex <= dsNodeCount;
    const forms::NodeRef node = treDataSources.Nodes().Item(inRange ? *selectIndex : 1);
    node->SetSelected(true);
    node->EnsureVisible();
  }
  FillDsPanel();
  PanelFilling = false;
}

void frmDataBrowser::BuildDsNodes() {
  forms::Nodes& nodes = treDataSources.Nodes();
  nodes.Clear();
  dsNodeCount = ToInteger(Obj(dsList).DsCount());
  const bool expanded = chkExpandAll.Value() == forms::vbChecked;
  for (int32_t i = 1; i <= dsNodeCount; ++i) {
    const String name = Obj(dsList->DsItem(i)).GetDsName();
    const forms::NodeRef node =
        nodes.Add(Variant(), forms::tvwLast, u"_" + name + ToDecimal(i), name, tree_image::kDataSource);
    node->SetExpandedImage(tree_image::kDataSourceOpen);
    node->SetExpanded(expanded);
  }
}

void frmDataBrowser::RebuildAllDsvNodes() {
  // Every data source's variable list and count first, so that the tree makes
  // room for all its nodes at once; each is read only here.
  std::vector<std::pair<toolkit::DsvListRef, int16_t>> lists;
  lists.reserve(static_cast<size_t>(std::max(dsNodeCount, int16_t{0})));
  int32_t total = treDataSources.Nodes().Count();
  for (int32_t i = 1; i <= dsNodeCount; ++i) {
    toolkit::DsvListRef vars = Obj(Obj(dsList).DsItem(i)).GetDsVars();
    const int16_t count = ToInteger(Obj(vars).DsvCount());
    total += count;
    lists.emplace_back(std::move(vars), count);
  }
  treDataSources.Nodes().Reserve(total);
  for (int32_t i = 1; i <= dsNodeCount; ++i) {
    const auto dsIndex = static_cast<int16_t>(i);
    const forms::NodeRef dsNode = treDataSources.Nodes().Item(dsIndex);
    dsNode->SetSorted(false);  // a new node has no children to remove
    const auto& [vars, count] = lists[static_cast<size_t>(i) - 1];
    AddDsvNodes(dsNode, dsIndex, vars, count, std::nullopt);
  }
}

void frmDataBrowser::RebuildDsvNodes(int16_t dsIndex, std::optional<int16_t> selectIndex) {
  forms::Nodes& nodes = treDataSources.Nodes();
  const forms::NodeRef dsNode = nodes.Item(dsIndex);
  dsNode->SetSorted(false);
  // A data source's variable nodes hold consecutive indexes: remove them from
  // the highest down.
  const int32_t children = dsNode->Children();
  if (children > 0) {
    int32_t highest = 0;
    for (forms::NodeRef child = dsNode->Child(); child; child = child->Next()) {
      if (child->Index() > highest) highest = child->Index();
    }
    for (int32_t k = 0; k < children; ++k) nodes.Remove(highest - k);
  }

  const toolkit::DsvListRef vars = Obj(Obj(dsList).DsItem(dsIndex)).GetDsVars();
  const int16_t count = ToInteger(Obj(vars).DsvCount());
  AddDsvNodes(dsNode, dsIndex, vars, count, selectIndex);
}

void frmDataBrowser::AddDsvNodes(const forms::NodeRef& dsNode, int16_t dsIndex, const toolkit::DsvListRef& vars,
                                 int16_t count, std::optional<int16_t> selectIndex) {
  forms::Nodes& nodes = treDataSources.Nodes();
  if (count == 0) {
    FillDsPanel();
    return;
  }
  const Variant parentKey(dsNode->Key());
  const String keyPrefix = ToDecimal(dsIndex) + u":";
  forms::NodeRef requested;
  for (int32_t j = 1; j <= count; ++j) {
    String name = Obj(vars->DsvItem(j)).GetDsvName();
    String position = ToDecimal(j);
    const forms::NodeRef node =
        nodes.Add(parentKey, forms::tvwChild, keyPrefix + position, std::move(name), tree_image::kVariable);
    node->SetTag(Variant(std::move(position)));
    if (selectIndex && *selectIndex == j) requested = node;
  }
  if (DsSortFlags.Item(dsIndex)) dsNode->SetSorted(true);
  if (requested) {
    requested->SetSelected(true);
    FillDsvPanel();
  }
}

int16_t frmDataBrowser::GetCurrentDsIndex() {
  const forms::NodeRef node = treDataSources.SelectedItem();
  if (!node) return -1;
  // Compared as a Long: the tree may hold far more than 32767 nodes, while a
  // data source index always fits an Integer.
  const int32_t index = node->Index();
  if (index > dsNodeCount) return ToInteger(Obj(node->Parent()).Index());
  return ToInteger(index);
}

}  // namespace vd::browser
