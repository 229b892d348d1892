// Which variables a selection run may return, how the filter reads in the
// status bar, and the host's preselection marker.
#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "vd/automation/text.h"

namespace vd::browser {
namespace {

using automation::ToDecimal;
namespace dsvtype = toolkit::dsvtype;

constexpr size_t kMarkerLength = std::char_traits<char16_t>::length(kPreselectionMarker);
static_assert(kMarkerLength == 90);

// A custom variable reporting this access value cannot be written.
constexpr int32_t kReadOnlyAccess = 1;

String TypeWord(int32_t filterType) {
  switch (filterType) {
    case filter_type::kNumeric:
      return u"Numeric";
    case dsvtype::kByte:
      return u"Byte";
    case dsvtype::kUByte:
      return u"UByte";
    case dsvtype::kShort:
      return u"Short";
    case dsvtype::kUShort:
      return u"UShort";
    case dsvtype::kLong:
      return u"Long";
    case dsvtype::kULong:
      return u"ULong";
    case dsvtype::kFloat:
      return u"Float";
    case dsvtype::kDouble:
      return u"Double";
    case dsvtype::kText:
      return u"Text";
    default:
      return u"Any type";
  }
}

String ShapeWords(int32_t rows, int32_t cols) {
  const String c = ToDecimal(cols);
  if (rows == 0 && cols == 0) return u", any shape.";
  if (rows == 1 && cols == 1) return u", Scalar";
  // No blank before "Matrix": the status text has always read so.
  if (rows == 0) return u", Vector[" + c + u"],Matrix[*][" + c + u"]";
  if (rows == 1 && cols == 0) return u", Vector[*]";
  if (rows == 1) return u", Vector[" + c + u"]";
  return u", Matrix[" + ToDecimal(rows) + u"][" + c + u"]";
}

}  // namespace

bool frmDataBrowser::IsDsvSelectable(const toolkit::DsvRef& dsv) {
  // Only 500 in a selection run with the panel closed skips the test; any
  // other filter code is matched literally.
  const bool anyVariable = mode == dialog_mode::kPickAny || mode == dialog_mode::kSelectPanelOpen ||
                           (mode == dialog_mode::kSelect && filterType == filter_type::kAnyType);
  if (!anyVariable) {
    const int32_t type = Obj(dsv).GetDsvType();
    bool passes = type == filterType || (filterType == filter_type::kNumeric && type != dsvtype::kText);
    // A Text variable's shape is not checked.
    if (passes && type != dsvtype::kText) {
      if (filterCols >= 1 && dsv->GetDsvCols() != filterCols) return false;
      if (filterRows >= 1 && dsv->GetDsvRows() != filterRows) passes = false;
    }
    if (!passes) return false;
  }
  if (!writableOnly) return true;

  const toolkit::DsRef ds = Obj(dsv).GetDsvParent();
  if (Obj(ds).GetDsType() != toolkit::kind::kCustom) return false;
  const toolkit::CustomDsvRef custom = dsv->AsCustom();
  if (!custom) automation::Raise(automation::err::kTypeMismatch);
  return custom->GetDsvAccess() != kReadOnlyAccess;
}

void frmDataBrowser::ShowSelectStatus() {
  String text;
  if (mode == dialog_mode::kPickAny) {
    text = u"Please select any variable now...";
  } else {
    text = u"Select: ";
    if (writableOnly) text += u"Writable, ";
    text += TypeWord(filterType);
    text += ShapeWords(filterRows, filterCols);
  }
  sbSelectStatus.SetSimpleText(std::move(text));
}

String frmDataBrowser::FindMarkedDsv(const toolkit::DsListRef& dataSources) {
  const automation::StringView marker(kPreselectionMarker);
  toolkit::DsRef marked;
  int32_t dsIndex = 0;
  const int16_t dsCount = ToInteger(Obj(dataSources).DsCount());
  for (int32_t i = 1; i <= dsCount && !marked; ++i) {
    toolkit::DsRef ds = dataSources->DsItem(i);
    if (automation::StartsWith(Obj(ds).GetDsName(), marker)) {
      marked = std::move(ds);
      dsIndex = i;
    }
  }
  if (!marked) return {};
  marked->SetDsName(marked->GetDsName().substr(kMarkerLength));

  const toolkit::DsvListRef vars = marked->GetDsVars();
  const int16_t dsvCount = ToInteger(Obj(vars).DsvCount());
  for (int32_t j = 1; j <= dsvCount; ++j) {
    const toolkit::DsvRef dsvRef = vars->DsvItem(j);  // an adapted variable lives only as long as its reference
    toolkit::Dsv& dsv = Obj(dsvRef);
    const String name = dsv.GetDsvName();
    if (automation::StartsWith(name, marker)) {
      dsv.SetDsvName(name.substr(kMarkerLength));
      return ToDecimal(dsIndex) + u":" + ToDecimal(j);
    }
  }
  return {};
}

String frmDataBrowser::NormalizeBlanks(automation::StringView text) { return automation::NormalizeBlanks(text); }

}  // namespace vd::browser
