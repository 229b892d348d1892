// Reads sample display files. The whole file is checked and built before
// anything is handed out, so a bad file yields an error and nothing else.
#include <fstream>
#include <initializer_list>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>
#include <unordered_set>

#include "json_source_map.h"
#include "sample_vocabulary.h"
#include "vd/automation/error.h"
#include "vd/automation/text.h"
#include "vd/sample/sample_file.h"

namespace vd::sample {

namespace {

using detail::Child;
using detail::JsonPath;
using nlohmann::json;
namespace fs = std::filesystem;

struct DuplicateKey {
  size_t objectOrdinal;
  std::string key;
};

String Utf16(const std::string& utf8) { return automation::FromUtf8(utf8); }

// nlohmann's parse messages begin with their own position; the line comes first in ours.
std::string ParseReason(const std::string& what) {
  const size_t column = what.find("column ");
  const size_t colon = column == std::string::npos ? std::string::npos : what.find(": ", column);
  return colon == std::string::npos ? what : what.substr(colon + 2);
}

// nlohmann's other messages begin with the exception's own name in brackets.
std::string ExceptionReason(const std::string& what) {
  const size_t end = what.rfind("] ", what.find(' '));
  return !what.empty() && what.front() == '[' && end != std::string::npos ? what.substr(end + 2) : what;
}

class Reader {
 public:
  Reader(std::string_view text, std::string file, fs::path baseDirectory)
      : text_(text), file_(std::move(file)), baseDirectory_(std::move(baseDirectory)) {}

  SampleDisplay Read() {
    const json root = Parse();
    const JsonPath top;
    ObjectAt(root, top);
    CheckKeys(root, top, {"dataSources", "scada"});
    SampleDisplay sample;
    sample.display = MemoryDisplay::Create();
    const JsonPath sourcesPath = Child(top, "dataSources");
    const json& sources = ArrayAt(Required(root, top, "dataSources"), sourcesPath);
    for (size_t i = 0; i < sources.size(); ++i) {
      const JsonPath path = Child(sourcesPath, i);
      Guard(path, [&] { ReadDataSource(*sample.display->DataSources(), sources[i], path); });
    }
    if (const json* scada = Optional(root, "scada")) sample.scada = ReadScada(*scada, Child(top, "scada"));
    return sample;
  }

 private:
  // --- parsing and reporting ---

  json Parse() const {
    std::vector<std::pair<size_t, std::unordered_set<std::string>>> open;  // ordinal and keys of open objects
    size_t ordinal = 0;
    auto callback = [&](int, json::parse_event_t event, json& parsed) {
      if (event == json::parse_event_t::object_start) {
        open.emplace_back(++ordinal, std::unordered_set<std::string>{});
      } else if (event == json::parse_event_t::key) {
        auto key = parsed.get<std::string>();
        if (!open.back().second.insert(key).second) throw DuplicateKey{open.back().first, key};
      } else if (event == json::parse_event_t::object_end) {
        open.pop_back();
      }
      return true;
    };
    try {
      return json::parse(text_, callback);
    } catch (const json::parse_error& e) {
      throw SampleFileError(file_, detail::LineAt(text_, e.byte == 0 ? 0 : e.byte - 1), ParseReason(e.what()));
    } catch (const json::out_of_range& e) {
      // A number beyond Double's range; the message names the number, not its place.
      throw SampleFileError(file_, detail::LineAt(text_, NamedTokenOffset(e.what())), ExceptionReason(e.what()));
    } catch (const DuplicateKey& d) {
      auto at = detail::FindKey(text_, d.objectOrdinal, d.key, 2);
      throw SampleFileError(file_, detail::LineAt(text_, at.value_or(0)), "duplicate key \"" + d.key + "\"");
    }
  }

