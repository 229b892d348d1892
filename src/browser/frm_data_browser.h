#pragma once
// The data browser: the component's one dialog. It shows the data sources of a
// display with their variables in a tree, lets the user pick a variable (a
// selection run) or edit the data sources in place (an editing run), and keeps
// every control of the dialog as a member, named as the dialog's resources are.
//
// The member functions live in the folder of their concern: lifecycle, modes,
// tree and tree events in browser/, the data source and variable panels in
// editing/, the SCADA frames in scada/.
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "vd/automation/collection.h"
#include "vd/automation/object.h"
#include "vd/automation/variant.h"
#include "vd/forms/forms.h"
#include "vd/toolkit/communication.h"
#include "vd/toolkit/toolkit.h"

namespace vd::platform {
struct Services;
}

namespace vd::browser {

class frmFindDialog;

using automation::String;
using automation::Variant;

// Dialog modes.
namespace dialog_mode {
inline constexpr int32_t kEdit = 0;             // editing run
inline constexpr int32_t kEditInSelect = 1;     // editing inside a selection run
inline constexpr int32_t kSelectPanelOpen = 2;  // selection run, edit panel open
inline constexpr int32_t kSelect = 3;           // selection run, edit panel closed
inline constexpr int32_t kPickAny = 4;          // pick any variable
}  // namespace dialog_mode

// Selection filter codes beyond the variable type codes.
namespace filter_type {
inline constexpr int32_t kAnyType = 500;
inline constexpr int32_t kNumeric = 501;
}  // namespace filter_type

// The name the host puts in front of a data source's and a variable's name to
// mark the variable it has bound, so that the dialog preselects it.
inline constexpr char16_t kPreselectionMarker[] =
    u"0_ThIs_1_StRiNg_2_WiLl_3_NeVeR_4_eVeR_5_bE_6_uSeD_7_aS_8_a_9_nAmE_8_bY_7_THE_6_users543210";

// Images of the tree's image list.
namespace tree_image {
inline constexpr int32_t kVariable = 1;
inline constexpr int32_t kDataSource = 2;
inline constexpr int32_t kDataSourceOpen = 3;
}  // namespace tree_image

class frmDataBrowser : public forms::Form {
 public:
  explicit frmDataBrowser(platform::Services& services);
  ~frmDataBrowser() override;

  // --- Public methods ---
  bool IsModified();
  // The variable shown last in the variable panel; nullptr after Close.
  toolkit::DsvRef GetSelectedDsv();
  // Prepares a selection run: caption by context, filter, preselection. Empty.
  Variant InitDBForSelect(const toolkit::DisplayRef& display, int32_t context, int32_t dsvType, int32_t rows,
                          int32_t cols);
  // Prepares an editing run over every data source. Empty.
  Variant InitDBForEdit(const toolkit::DisplayRef& display);
  // Raises the dialog above other windows without leaving it topmost.
  void MakeTopmost();
  void SetCommunication(const toolkit::CommunicationRef& comm);

  // --- Events (the sink may replace the object) ---
  std::function<void(automation::ObjectRef& obj)> EditCustomDs;
  std::function<void(automation::ObjectRef& obj)> EditCustomDsv;

  // --- Controls; a container comes before what it holds ---
  forms::ImageList imgDsList{*this, u"imgDsList"};

  forms::Frame fraDsl{*this, u"fraDsl", u"Data Sources"};
  forms::TreeView treDataSources{fraDsl, u"treDataSources"};
  forms::ComboBox cboDsAdd{fraDsl, u"cboDsAdd", forms::ComboStyle::kDropdownList};
  forms::CommandButton cmdAddDs{fraDsl, u"cmdAddDs", u"&Add"};
  forms::CommandButton cmdAddDsv{fraDsl, u"cmdAddDsv", u"Add Varia&ble"};
  forms::CommandButton cmdDelete{fraDsl, u"cmdDelete", u"De&lete"};
  forms::CommandButton cmdMoveUp{fraDsl, u"cmdMoveUp", u"Move Up"};
  forms::CommandButton cmdMoveDown{fraDsl, u"cmdMoveDown", u"Move Down"};
  forms::CommandButton cmdSort{fraDsl, u"cmdSort", u"Sort DS"};
  forms::CheckBox chkSort{fraDsl, u"chkSort", u"&Sort"};
  forms::CheckBox chkExpandAll{fraDsl, u"chkExpandAll", u"E&xpand all"};
  forms::CommandButton cmdFind{fraDsl, u"cmdFind", u"&Find..."};

