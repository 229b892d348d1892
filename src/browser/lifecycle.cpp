// The dialog's life: creation, load and unload, and the public methods
// through which the host prepares a run and reads its result.
#include <algorithm>

#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "platform/services.h"

namespace vd::browser {
namespace {

// Horizontal room the window's borders take beside the client area.
constexpr float kBorderWidth = 90;

String CaptionForContext(int32_t context) {
  switch (context) {
    case 0:
      return u"Data Selection for Graphs";
    case 1:
      return u"Data Selection for Dynamics";
    case 2:
      return u"Data Selection for Input Objects";
    case 3:
      return u"Data Selection for Data Mapping";
    case 5:
      return u"Data Selection for Writable Vars";
    default:
      return u"Data Selection";
  }
}

constexpr int32_t kWritableContext = 5;

}  // namespace

void frmDataBrowser::Form_Initialize() {
  // Collapsed: the tree frame with a margin on both sides. Expanded: up to the
  // right edge of the panel column, where the data source or variable frame
  // stands once the form has loaded.
  const float margin = fraDsl.Left();
  collapsedWidth = fraDsl.Left() + fraDsl.Width() + margin + kBorderWidth;
  expandedWidth = fraDs.Left() + std::max(fraDs.Width(), fraDsv.Width()) + margin + kBorderWidth;
  // Beside OK, where Close is designed; alone, at the right edge of the tree frame.
  closeLeftWithButtons = dbClose.Left();
  closeLeftAlone = fraDsl.Left() + fraDsl.Width() - dbClose.Width();
}

void frmDataBrowser::Form_Load() {
  fraDs.SetVisible(true);
  fraDsv.SetVisible(false);
  fraTelvaneDsSettings.SetVisible(false);
  fraTelvaneDsvSettings.SetVisible(false);
  ProgressBar1.SetVisible(false);
  lblPercent.SetVisible(false);
  chkExpandAll.SetValue(forms::vbChecked);
  fraDsv.SetLeft(fraDs.Left());
  fraDsv.SetTop(fraDs.Top());
  fraTelvaneDsvSettings.SetLeft(fraDs.Left());
  dbOK.SetEnabled(false);
  treDataSources.SetImageList(&imgDsList);
}

void frmDataBrowser::Form_Unload(bool& /*cancel*/) {
  CurrentDsv = nullptr;
  display = nullptr;
  dsList = nullptr;
  if (CustomDsClasses) {
    const int32_t count = CustomDsClasses->Count();
    for (int32_t i = 0; i < count; ++i) CustomDsClasses->Remove(1);
    CustomDsClasses.reset();
  }
}

bool frmDataBrowser::IsModified() { return modified; }

toolkit::DsvRef frmDataBrowser::GetSelectedDsv() { return CurrentDsv; }

Variant frmDataBrowser::InitDBForSelect(const toolkit::DisplayRef& newDisplay, int32_t context, int32_t dsvType,
                                        int32_t rows, int32_t cols) {
  Load();  // the form loads on first use, before any control is touched
  writableOnly = false;
  SetCaption(CaptionForContext(context));
  if (context == kWritableContext) writableOnly = true;
  SetDialogMode(dialog_mode::kSelect);
  const String markedKey = FindMarkedDsv(Obj(newDisplay).GetDataSources());
  InitTree(newDisplay, dsvType, rows, cols);
  if (!markedKey.empty()) {
    const forms::NodeRef node = treDataSources.Nodes().Item(markedKey);
    node->SetSelected(true);
    treDataSources_NodeClick(node);
    // A preselected variable can always be confirmed, filter or not.
    dbOK.SetEnabled(true);
  }
  return {};
}

Variant frmDataBrowser::InitDBForEdit(const toolkit::DisplayRef& newDisplay) {
  Load();
  SetCaption(u"Data Selection");
  dbOK.SetVisible(false);
  dbEdit.SetVisible(false);
  dbClose.SetLeft(closeLeftAlone);
  SetDialogMode(dialog_mode::kEdit);
  // Any type, any shape. writableOnly stays as the last selection run left it.
  int32_t anyType = filter_type::kAnyType;
  int32_t anyRows = 0;
  int32_t anyCols = 0;
  InitTree(newDisplay, anyType, anyRows, anyCols);
  return {};
}

void frmDataBrowser::MakeTopmost() { services.ui.BringToFront(*this); }

void frmDataBrowser::SetCommunication(const toolkit::CommunicationRef& comm) { communication = comm; }

}  // namespace vd::browser