  // Where the text holds the token that a message names in single quotes (0 when it names none).
  size_t NamedTokenOffset(const std::string& what) const {
    const size_t open = what.find('\'');
    const size_t close = open == std::string::npos ? std::string::npos : what.rfind('\'');
    if (close == std::string::npos || close <= open + 1) return 0;
    const size_t at = text_.find(std::string_view(what).substr(open + 1, close - open - 1));
    return at == std::string_view::npos ? 0 : at;
  }

  [[noreturn]] void Fail(const JsonPath& path, const std::string& what) const {
    JsonPath located = path;
    auto at = detail::FindValue(text_, located);
    while (!at && !located.empty()) {
      located.pop_back();
      at = detail::FindValue(text_, located);
    }
    throw SampleFileError(file_, detail::LineAt(text_, at.value_or(0)), detail::Describe(path) + ": " + what);
  }

  // Runs a toolkit or simulator call; its error becomes a report at path.
  template <class F>
  void Guard(const JsonPath& path, F&& call) const {
    try {
      call();
    } catch (const automation::AutomationError& e) {
      Fail(path, automation::ToUtf8(e.Description()));
    }
  }

  // --- values ---

  void CheckKeys(const json& object, const JsonPath& path, std::initializer_list<std::string_view> allowed) const {
    for (const auto& [key, value] : object.items()) {
      if (key == "comment") {
        TextAt(value, Child(path, key));
        continue;
      }
      bool known = false;
      for (auto a : allowed) known = known || a == key;
      if (!known) Fail(Child(path, key), "unknown key \"" + key + "\"");
    }
  }

  static const json* Optional(const json& object, const char* key) {
    auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
  }

  const json& Required(const json& object, const JsonPath& path, const char* key) const {
    const json* value = Optional(object, key);
    if (!value) Fail(path, std::string("missing \"") + key + "\"");
    return *value;
  }

  void Expect(bool ok, const json& value, const JsonPath& path, const char* what) const {
    if (!ok) Fail(path, std::string("must be ") + what + ", not " + value.type_name());
  }

  const json& ObjectAt(const json& value, const JsonPath& path) const {
    Expect(value.is_object(), value, path, "an object");
    return value;
  }
  const json& ArrayAt(const json& value, const JsonPath& path) const {
    Expect(value.is_array(), value, path, "an array");
    return value;
  }
  std::string TextAt(const json& value, const JsonPath& path) const {
    Expect(value.is_string(), value, path, "a text");
    return value.get<std::string>();
  }
  std::string NonEmptyTextAt(const json& value, const JsonPath& path) const {
    std::string text = TextAt(value, path);
    if (text.empty()) Fail(path, "must not be empty");
    return text;
  }
  double NumberAt(const json& value, const JsonPath& path) const {
    Expect(value.is_number(), value, path, "a number");
    return value.get<double>();
  }
  bool BooleanAt(const json& value, const JsonPath& path) const {
    Expect(value.is_boolean(), value, path, "true or false");
    return value.get<bool>();
  }
  int32_t WholeAt(const json& value, const JsonPath& path, int64_t min, int64_t max) const {
    const std::string range = "a whole number from " + std::to_string(min) + " to " + std::to_string(max);
    Expect(value.is_number_integer(), value, path, range.c_str());
    const bool inRange = value.is_number_unsigned() ? value.get<uint64_t>() <= static_cast<uint64_t>(max)
                                                    : value.get<int64_t>() >= min && value.get<int64_t>() <= max;
    if (!inRange) Fail(path, "must be " + range + ", not " + value.dump());
    return static_cast<int32_t>(value.get<int64_t>());
  }
  template <size_t N>
  int32_t WordAt(const json& value, const JsonPath& path, const std::array<detail::CodeWord, N>& words) const {
    const std::string word = TextAt(value, path);
    auto code = detail::CodeOf(words, word);
    if (!code) Fail(path, "\"" + word + "\" is not one of " + detail::ListOf(words));
    return *code;
  }

  // --- the display ---