  forms::Frame fraDs{*this, u"fraDs", u" Data Source"};
  forms::Label lblDsName{fraDs, u"lblDsName", u"&Name:"};
  forms::TextBox txtDsName{fraDs, u"txtDsName"};
  forms::CommandButton cmdBrowse{fraDs, u"cmdBrowse", u"..."};
  forms::Label lblDsTypeLabel{fraDs, u"lblDsTypeLabel", u"Type:"};
  forms::TextBox txtDsType{fraDs, u"txtDsType"};
  forms::Label lblSize{fraDs, u"lblSize", u"Size:"};
  forms::TextBox txtSize{fraDs, u"txtSize"};
  forms::Frame fraFormat{fraDs, u"fraFormat", u" Format"};
  forms::OptionButton optASCII{fraFormat, u"optASCII", u"ASCII"};
  forms::OptionButton optBinary{fraFormat, u"optBinary", u"Binary"};
  forms::CommandButton cmdDSCustom{fraDs, u"cmdDSCustom", u"More..."};

  forms::Frame fraDsv{*this, u"fraDsv", u" Data Variable"};
  forms::Label lblVarName{fraDsv, u"lblVarName", u"&Name:"};
  forms::TextBox txtDsvName{fraDsv, u"txtDsvName"};
  forms::Label lblDsvType{fraDsv, u"lblDsvType", u"&Data Type:"};
  forms::ComboBox cboDsvType{fraDsv, u"cboDsvType", forms::ComboStyle::kDropdownList};
  forms::Frame fraVariableShape{fraDsv, u"fraVariableShape", u"Shape"};
  forms::OptionButton optDsvScalar{fraVariableShape, u"optDsvScalar", u"Scalar"};
  forms::OptionButton optDsvVector{fraVariableShape, u"optDsvVector", u"Vector"};
  forms::OptionButton optDsvMatrix{fraVariableShape, u"optDsvMatrix", u"Matrix"};
  forms::Label lblDsvCols{fraVariableShape, u"lblDsvCols", u"Cols"};
  forms::TextBox txtDsvCols{fraVariableShape, u"txtDsvCols"};
  forms::Label lblDsvRows{fraVariableShape, u"lblDsvRows", u"Rows"};
  forms::TextBox txtDsvRows{fraVariableShape, u"txtDsvRows"};
  forms::Frame fraVariableScope{fraDsv, u"fraVariableScope", u"Scope"};
  forms::OptionButton optDsvPrivate{fraVariableScope, u"optDsvPrivate", u"Private"};
  forms::OptionButton optDsvPublic{fraVariableScope, u"optDsvPublic", u"Public"};
  forms::Label lblMappings{fraDsv, u"lblMappings", u"Mappings:"};
  forms::TextBox txtMappings{fraDsv, u"txtMappings"};
  forms::Label lblDsvValue{fraDsv, u"lblDsvValue", u"Value:"};
  forms::TextBox txtDsvValue{fraDsv, u"txtDsvValue"};
  forms::CommandButton cmdDSVcustom{fraDsv, u"cmdDSVcustom", u"More..."};

  forms::Frame fraTelvaneDsSettings{*this, u"fraTelvaneDsSettings", u"Telvane"};
  forms::Label lblApplication{fraTelvaneDsSettings, u"lblApplication", u"A&pplication:"};
  forms::ComboBox cboTelvaneApplication{fraTelvaneDsSettings, u"cboTelvaneApplication",
                                        forms::ComboStyle::kDropdownCombo};
  forms::Label lblBlinkPeriod{fraTelvaneDsSettings, u"lblBlinkPeriod", u"&Blink period of blinking colors:"};
  forms::TextBox txtBlinkPeriod{fraTelvaneDsSettings, u"txtBlinkPeriod"};
  forms::Label lblMsecs{fraTelvaneDsSettings, u"lblMsecs", u"msecs"};
  forms::CommandButton Command1{fraTelvaneDsSettings, u"Command1", u"&Rescan"};
  forms::CommandButton cmdTelvaneDsApply{fraTelvaneDsSettings, u"cmdTelvaneDsApply", u"&Apply"};
  forms::ProgressBar ProgressBar1{fraTelvaneDsSettings, u"ProgressBar1"};
  forms::Label lblPercent{fraTelvaneDsSettings, u"lblPercent", u"0 %"};

