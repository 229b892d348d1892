#include "sample_form.h"

#include <algorithm>

#include "vd/automation/string.h"

namespace vd::win32::views::testing {

using vd::automation::ToDecimal;
using vd::automation::ToUtf8;
using vd::forms::NodeRef;

SampleForm::SampleForm() : Form(u"frmSample") {
  Design();
  Handle();
}

void SampleForm::Design() {
  SetCaption(u"Sample Browser");
  SetWidth(7500);
  SetHeight(6300);
  SetKeyPreview(true);
  lblName.Move(120, 165, 900, 255);
  txtName.Move(1080, 120, 2400, 315);
  cmdApply.Move(3600, 105, 1095, 345);
  cmdApply.SetToolTipText(u"Apply the name");
  chkExpandAll.Move(120, 600, 1800, 315);
  fraFormat.Move(120, 1000, 2895, 615);
  optASCII.Move(120, 240, 1215, 255);
  optBinary.Move(1440, 240, 1215, 255);
  optASCII.SetValue(true);
  cboType.Move(3120, 1000, 1935, 315);
  for (const char16_t* type : {u"Byte", u"Short", u"Long", u"Float", u"Double"}) cboType.AddItem(type);
  cboType.SetListIndex(0);
  cboFind.Move(3120, 1400, 1935, 315);
  cboFind.AddItem(u"Level");
  cboFind.AddItem(u"Pressure");
  imgList.Add(u"Variable", u"variable");
  imgList.Add(u"DataSource", u"data_source");
  imgList.Add(u"DataSourceOpen", u"data_source_open");
  treItems.Move(120, 1800, 4935, 3300);
  treItems.SetImageList(&imgList);
  prgLoad.Move(5160, 1800, 1935, 255);
  prgLoad.SetValue(30);
  cmdClose.Move(5160, 4755, 1095, 345);
  sbStatus.SetSimpleText(u"Select: any type, any shape");
  BuildTree();
}

String SampleForm::DsKey(int i) { return u"_Source" + ToDecimal(i); }
String SampleForm::VarKey(int i, int j) { return ToDecimal(i) + u":" + ToDecimal(j); }

void SampleForm::BuildTree(int dataSources, int variablesEach) {
  treItems.Nodes().Clear();
  for (int i = 1; i <= dataSources; ++i) {
    const NodeRef ds = treItems.Nodes().Add({}, vd::forms::tvwLast, DsKey(i), u"Source " + ToDecimal(i), 2);
    ds->SetExpandedImage(3);
    ds->SetExpanded(i <= 2);
  }
  for (int i = 1; i <= dataSources; ++i)
    for (int j = 1; j <= variablesEach; ++j)
      treItems.Nodes().Add(DsKey(i), vd::forms::tvwChild, VarKey(i, j), u"Var " + ToDecimal(i) + u"." + ToDecimal(j),
                           1);
}

void SampleForm::Handle() {
  // Focus events of every control that takes the focus.
  for (vd::forms::Control* control : AllControls()) {
    const std::string name = ToUtf8(control->Name());
    control->onGotFocus = [this, name] { Log(name + ".GotFocus"); };
    control->onLostFocus = [this, name] { Log(name + ".LostFocus"); };
    control->onKeyPress = [this, name](int16_t& key) { Log(name + ".KeyPress:" + std::to_string(key)); };
  }
  txtName.onChange = [this] { Log("txtName.Change:" + ToUtf8(txtName.Text())); };
  cmdApply.onClick = [this] {
    Log("cmdApply.Click");
    if (applyAction) applyAction();
  };
  chkExpandAll.onClick = [this] { Log("chkExpandAll.Click:" + std::to_string(chkExpandAll.Value())); };
  optASCII.onClick = [this] { Log("optASCII.Click"); };
  optBinary.onClick = [this] { Log("optBinary.Click"); };
  cboType.onClick = [this] { Log("cboType.Click:" + ToUtf8(cboType.Text())); };
  cboType.onDropDown = [this] { Log("cboType.DropDown"); };
  cboFind.onClick = [this] { Log("cboFind.Click:" + ToUtf8(cboFind.Text())); };
  cboFind.onChange = [this] { Log("cboFind.Change:" + ToUtf8(cboFind.Text())); };
  cboFind.onDropDown = [this] { Log("cboFind.DropDown"); };
  treItems.onNodeClick = [this](const NodeRef& node) {
    Log("treItems.NodeClick:" + ToUtf8(node->Key()));
    if (nodeClickAction) nodeClickAction();
  };
  treItems.onClick = [this] { Log("treItems.Click"); };
  treItems.onDblClick = [this] { Log("treItems.DblClick"); };
  treItems.onCollapse = [this](const NodeRef& node) { Log("treItems.Collapse:" + ToUtf8(node->Key())); };
  treItems.onExpand = [this](const NodeRef& node) { Log("treItems.Expand:" + ToUtf8(node->Key())); };
  treItems.onMouseMove = [this](int16_t button, int16_t shift, float x, float y) {
    // As the data browser does: the pointer follows the node under the mouse.
    const NodeRef node = treItems.HitTest(x, y);
    Log("treItems.MouseMove:" + std::to_string(button) + ":" + std::to_string(shift) + ":" +
        (node ? ToUtf8(node->Key()) : std::string()));
    treItems.SetMousePointer(node && !node->Parent() ? vd::forms::vbNoDrop : vd::forms::vbDefault);
  };
  cmdClose.onClick = [this] {
    Log("cmdClose.Click");
    Hide();
  };
  onKeyDown = [this](int16_t& keyCode, int16_t shift) {
    Log("Form.KeyDown:" + std::to_string(keyCode) + ":" + std::to_string(shift));
    if (keyDownAction) keyDownAction();
  };
  onUnload = [this](bool& cancel) {
    Log("Form.Unload");
    cancel = cancelUnload;
  };
}

std::vector<std::string> SampleForm::Events(const std::vector<std::string>& names) const {
  std::vector<std::string> out;
  for (const std::string& entry : log) {
    const std::string name = entry.substr(0, entry.find(':'));
    if (std::find(names.begin(), names.end(), name) != names.end()) out.push_back(entry);
  }
  return out;
}

size_t SampleForm::Count(const std::string& entry) const {
  return static_cast<size_t>(std::count(log.begin(), log.end(), entry));
}

SmallForm::SmallForm() : Form(u"frmSmall") {
  SetCaption(u"Small");
  SetWidth(3600);
  SetHeight(1800);
  txtValue.Move(120, 120, 2000, 315);
  cmdOK.Move(2280, 105, 1095, 345);
  cmdOK.onClick = [this] { Hide(); };
}

}  // namespace vd::win32::views::testing