  void ReadDataSource(MemoryDsList& list, const json& item, const JsonPath& path) const {
    ObjectAt(item, path);
    CheckKeys(item, path, {"name", "kind", "ascii", "className", "params", "variables"});
    const JsonPath kindPath = Child(path, "kind");
    const int32_t kind = WordAt(Required(item, path, "kind"), kindPath, detail::kKindWords);
    const bool file = kind == toolkit::kind::kFile;
    const bool custom = kind == toolkit::kind::kCustom;
    const String name = Utf16(NonEmptyTextAt(Required(item, path, "name"), Child(path, "name")));
    if (Optional(item, "ascii") && !file) Fail(Child(path, "ascii"), "only file data sources have a format");
    if (!custom) {
      for (const char* key : {"className", "params"})
        if (Optional(item, key)) Fail(Child(path, key), "only custom data sources have one");
    }
    const String className =
        custom ? Utf16(NonEmptyTextAt(Required(item, path, "className"), Child(path, "className"))) : String();

    auto ds = list.Add(kind, file ? name : className);
    if (!ds) Fail(path, "the toolkit refuses another data source");
    ds->SetDsName(name);
    if (const json* ascii = Optional(item, "ascii")) ds->SetDsAscii(BooleanAt(*ascii, Child(path, "ascii")));
    if (const json* params = Optional(item, "params")) {
      ds->Params()->Clear();
      ReadParams(*ds->Params(), *params, Child(path, "params"));
    }
    if (const json* variables = Optional(item, "variables")) {
      const JsonPath varsPath = Child(path, "variables");
      ArrayAt(*variables, varsPath);
      std::unordered_set<String> names;
      for (size_t j = 0; j < variables->size(); ++j)
        ReadVariable(*ds->Variables(), custom, (*variables)[j], Child(varsPath, j), names);
    }
  }

  void ReadVariable(MemoryDsvList& vars, bool custom, const json& item, const JsonPath& path,
                    std::unordered_set<String>& names) const {
    ObjectAt(item, path);
    CheckKeys(item, path, {"name", "type", "rows", "cols", "scope", "value", "useCount", "access", "params"});
    const JsonPath namePath = Child(path, "name");
    const String name = Utf16(NonEmptyTextAt(Required(item, path, "name"), namePath));
    if (!names.insert(automation::UCase(name)).second) {
      Fail(namePath, "duplicate variable name \"" + automation::ToUtf8(name) + "\" in this data source");
    }
    if (!custom) {
      for (const char* key : {"access", "params"})
        if (Optional(item, key)) Fail(Child(path, key), "only variables of custom data sources have one");
    }
    auto dsv = vars.Add();
    if (!dsv) Fail(path, "the toolkit refuses another variable");
    dsv->SetDsvName(name);
    if (const json* type = Optional(item, "type"))
      dsv->SetDsvType(WordAt(*type, Child(path, "type"), detail::kTypeWords));
    if (const json* rows = Optional(item, "rows")) {
      const int32_t n =
          WholeAt(*rows, Child(path, "rows"), std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max());
      Guard(Child(path, "rows"), [&] { dsv->SetDsvRows(n); });
    }
    if (const json* cols = Optional(item, "cols")) {
      const int32_t n =
          WholeAt(*cols, Child(path, "cols"), std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max());
      Guard(Child(path, "cols"), [&] { dsv->SetDsvCols(n); });
    }
    if (const json* scope = Optional(item, "scope"))
      dsv->SetDsvScope(WordAt(*scope, Child(path, "scope"), detail::kScopeWords));
    if (const json* value = Optional(item, "value")) dsv->SetDsvValue(NumberAt(*value, Child(path, "value")));
    if (const json* useCount = Optional(item, "useCount")) {
      dsv->SetUseCount(WholeAt(*useCount, Child(path, "useCount"), 0, std::numeric_limits<int32_t>::max()));
    }
    if (const json* access = Optional(item, "access")) {
      dsv->SetAccess(WholeAt(*access, Child(path, "access"), std::numeric_limits<int32_t>::min(),
                             std::numeric_limits<int32_t>::max()));
    }
    if (const json* params = Optional(item, "params")) ReadParams(*dsv->Params(), *params, Child(path, "params"));
  }

