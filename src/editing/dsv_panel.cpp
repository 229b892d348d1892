// The data variable frame: from a tree node to its variable, and what the
// frame shows of the selected variable.
//
// A fill raises the filling flag, but the type list and the shape each raise
// and clear it again for themselves; so once the type list is filled the rest
// of the fill runs with the flag down, and the value box and the scope options
// set after that write their (unchanged) values back through their handlers
// and mark the display as modified. That is how the dialog has always behaved.
#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "vd/automation/conversions.h"
#include "vd/automation/numeric.h"

namespace vd::browser {
namespace {

namespace dsvtype = toolkit::dsvtype;

struct TypeEntry {
  const char16_t* text;
  int32_t code;
};
// The full type list, in the order it is offered.
constexpr TypeEntry kAllTypes[] = {
    {u"Double", dsvtype::kDouble}, {u"Float", dsvtype::kFloat}, {u"Long", dsvtype::kLong},
    {u"ULong", dsvtype::kULong},   {u"Short", dsvtype::kShort}, {u"UShort", dsvtype::kUShort},
    {u"Byte", dsvtype::kByte},     {u"UByte", dsvtype::kUByte}, {u"Text", dsvtype::kText}};
constexpr TypeEntry kFloat = kAllTypes[1];
constexpr TypeEntry kText = kAllTypes[8];

// A variable of a SCADA data source with this signal type has a free shape.
constexpr int32_t kShapeFreeSignalType = 2;
// Parameter 3 of a mapped variable holds its mapping code.
constexpr int16_t kMappingCodeParam = 3;
constexpr int32_t kNoSignalType = -1;

}  // namespace

toolkit::DsvRef frmDataBrowser::NodeDsv(const forms::NodeRef& node, int16_t* index) {
  const forms::NodeRef parent = Obj(node).Parent();
  if (!parent) {
    if (index != nullptr) *index = -1;
    return nullptr;
  }
  const toolkit::DsRef ds = Obj(dsList).DsItem(parent->Index());
  // The tag is the variable's position in its data source.
  const int16_t position = automation::CInt(node->Tag());
  if (index != nullptr) *index = position;
  return Obj(Obj(ds).GetDsVars()).DsvItem(position);
}

toolkit::DsvRef frmDataBrowser::SelectedNodeDsv(int16_t* index) {
  return NodeDsv(treDataSources.SelectedItem(), index);
}

void frmDataBrowser::FillDsvPanel() {
  PanelFilling = true;
  HideEditPanels();
  const toolkit::DsRef ds = Obj(dsList).DsItem(GetCurrentDsIndex());
  const toolkit::DsvRef dsv = SelectedNodeDsv();
  fraDsv.SetVisible(true);
  txtDsvName.SetText(Obj(dsv).GetDsvName());
  FillDsvTypeList(dsv);  // leaves the flag down
  txtMappings.SetText(automation::ToDecimal(dsv->GetDsvUseCount()));

  chkSort.SetEnabled(true);
  const bool sorted = Obj(Obj(treDataSources.SelectedItem()).Parent()).Sorted();
  chkSort.SetValue(sorted ? forms::vbChecked : forms::vbUnchecked);
  cmdMoveUp.SetEnabled(!sorted);
  cmdMoveDown.SetEnabled(!sorted);

  cmdDSVcustom.SetVisible(false);
  txtDsvValue.SetVisible(false);
  lblDsvValue.SetVisible(false);
  const int32_t kind = Obj(ds).GetDsType();
  if (kind == toolkit::kind::kConstant) {
    txtDsvValue.SetVisible(true);
    lblDsvValue.SetVisible(true);
    txtDsvValue.SetText(automation::FormatGeneral(dsv->GetDsvValue()));
  } else if (kind == toolkit::kind::kCustom) {
    cmdDSVcustom.SetVisible(true);
  }

  FillDsvShape(dsv);
  if (dsv->GetDsvScope() == toolkit::scope::kPublic) {
    optDsvPublic.SetValue(true);
  } else {
    optDsvPrivate.SetValue(true);
  }
  CurrentDsv = dsv;

  if (IsTelvaneDataSource(ds)) {
    if (GetDsvSignalType(dsv) != kNoSignalType) {
      fraTelvaneDsvSettings.SetVisible(true);
      cmdDSVcustom.SetVisible(false);
      FillTelvaneDsvPanel(dsv);
    }
  }
  dbOK.SetEnabled(IsDsvSelectable(dsv));
  if (const forms::NodeRef node = treDataSources.SelectedItem()) node->EnsureVisible();
  PanelFilling = false;
}

void frmDataBrowser::FillDsvTypeList(const toolkit::DsvRef& dsv) {
  PanelFilling = true;
  // Held for the whole fill: an adapted data source lives only as long as its reference.
  const toolkit::DsRef dsRef = Obj(dsList).DsItem(GetCurrentDsIndex());
  toolkit::Ds& ds = Obj(dsRef);
  cboDsvType.Clear();
  const auto add = [this](const TypeEntry& entry) {
    cboDsvType.AddItem(entry.text);
    cboDsvType.SetItemData(cboDsvType.NewIndex(), entry.code);
  };
  const int32_t kind = ds.GetDsType();
  if (kind == toolkit::kind::kConstant) {
    // Constants are Float, whatever type the variable holds.
    add(kFloat);
    cboDsvType.SetListIndex(0);
  } else if (kind == toolkit::kind::kFile && ds.GetDsAscii()) {
    add(kFloat);
    add(kText);
    cboDsvType.SetListIndex(Obj(dsv).GetDsvType() == dsvtype::kFloat ? 0 : 1);
  } else {
    for (const TypeEntry& entry : kAllTypes) add(entry);
    const int32_t type = Obj(dsv).GetDsvType();
    for (int32_t i = 0; i < cboDsvType.ListCount(); ++i) {
      if (cboDsvType.ItemData(i) == type) cboDsvType.SetListIndex(i);
    }
  }
  PanelFilling = false;
}

void frmDataBrowser::FillDsvShape(const toolkit::DsvRef& dsv) {
  PanelFilling = true;
  txtDsvRows.SetEnabled(false);
  lblDsvRows.SetEnabled(false);
  txtDsvCols.SetEnabled(false);
  lblDsvCols.SetEnabled(false);
  txtDsvRows.SetText(u"");
  txtDsvCols.SetText(u"");
  const auto enableShapeOptions = [this](bool enabled) {
    optDsvScalar.SetEnabled(enabled);
    optDsvVector.SetEnabled(enabled);
    optDsvMatrix.SetEnabled(enabled);
  };
  const auto showCols = [this, &dsv](const char16_t* caption) {
    txtDsvCols.SetEnabled(true);
    lblDsvCols.SetEnabled(true);
    lblDsvCols.SetCaption(caption);
    txtDsvCols.SetText(automation::ToDecimal(dsv->GetDsvCols()));
  };

  // Only variables without a parameter list choose their shape here, and
  // SCADA variables whose signal type leaves the shape free.
  if (Obj(dsv).GetDsvType() != dsvtype::kText) {
    bool shapeFree = false;
    if (IsTelvaneDataSource(dsv->GetDsvParent())) shapeFree = GetDsvSignalType(dsv) == kShapeFreeSignalType;
    if (dsv->AsCustom() == nullptr || shapeFree) {
      enableShapeOptions(true);
      switch (dsv->GetDsvShape()) {
        case toolkit::shape::kScalar:
          optDsvScalar.SetValue(true);
          break;
        case toolkit::shape::kVector:
          optDsvVector.SetValue(true);
          showCols(u"Length");
          break;
        case toolkit::shape::kMatrix:
          optDsvMatrix.SetValue(true);
          showCols(u"Cols");
          txtDsvRows.SetEnabled(true);
          lblDsvRows.SetEnabled(true);
          txtDsvRows.SetText(automation::ToDecimal(dsv->GetDsvRows()));
          break;
        default:
          break;
      }
    } else {
      enableShapeOptions(false);
      optDsvScalar.SetValue(true);
    }
  } else {
    // A Text variable's length is its column count.
    const bool hasParams = dsv->AsCustom() != nullptr;
    enableShapeOptions(false);
    txtDsvCols.SetEnabled(!hasParams);
    lblDsvCols.SetEnabled(!hasParams);
    lblDsvCols.SetCaption(u"Length");
    txtDsvCols.SetText(automation::ToDecimal(dsv->GetDsvCols()));
  }
  PanelFilling = false;
}

int32_t frmDataBrowser::GetDsvSignalType(const toolkit::DsvRef& dsv) {
  const toolkit::CustomDsvRef custom = Obj(dsv).AsCustom();
  if (!custom) automation::Raise(automation::err::kTypeMismatch);
  const toolkit::ParamListRef params = custom->GetParams();
  if (Obj(params).ParamCount() < kMappingCodeParam) return kNoSignalType;
  return DecodeSignalType(automation::CLng(Obj(params->ParamItem(kMappingCodeParam)).GetParamValue()));
}

}  // namespace vd::browser
