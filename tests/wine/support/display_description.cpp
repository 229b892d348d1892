#include "display_description.h"

#include <initializer_list>

#include "vd/automation/conversions.h"

namespace vd::testsupport {
namespace {

using automation::String;

String Number(int32_t n) { return automation::ToDecimal(n); }

// Appends the pieces in order (no operator+ chains: GCC 12 warns falsely on them).
void Append(String& text, std::initializer_list<automation::StringView> pieces) {
  for (automation::StringView piece : pieces) text.append(piece);
}

String DescribeParams(toolkit::ParamList& params) {
  String text = u"P=";
  const int32_t count = params.ParamCount();
  for (int32_t i = 1; i <= count; ++i) {
    toolkit::ParamRef param = params.ParamItem(static_cast<int16_t>(i));
    if (i > 1) text += u",";
    Append(text, {Number(param->GetParamType()), u":", automation::CStr(param->GetParamValue())});
  }
  return text;
}

}  // namespace

String DescribeDisplay(toolkit::Display& display) {
  String text;
  toolkit::DsListRef list = display.GetDataSources();
  const int32_t dsCount = list->DsCount();
  for (int32_t i = 1; i <= dsCount; ++i) {
    toolkit::DsRef ds = list->DsItem(i);
    Append(text, {u"DS ", Number(i), u" ", ds->GetDsName(), u"|", Number(ds->GetDsType()), u"|",
                  ds->GetDsAscii() ? u"1" : u"0"});
    if (auto custom = ds->AsCustom()) Append(text, {u"|", DescribeParams(*custom->GetParams())});
    text += u"\n";
    toolkit::DsvListRef vars = ds->GetDsVars();
    const int32_t dsvCount = vars->DsvCount();
    for (int32_t j = 1; j <= dsvCount; ++j) {
      toolkit::DsvRef dsv = vars->DsvItem(j);
      Append(text, {u"V ", Number(i),
                    u".",  Number(j),
                    u" ",  dsv->GetDsvName(),
                    u"|",  Number(dsv->GetDsvType()),
                    u"|",  Number(dsv->GetDsvShape()),
                    u"|",  Number(dsv->GetDsvRows()),
                    u"|",  Number(dsv->GetDsvCols()),
                    u"|",  Number(dsv->GetDsvScope()),
                    u"|",  automation::CStr(automation::Variant(dsv->GetDsvValue())),
                    u"|",  Number(dsv->GetDsvUseCount()),
                    u"|",  dsv->GetDsvParent()->GetDsName()});
      if (auto custom = dsv->AsCustom())
        Append(text, {u"|A=", Number(custom->GetDsvAccess()), u"|", DescribeParams(*custom->GetParams())});
      text += u"\n";
    }
  }
  return text;
}

}  // namespace vd::testsupport
