#include "vd/sample/large_display.h"

#include <array>
#include <cstdio>
#include <string>

namespace vd::sample {

namespace {

using automation::FromUtf8;
namespace dsvtype = toolkit::dsvtype;
namespace paramtype = toolkit::paramtype;

struct Tag {
  const char* prefix;
  int32_t type;
};
// Instrument tags in the order they repeat within a unit.
constexpr std::array kTags = {
    Tag{"LT", dsvtype::kDouble}, Tag{"FT", dsvtype::kDouble}, Tag{"PT", dsvtype::kFloat},  Tag{"TT", dsvtype::kFloat},
    Tag{"XV", dsvtype::kLong},   Tag{"HS", dsvtype::kShort},  Tag{"SP", dsvtype::kDouble}, Tag{"AT", dsvtype::kFloat},
};

constexpr std::array kApplications = {
    std::pair{1, "NORTH"},
    std::pair{2, "SOUTH"},
};

String Numbered(const char* format, int32_t a, int32_t b = 0) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, format, a, b);
  return FromUtf8(buffer);
}

void AddScadaMapping(SimulatedScada& scada, MemoryDsv& dsv, int32_t application, int32_t unit, int32_t j) {
  const int32_t signal = (j - 1) % 3;
  const int32_t swap = signal == 0 ? ((j - 1) / 3) % 3 : 0;
  const String objectName = Numbered("U%04d", unit);
  const String offsets = Numbered("%d,%d", j, j + 1) + Numbered(",%d", j + 2);
  auto params = dsv.Params();
  params->AppendEmpty();
  params->Append(paramtype::kText, Numbered("\\\\APL\\%d\\P\\", application) + objectName + Numbered("\\%d:OV", j));
  params->Append(paramtype::kNumber, static_cast<double>(swap * 16 + signal));
  params->Append(paramtype::kText, signal == 1 ? offsets : String());
  params->Append(paramtype::kText, signal == 2 ? String(u"UNIT_SCALE.KORL") : String());

  ScadaObject object;
  object.application = application;
  object.name = objectName;
  object.kind = u'P';
  object.index = j;
  object.attributes.push_back({u"OV", Variant(static_cast<int32_t>((unit * j) % 100))});
  if (signal == 1) object.offsets = offsets;
  scada.AddObject(std::move(object));
}

}  // namespace

SampleDisplay GenerateLargeDisplay(LargeDisplaySize size) {
  SampleDisplay sample{MemoryDisplay::Create(), std::make_shared<SimulatedScada>()};
  for (const auto& [number, name] : kApplications) {
    sample.scada->AddApplication(ScadaApplication{number, FromUtf8(name), u"apl/" + FromUtf8(name)});
  }
  auto list = sample.display->DataSources();
  for (int32_t unit = 1; unit <= size.dataSources; ++unit) {
    const int32_t area = (unit - 1) / 100 + 1;
    const int32_t application = kApplications[static_cast<size_t>(area) % kApplications.size()].first;
    std::shared_ptr<MemoryDs> ds;
    switch ((unit - 1) % 4) {
      case 0:
        ds = list->Add(toolkit::kind::kFile, Numbered("area%02d/unit%04d_trend.dat", area, unit));
        ds->SetDsAscii(unit % 8 != 1);
        break;
      case 1:
        ds = list->Add(toolkit::kind::kMemory, String());
        ds->SetDsName(Numbered("Unit%04d_Entries", unit));
        break;
      case 2:
        ds = list->Add(toolkit::kind::kConstant, String());
        ds->SetDsName(Numbered("Unit%04d_Constants", unit));
        break;
      default:
        ds = list->Add(toolkit::kind::kCustom, kScadaDsClass);
        ds->SetDsName(Numbered("Unit%04d.custom", unit));
        ds->Params()->Item(2)->SetParamValue(paramtype::kNumber, static_cast<double>(application));
    }
    auto vars = ds->Variables();
    for (int32_t j = 1; j <= size.variablesPerDs; ++j) {
      const Tag& tag = kTags[static_cast<size_t>(j - 1) % kTags.size()];
      auto dsv = vars->Add();
      dsv->SetDsvName(FromUtf8(tag.prefix) + Numbered("%04d_%02d", unit, j));
      if (ds->GetDsType() != toolkit::kind::kConstant) dsv->SetDsvType(tag.type);
      if (ds->GetDsType() == toolkit::kind::kConstant) dsv->SetDsvValue(((unit * 37 + j * 11) % 1000) / 10.0);
      if (j % 10 == 0) dsv->SetDsvScope(toolkit::scope::kPublic);
      if ((unit + j) % 5 == 0) dsv->SetUseCount(1 + (unit + j) % 3);
      if (ds->GetDsType() == toolkit::kind::kCustom) AddScadaMapping(*sample.scada, *dsv, application, unit, j);
    }
  }
  return sample;
}

}  // namespace vd::sample