  forms::Frame fraTelvaneDsvSettings{*this, u"fraTelvaneDsvSettings", u"Telvane"};
  forms::Label lblObjectReference{fraTelvaneDsvSettings, u"lblObjectReference", u"&Object Reference:"};
  forms::TextBox txtTelvaneObjectReference{fraTelvaneDsvSettings, u"txtTelvaneObjectReference"};
  forms::Label lblSignalType{fraTelvaneDsvSettings, u"lblSignalType", u"Signal &Type:"};
  forms::ComboBox cboTelvaneSignalType{fraTelvaneDsvSettings, u"cboTelvaneSignalType",
                                       forms::ComboStyle::kDropdownList};
  forms::Frame frmTelvaneSwapValues{fraTelvaneDsvSettings, u"frmTelvaneSwapValues", u"Swap State &Indication"};
  forms::OptionButton optTelvaneSwap01{frmTelvaneSwapValues, u"optTelvaneSwap01", u"0 and &1"};
  forms::OptionButton optTelvaneSwap12{frmTelvaneSwapValues, u"optTelvaneSwap12", u"1 and &2"};
  forms::OptionButton optTelvaneSwapNone{frmTelvaneSwapValues, u"optTelvaneSwapNone", u"None"};
  forms::Label lblVarInfo{fraTelvaneDsvSettings, u"lblVarInfo", u"Status Color &Indexes:"};
  forms::TextBox txtVarInfo{fraTelvaneDsvSettings, u"txtVarInfo"};
  forms::Label lblKorlFileSelect{fraTelvaneDsvSettings, u"lblKorlFileSelect", u"Run KO&RL:"};
  forms::ComboBox cmbKorlFileSelect{fraTelvaneDsvSettings, u"cmbKorlFileSelect", forms::ComboStyle::kDropdownCombo};
  forms::CommandButton cmdTelvaneDsvValidate{fraTelvaneDsvSettings, u"cmdTelvaneDsvValidate", u"&Validate"};
  forms::CommandButton cmdTelvaneDsvApply{fraTelvaneDsvSettings, u"cmdTelvaneDsvApply", u"&Apply"};
  forms::CommandButton cmdTelvaneDsvUndo{fraTelvaneDsvSettings, u"cmdTelvaneDsvUndo", u"&Undo"};

  forms::CommandButton dbOK{*this, u"dbOK", u"OK"};
  forms::CommandButton dbClose{*this, u"dbClose", u"&Close"};
  forms::CommandButton dbEdit{*this, u"dbEdit", u"&Edit >>"};
  forms::StatusBar sbSelectStatus{*this, u"sbSelectStatus", forms::sbrSimple};

 private:
  friend struct DataBrowserInspector;  // tests look inside through this

  // --- Design (browser/frm_data_browser_design.cpp) ---
  void DesignControls();
  void WireEvents();

  // --- Lifecycle (browser/lifecycle.cpp) ---
  void Form_Initialize();
  void Form_Load();
  void Form_Unload(bool& cancel);

  // --- Modes and the dialog buttons (browser/dialog_modes.cpp) ---
  void SetDialogMode(int32_t newMode);
  void CollapseEditPanel();
  void ExpandEditPanel();
  void dbEdit_Click();
  void dbOK_Click();
  void dbClose_Click();

  // --- The tree (browser/tree_build.cpp) ---
  void InitTree(const toolkit::DisplayRef& newDisplay, int32_t& newFilterType, int32_t& rows, int32_t& cols);
  void RebuildTree(std::optional<int16_t> selectIndex = std::nullopt);
  // Rebuilds every node, then selects data source selectIndex (node 1 when
  // out of range) and shows its panel.
  void RebuildTreeAndSelectDs(std::optional<int16_t> selectIndex = std::nullopt);
  void BuildDsNodes();
  void RebuildAllDsvNodes();
  void RebuildDsvNodes(int16_t dsIndex, std::optional<int16_t> selectIndex = std::nullopt);
  void AddDsvNodes(const forms::NodeRef& dsNode, int16_t dsIndex, const toolkit::DsvListRef& vars, int16_t count,
                   std::optional<int16_t> selectIndex);
  int16_t GetCurrentDsIndex();

  // --- Selection filter and preselection (browser/selection_filter.cpp) ---
  bool IsDsvSelectable(const toolkit::DsvRef& dsv);
  void ShowSelectStatus();
  String FindMarkedDsv(const toolkit::DsListRef& dataSources);
  static String NormalizeBlanks(automation::StringView text);

  // --- Tree events and tool tips (browser/tree_events.cpp) ---
  void treDataSources_NodeClick(const forms::NodeRef& node);
  void treDataSources_Collapse(const forms::NodeRef& node);
  void treDataSources_DblClick();
  void treDataSources_MouseMove(int16_t button, int16_t shift, float x, float y);
  void treDataSources_KeyPress(int16_t& keyAscii);
  void UpdateButtonToolTips();