  void ReadParams(MemoryParamList& params, const json& array, const JsonPath& path) const {
    ArrayAt(array, path);
    for (size_t k = 0; k < array.size(); ++k) {
      const JsonPath itemPath = Child(path, k);
      const json& item = ObjectAt(array[k], itemPath);
      CheckKeys(item, itemPath, {"type", "value"});
      const JsonPath typePath = Child(itemPath, "type");
      const int32_t type = WordAt(Required(item, itemPath, "type"), typePath, detail::kParamTypeWords);
      const JsonPath valuePath = Child(itemPath, "value");
      switch (type) {
        case toolkit::paramtype::kText:
          params.Append(type, Utf16(TextAt(Required(item, itemPath, "value"), valuePath)));
          break;
        case toolkit::paramtype::kNumber:
          params.Append(type, NumberAt(Required(item, itemPath, "value"), valuePath));
          break;
        default:
          if (Optional(item, "value")) Fail(valuePath, "an empty parameter has no value");
          params.AppendEmpty();
      }
    }
  }

  // --- the SCADA system ---

  std::shared_ptr<SimulatedScada> ReadScada(const json& section, const JsonPath& path) const {
    ObjectAt(section, path);
    CheckKeys(section, path, {"currentApplication", "applications", "objects"});
    auto scada = std::make_shared<SimulatedScada>();
    if (const json* applications = Optional(section, "applications")) {
      const JsonPath appsPath = Child(path, "applications");
      ArrayAt(*applications, appsPath);
      for (size_t i = 0; i < applications->size(); ++i) ReadApplication(*scada, (*applications)[i], Child(appsPath, i));
    }
    if (const json* current = Optional(section, "currentApplication")) {
      const JsonPath currentPath = Child(path, "currentApplication");
      const int32_t number = WholeAt(*current, currentPath, 1, std::numeric_limits<int16_t>::max());
      if (!HasApplication(*scada, number)) Fail(currentPath, "no application has number " + std::to_string(number));
      scada->SetCurrentApplication(number);
    }
    if (const json* objects = Optional(section, "objects")) {
      const JsonPath objectsPath = Child(path, "objects");
      ArrayAt(*objects, objectsPath);
      for (size_t i = 0; i < objects->size(); ++i) ReadObject(*scada, (*objects)[i], Child(objectsPath, i));
    }
    return scada;
  }

  static bool HasApplication(const SimulatedScada& scada, int32_t number) {
    for (const auto& application : scada.Applications())
      if (application.number == number) return true;
    return false;
  }

  void ReadApplication(SimulatedScada& scada, const json& item, const JsonPath& path) const {
    ObjectAt(item, path);
    CheckKeys(item, path, {"number", "name", "directory"});
    ScadaApplication application;
    const JsonPath numberPath = Child(path, "number");
    application.number = WholeAt(Required(item, path, "number"), numberPath, 1, std::numeric_limits<int16_t>::max());
    if (HasApplication(scada, application.number)) {
      Fail(numberPath, "duplicate application number " + std::to_string(application.number));
    }
    application.name = Utf16(NonEmptyTextAt(Required(item, path, "name"), Child(path, "name")));
    fs::path directory =
        fs::path(automation::FromUtf8(NonEmptyTextAt(Required(item, path, "directory"), Child(path, "directory"))));
    if (directory.is_relative()) directory = baseDirectory_ / directory;
    application.directory = directory.lexically_normal().make_preferred().u16string();
    scada.AddApplication(std::move(application));
  }

