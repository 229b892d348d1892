#pragma once
// Builds trees the way the data browser does: data source nodes "_<name><i>"
// first, then their variables "<i>:<j>" as children.
#include <string>
#include <vector>

#include "event_log_form.h"

namespace vd::forms::test {

inline String DsKey(int i) { return u"_Ds" + vd::automation::ToDecimal(i); }
inline String DsvKey(int i, int j) { return vd::automation::ToDecimal(i) + u":" + vd::automation::ToDecimal(j); }

// dataSources top-level nodes with variablesEach children each.
inline void BuildTree(TreeView& tree, int dataSources, int variablesEach) {
  for (int i = 1; i <= dataSources; ++i)
    tree.Nodes().Add(Variant(), tvwLast, DsKey(i), u"Ds" + vd::automation::ToDecimal(i), 2);
  for (int i = 1; i <= dataSources; ++i)
    for (int j = 1; j <= variablesEach; ++j)
      tree.Nodes().Add(DsKey(i), tvwChild, DsvKey(i, j), u"Var" + vd::automation::ToDecimal(j), 1);
}

// The keys in collection (Index) order.
inline std::vector<std::string> KeysByIndex(const TreeView& tree) {
  std::vector<std::string> keys;
  for (int32_t i = 1; i <= tree.Nodes().Count(); ++i)
    keys.push_back(vd::automation::ToUtf8(tree.Nodes().Item(i)->Key()));
  return keys;
}

// The texts of a node's children (nullptr: the top-level nodes) along Child / Next.
inline std::vector<std::string> ChildTexts(const TreeView& tree, const NodeRef& parent) {
  std::vector<std::string> texts;
  NodeRef node = parent ? parent->Child() : (tree.Nodes().Count() > 0 ? tree.Nodes().Item(1)->FirstSibling() : nullptr);
  for (; node; node = node->Next()) texts.push_back(vd::automation::ToUtf8(node->Text()));
  return texts;
}

}  // namespace vd::forms::test