  // --- Tree commands (browser/tree_commands.cpp) ---
  void WireTreeCommands();
  void cmdAddDs_Click();
  void cmdAddDsv_Click();
  void cmdDelete_Click();
  void cmdMoveUp_Click();
  void cmdMoveDown_Click();
  void cmdSort_Click();
  void chkSort_Click();
  void chkExpandAll_Click();
  void RefreshSelectedDsNode();
  bool MoveSelectedDsUp();
  bool MoveSelectedDsDown();
  bool MoveSelectedDsvUp();
  bool MoveSelectedDsvDown();
  bool DeleteSelectedDs();
  bool DeleteSelectedDsv();
  bool IsDsInUse(const toolkit::DsRef& ds);
  bool IsDsvInUse(const toolkit::DsvRef& dsv);
  void SortDsVariables();
  // Item n of DsSortFlags := value (a collection item cannot be overwritten).
  void SetDsSortFlag(int32_t n, bool value);
  // Exchanges the flags of two neighbouring data sources after a move.
  void ExchangeDsSortFlags(int32_t oldIndex, int32_t newIndex);

  // --- Find (browser/find.cpp) ---
  // The find dialog, created and loaded on first use.
  frmFindDialog& FindDialog();
  void Form_KeyDown(int16_t& keyCode, int16_t shift);
  void cmdFind_Click();
  void FindNode(const String& text, bool matchCase, bool wholeWord, bool down);
  static bool NodeMatches(const forms::NodeRef& node, const String& text, bool matchCase, bool wholeWord);

  // --- Kinds of data sources that can be added (editing/ds_kinds.cpp) ---
  void LoadDsKinds();
  void AddDsKind(const String& name, const String& className);
  void AddDefaultDsKinds();

  // --- Data source panel (editing/ds_panel.cpp, editing/ds_panel_events.cpp) ---
  void HideEditPanels();
  void FillDsPanel();
  void EnableDsvButtons(bool enabled);
  void EnableDsButtons(bool enabled);
  void WireDsPanelEvents();
  void optASCII_Click();
  void optBinary_Click();
  void txtDsName_Change();
  void cmdBrowse_Click();
  void cmdDSCustom_Click();

  // --- Data variable panel (editing/dsv_panel.cpp, editing/dsv_panel_events.cpp) ---
  // The variable of a variable node (nullptr and index -1 for a data source node).
  toolkit::DsvRef NodeDsv(const forms::NodeRef& node, int16_t* index = nullptr);
  toolkit::DsvRef SelectedNodeDsv(int16_t* index = nullptr);
  void FillDsvPanel();
  void FillDsvTypeList(const toolkit::DsvRef& dsv);
  void FillDsvShape(const toolkit::DsvRef& dsv);
  int32_t GetDsvSignalType(const toolkit::DsvRef& dsv);
  void CheckDimensionEntry(const toolkit::DsvRef& dsv, bool isRows);
  // A message the user can mend: exclamation icon, OK, the dialog's caption as title.
  void ShowEntryMessage(const String& text);
  void WireDsvPanelEvents();
  void cboDsvType_Click();
  void optDsvPrivate_Click();
  void optDsvPublic_Click();
  void optDsvScalar_Click();
  void optDsvVector_Click();
  void optDsvMatrix_Click();
  void txtDsvCols_Change();
  void txtDsvRows_Change();
  void txtDsvName_Change();
  void txtDsvValue_GotFocus();
  void txtDsvValue_LostFocus();
  void txtDsvValue_Change();
  void cmdDSVcustom_Click();

  // --- SCADA data sources and variables (scada/) ---
  bool IsTelvaneDataSource(const toolkit::DsRef& ds);
  // The applications' root directory from the SCADA system, "" when it cannot be had.
  String GetApplicationPath(int32_t applicationNr);
  void WireScadaEvents();

  // The settings frame of a SCADA data source (scada/ds_settings*.cpp).
  void FillTelvaneDsPanel(const toolkit::DsRef& ds);
  int32_t GetDsApplicationNr(const toolkit::DsRef& ds);
  int32_t GetDsBlinkPeriod(const toolkit::DsRef& ds);
  void SetDsBlinkPeriod(const toolkit::DsRef& ds, int32_t period);
  // True when every variable's item id was handled.
  bool SetDsApplicationNr(const toolkit::DsRef& ds, int32_t applicationNr);
  void SetDsvItemIdApplication(const toolkit::DsvRef& dsv, int32_t applicationNr);
  int32_t GetSelectedApplicationNr();
  toolkit::DsRef GetCurrentDs();
  void LoadApplications();
  void UpdateDsApplyButton(const toolkit::DsRef& ds, bool applyNow);
  void SetMousePointer(int16_t pointer);
  void cboTelvaneApplication_Click();
  void cboTelvaneApplication_Change();
  void cboTelvaneApplication_DropDown();
  void cmdTelvaneDsApply_Click();