  void ReadObject(SimulatedScada& scada, const json& item, const JsonPath& path) const {
    ObjectAt(item, path);
    CheckKeys(item, path, {"application", "name", "kind", "index", "attributes", "offsets"});
    ScadaObject object;
    const JsonPath kindPath = Child(path, "kind");
    const String kind = automation::UCase(Utf16(TextAt(Required(item, path, "kind"), kindPath)));
    if (kind.size() != 1) Fail(kindPath, "must be one letter");
    object.kind = kind.front();
    const JsonPath appPath = Child(path, "application");
    if (object.kind == u'B') {
      if (Optional(item, "application")) Fail(appPath, "objects of kind B belong to no application");
    } else {
      object.application =
          WholeAt(Required(item, path, "application"), appPath, 1, std::numeric_limits<int16_t>::max());
      if (!HasApplication(scada, object.application)) {
        Fail(appPath, "no application has number " + std::to_string(object.application));
      }
    }
    object.name = Utf16(NonEmptyTextAt(Required(item, path, "name"), Child(path, "name")));
    if (const json* index = Optional(item, "index")) {
      object.index = WholeAt(*index, Child(path, "index"), 0, std::numeric_limits<int32_t>::max());
    }
    if (const json* attributes = Optional(item, "attributes")) {
      const JsonPath attrsPath = Child(path, "attributes");
      for (const auto& [name, value] : ObjectAt(*attributes, attrsPath).items()) {
        object.attributes.push_back(ScadaAttribute{Utf16(name), AttributeValue(value, Child(attrsPath, name), true)});
      }
    }
    if (const json* offsets = Optional(item, "offsets")) {
      const JsonPath offsetsPath = Child(path, "offsets");
      if (offsets->is_boolean() && !offsets->get<bool>()) {
        object.offsetsFail = true;
      } else if (offsets->is_number()) {
        object.offsetsStatus =
            WholeAt(*offsets, offsetsPath, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max());
      } else {
        object.offsets = Utf16(TextAt(*offsets, offsetsPath));
      }
    }
    Guard(path, [&] { scada.AddObject(std::move(object)); });
  }

  Variant AttributeValue(const json& value, const JsonPath& path, bool allowArray) const {
    if (value.is_string()) return Variant(Utf16(value.get<std::string>()));
    if (value.is_boolean()) return Variant(value.get<bool>());
    if (value.is_null()) return Variant::Null();
    if (value.is_number_integer() && !value.is_number_unsigned() &&
        value.get<int64_t>() >= std::numeric_limits<int32_t>::min() &&
        value.get<int64_t>() <= std::numeric_limits<int32_t>::max()) {
      return Variant(static_cast<int32_t>(value.get<int64_t>()));
    }
    if (value.is_number_unsigned() && value.get<uint64_t>() <= std::numeric_limits<int32_t>::max()) {
      return Variant(static_cast<int32_t>(value.get<uint64_t>()));
    }
    if (value.is_number()) return Variant(value.get<double>());
    if (value.is_array() && allowArray) {
      automation::Array array;
      for (size_t i = 0; i < value.size(); ++i) array.items.push_back(AttributeValue(value[i], Child(path, i), false));
      return Variant(std::move(array));
    }
    Fail(path, std::string("must be a number, text, true, false or null") +
                   (allowArray ? " or an array of those" : "") + ", not " + value.type_name());
  }

  std::string_view text_;
  std::string file_;
  fs::path baseDirectory_;
};

}  // namespace

SampleFileError::SampleFileError(std::string file, int line, std::string reason)
    : std::runtime_error(file + ":" + std::to_string(line) + ": " + reason),
      file_(std::move(file)),
      line_(line),
      reason_(std::move(reason)) {}

SampleDisplay LoadDisplayText(std::string_view text, const std::string& fileName, const fs::path& baseDirectory) {
  return Reader(text, fileName, baseDirectory).Read();
}

SampleDisplay LoadDisplayFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw SampleFileError(path.string(), 0, "cannot open the file");
  std::ostringstream content;
  content << in.rdbuf();
  if (in.bad()) throw SampleFileError(path.string(), 0, "cannot read the file");
  const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
  return LoadDisplayText(content.str(), path.string(), fs::absolute(folder));
}

}  // namespace vd::sample
