// Writes a sample display in the layout that the reader takes.
#include <fstream>
#include <nlohmann/json.hpp>

#include "sample_vocabulary.h"
#include "vd/automation/conversions.h"
#include "vd/sample/sample_file.h"

namespace vd::sample {

namespace {

using nlohmann::ordered_json;
namespace fs = std::filesystem;

std::string Utf8(const String& text) { return automation::ToUtf8(text); }

ordered_json ParamsJson(MemoryParamList& params) {
  ordered_json list = ordered_json::array();
  for (int32_t k = 1; k <= params.ParamCount(); ++k) {
    auto param = params.Item(k);
    ordered_json item;
    item["type"] = detail::WordOf(detail::kParamTypeWords, param->GetParamType());
    if (param->GetParamType() == toolkit::paramtype::kText) item["value"] = Utf8(param->GetParamValue().AsString());
    if (param->GetParamType() == toolkit::paramtype::kNumber) item["value"] = param->GetParamValue().AsDouble();
    list.push_back(std::move(item));
  }
  return list;
}

ordered_json VariableJson(MemoryDsv& dsv) {
  ordered_json item;
  item["name"] = Utf8(dsv.GetDsvName());
  item["type"] = detail::WordOf(detail::kTypeWords, dsv.GetDsvType());
  if (dsv.GetDsvRows() != 1) item["rows"] = dsv.GetDsvRows();
  if (dsv.GetDsvCols() != 1) item["cols"] = dsv.GetDsvCols();
  if (dsv.GetDsvScope() != toolkit::scope::kPrivate)
    item["scope"] = detail::WordOf(detail::kScopeWords, dsv.GetDsvScope());
  if (dsv.GetDsvValue() != 0) item["value"] = dsv.GetDsvValue();
  if (dsv.GetDsvUseCount() != 0) item["useCount"] = dsv.GetDsvUseCount();
  if (auto params = dsv.Params()) {
    if (dsv.Access() != 0) item["access"] = dsv.Access();
    item["params"] = ParamsJson(*params);
  }
  return item;
}

ordered_json DataSourceJson(MemoryDs& ds) {
  ordered_json item;
  item["name"] = Utf8(ds.GetDsName());
  item["kind"] = detail::WordOf(detail::kKindWords, ds.GetDsType());
  if (ds.GetDsType() == toolkit::kind::kFile) item["ascii"] = ds.GetDsAscii();
  if (auto params = ds.Params()) {
    item["className"] = Utf8(ds.ClassName());
    item["params"] = ParamsJson(*params);
  }
  ordered_json variables = ordered_json::array();
  auto vars = ds.Variables();
  for (int32_t j = 1; j <= vars->DsvCount(); ++j) variables.push_back(VariableJson(*vars->Item(j)));
  item["variables"] = std::move(variables);
  return item;
}

ordered_json ValueJson(const Variant& value) {
  switch (value.Type()) {
    case automation::VarType::kInteger:
    case automation::VarType::kLong:
      return automation::CLng(value);
    case automation::VarType::kSingle:
    case automation::VarType::kDouble:
      return automation::CDbl(value);
    case automation::VarType::kBoolean:
      return value.AsBoolean();
    case automation::VarType::kString:
      return Utf8(value.AsString());
    case automation::VarType::kArray: {
      ordered_json list = ordered_json::array();
      for (const auto& item : value.AsArray().items) list.push_back(ValueJson(item));
      return list;
    }
    default:
      return nullptr;
  }
}

std::string DirectoryText(const String& directory, const fs::path& baseDirectory) {
  const fs::path path(directory);
  if (path.is_relative()) return path.generic_string();
  const fs::path relative = path.lexically_relative(baseDirectory);
  return relative.empty() ? path.generic_string() : relative.generic_string();
}

ordered_json ScadaJson(const SimulatedScada& scada, const fs::path& baseDirectory) {
  ordered_json section;
  if (scada.CurrentApplication() != 0) section["currentApplication"] = scada.CurrentApplication();
  ordered_json applications = ordered_json::array();
  for (const auto& application : scada.Applications()) {
    applications.push_back({{"number", application.number},
                            {"name", Utf8(application.name)},
                            {"directory", DirectoryText(application.directory, baseDirectory)}});
  }
  section["applications"] = std::move(applications);
  ordered_json objects = ordered_json::array();
  for (const auto& object : scada.Objects()) {
    ordered_json item;
    if (object.kind != u'B') item["application"] = object.application;
    item["name"] = Utf8(object.name);
    item["kind"] = Utf8(String(1, object.kind));
    if (object.index != 0) item["index"] = object.index;
    ordered_json attributes = ordered_json::object();
    for (const auto& attribute : object.attributes) attributes[Utf8(attribute.name)] = ValueJson(attribute.value);
    item["attributes"] = std::move(attributes);
    if (object.offsets) item["offsets"] = Utf8(*object.offsets);
    if (object.offsetsStatus) item["offsets"] = *object.offsetsStatus;
    if (object.offsetsFail) item["offsets"] = false;
    objects.push_back(std::move(item));
  }
  section["objects"] = std::move(objects);
  return section;
}

}  // namespace

std::string WriteDisplayJson(const SampleDisplay& sample, const fs::path& baseDirectory) {
  ordered_json root;
  ordered_json sources = ordered_json::array();
  auto list = sample.display->DataSources();
  for (int32_t i = 1; i <= list->DsCount(); ++i) sources.push_back(DataSourceJson(*list->Item(i)));
  root["dataSources"] = std::move(sources);
  if (sample.scada) root["scada"] = ScadaJson(*sample.scada, baseDirectory);
  return root.dump(2) + "\n";
}

void SaveDisplayFile(const SampleDisplay& sample, const fs::path& path) {
  const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
  const std::string text = WriteDisplayJson(sample, fs::absolute(folder));
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
  out.close();
  if (!out) throw SampleFileError(path.string(), 0, "cannot write the file");
}

}  // namespace vd::sample