  // The mapping frame of a SCADA variable (scada/object_mapping*.cpp).
  static bool BuildItemId(const String& objectReference, int32_t applicationNr, String& itemId);
  static bool ParseItemId(const String& itemId, String& objectReference);
  static bool SetItemIdApplication(String& itemId, int32_t applicationNr);
  // The fields of a variable's mapping code: swap code x 16 + signal type.
  static int32_t DecodeSignalType(int32_t code);
  static int32_t DecodeSwap(int32_t code);
  static int32_t EncodeMapping(int32_t signalType, int32_t swap);
  int32_t GetSignalType();
  int32_t GetSwapOption();
  void SetSwapOption(int32_t swap);
  void ShowSignalTypeControls();
  int32_t GetDsvMappingCode(const toolkit::DsvRef& dsv);
  void SetDsvVarInfo(const toolkit::DsvRef& dsv, const String& text);
  bool ApplyDsvMapping(const toolkit::DsvRef& dsv);
  void FillTelvaneDsvPanel(const toolkit::DsvRef& dsv);
  void UpdateTelvaneDsvButtons(bool applyNow);
  void cmdTelvaneDsvApply_Click();
  void cmdTelvaneDsvUndo_Click();
  void cmdTelvaneDsvValidate_Click();
  void lblObjectReference_Click();

  // The data-change script file of a generic signal (scada/script_files.cpp).
  // The combo lists the two commands, then the application's script files.
  void FillKorlFileList(const toolkit::DsvRef& dsv, const String& storedFile);
  void cmbKorlFileSelect_Click();
  void cmbKorlFileSelect_Change();
  void CreateNewKorlFile();
  void EditSelectedKorlFile();
  // Copies a template to file, or writes the default text.
  void CreateKorlFile(const String& file, const String& applicationPath);
  // Opens file in program with the dialog disabled until the program ends,
  // then tells the SCADA system that the file changed.
  void EditFileAndWait(const String& program, const String& file);

  // The rescan of item offsets (scada/rescan.cpp).
  void Command1_Click();

  // --- State ---
  platform::Services& services;

  bool modified = false;
  toolkit::DsvRef CurrentDsv;
  toolkit::CommunicationRef communication;
  int32_t mode = dialog_mode::kEdit;
  int32_t previousMode = dialog_mode::kEdit;
  bool writableOnly = false;

  // Geometry in twips, from the designed layout.
  float collapsedWidth = 0;
  float expandedWidth = 0;
  float closeLeftWithButtons = 0;
  float closeLeftAlone = 0;

  toolkit::DisplayRef display;
  toolkit::DsListRef dsList;
  // Nodes 1..dsNodeCount are the data source nodes, in data source order.
  int16_t dsNodeCount = 0;
  // One flag per data source: its variables are shown sorted. Appended to at
  // every tree initialisation and never emptied, so a later run keeps the
  // flags of the earlier one at the same indexes.
  automation::Collection<bool> DsSortFlags;
  int32_t filterType = filter_type::kAnyType;
  int32_t filterRows = 0;
  int32_t filterCols = 0;
  // True while the tree is rebuilt or a panel is filled: change handlers ignore changes.
  bool PanelFilling = false;
  // A node to select again at the next mouse move over the tree; nothing fills it.
  forms::NodeRef nodeToReselect;
  // The find dialog: one instance, hidden between searches.
  std::unique_ptr<frmFindDialog> findDialog;

  // Display name of each custom data source kind -> its toolkit class; created on first use.
  std::optional<automation::Collection<String>> CustomDsClasses;
  // What the kinds file calls the built-in kinds; only the kinds file sets them.
  String FileDsTypeName;
  String MemoryDsTypeName;
  String ConstantDsTypeName;
  // The variable's value when its value box got the focus.
  double SavedDsvValue = 0;
  // True while the application list is rebuilt: the combo's handlers ignore it.
  bool LoadingApplications = false;
  // The signal type the mapping frame was filled with; kept when it has no list entry.
  int32_t FilledSignalType = 0;
  // The script file the combo stands for: the stored one, or the one typed or
  // chosen since; what the combo shows again after a command entry.
  String KorlFileName;
};

}  // namespace vd::browser
