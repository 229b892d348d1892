#pragma once
// A look inside the data browser for tests: its state, and the routines that
// no control reaches (mode 4, which nothing in the component enters).
#include <array>
#include <optional>

#include "browser/frm_data_browser.h"

namespace vd::browser {

struct DataBrowserInspector {
  frmDataBrowser& form;

  [[nodiscard]] int32_t Mode() const { return form.mode; }
  [[nodiscard]] int32_t PreviousMode() const { return form.previousMode; }
  void SetDialogMode(int32_t mode) const { form.SetDialogMode(mode); }
  void ClearModified() const { form.modified = false; }
  [[nodiscard]] bool WritableOnly() const { return form.writableOnly; }
  void SetFilter(int32_t type, int32_t rows, int32_t cols, bool writableOnly) const {
    form.filterType = type;
    form.filterRows = rows;
    form.filterCols = cols;
    form.writableOnly = writableOnly;
  }
  [[nodiscard]] bool IsDsvSelectable(const toolkit::DsvRef& dsv) const { return form.IsDsvSelectable(dsv); }
  [[nodiscard]] int16_t GetCurrentDsIndex() const { return form.GetCurrentDsIndex(); }
  [[nodiscard]] int16_t DsNodeCount() const { return form.dsNodeCount; }
  [[nodiscard]] automation::Collection<bool>& DsSortFlags() const { return form.DsSortFlags; }
  void SetNodeToReselect(forms::NodeRef node) const { form.nodeToReselect = std::move(node); }
  [[nodiscard]] bool PanelFilling() const { return form.PanelFilling; }
  [[nodiscard]] bool HasCustomDsClasses() const { return form.CustomDsClasses.has_value(); }
  [[nodiscard]] const std::optional<automation::Collection<String>>& CustomDsClasses() const {
    return form.CustomDsClasses;
  }
  // What the kinds file named the file, memory and constant kinds.
  [[nodiscard]] std::array<String, 3> BuiltInKindNames() const {
    return {form.FileDsTypeName, form.MemoryDsTypeName, form.ConstantDsTypeName};
  }
  [[nodiscard]] float CollapsedWidth() const { return form.collapsedWidth; }
  [[nodiscard]] float ExpandedWidth() const { return form.expandedWidth; }
  [[nodiscard]] float CloseLeftWithButtons() const { return form.closeLeftWithButtons; }
  [[nodiscard]] float CloseLeftAlone() const { return form.closeLeftAlone; }
};

}  // namespace vd::browser
