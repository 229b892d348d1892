#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "vd/automation/conversions.h"
#include "vd/sample/large_display.h"
#include "vd/sample/sample_file.h"

namespace vd::sample {
namespace {

using automation::String;
namespace fs = std::filesystem;

// The 1-based line on which marker first appears in text.
int LineOf(const std::string& text, const std::string& marker) {
  const size_t at = text.find(marker);
  EXPECT_NE(at, std::string::npos) << marker;
  int line = 1;
  for (size_t i = 0; i < at && i < text.size(); ++i) line += text[i] == '\n';
  return line;
}

SampleDisplay Load(const std::string& text) { return LoadDisplayText(text, "test.json", "/samples"); }

TEST(SampleFileErrors, NameTheLineAndTheReasonAndLoadNothing) {
  const struct {
    const char* what;
    std::string text;
    std::string marker;  // first text of the line the report must name
    std::string reason;  // part of the reason
  } cases[] = {
      {"truncated", "{\n  \"dataSources\": [\n    { \"name\": \"a\", \"kind\": \"memory\" }\n", "{ \"name\"",
       "unexpected end of input"},
      {"unknown kind", "{\"dataSources\": [\n{\"name\": \"x\",\n \"kind\": \"spreadsheet\"}]}", " \"kind\"",
       "\"spreadsheet\" is not one of"},
      {"duplicate key",
       "{\n  \"dataSources\": [\n    { \"name\": \"a\", \"kind\": \"memory\",\n      \"name\": \"b\" }\n  ]\n}\n",
       "      \"name\": \"b\"", "duplicate key \"name\""},
      {"duplicate application",
       "{\"dataSources\": [], \"scada\": {\"applications\": [\n"
       "  {\"number\": 1, \"name\": \"A\", \"directory\": \"a\"},\n"
       "  {\"number\": 1, \"name\": \"B\", \"directory\": \"b\"}]}}",
       "  {\"number\": 1, \"name\": \"B\"", "duplicate application number 1"},
      {"stray comma", "{\n  \"dataSources\": [\n    {},\n  ]\n}\n", "  ]", "syntax error"},
      {"rows beyond the toolkit's limit",
       "{\"dataSources\": [{\"name\": \"m\", \"kind\": \"memory\", \"variables\": [\n"
       "  {\"name\": \"LT101\",\n   \"rows\": 70000}]}]}",
       "   \"rows\"", "Rows must be between 0 and 65535"},
      {"duplicate variable name",
       "{\"dataSources\": [{\"name\": \"m\", \"kind\": \"memory\", \"variables\": [\n"
       "  {\"name\": \"Pump_Running\"},\n  {\"name\": \"PUMP_RUNNING\"}]}]}",
       "  {\"name\": \"PUMP", "duplicate variable name \"PUMP_RUNNING\""},
      {"misspelt key",
       "{\"dataSources\": [{\"name\": \"m\", \"kind\": \"memory\", \"variables\": [\n"
       "  {\"name\": \"P1\",\n   \"useCont\": 2}]}]}",
       "   \"useCont\"", "unknown key \"useCont\""},
      {"object of an unknown application",
       "{\"dataSources\": [], \"scada\": {\"applications\": [],\n \"objects\": [\n"
       "  {\"application\": 4,\n   \"name\": \"STA\", \"kind\": \"P\"}]}}",
       "  {\"application\": 4", "no application has number 4"}};
  for (const auto& c : cases) {
    try {
      Load(c.text);
      ADD_FAILURE() << c.what << ": loaded";
    } catch (const SampleFileError& e) {
      EXPECT_EQ(e.File(), "test.json") << c.what;
      EXPECT_EQ(e.Line(), LineOf(c.text, c.marker)) << c.what << ": " << e.what();
      EXPECT_NE(e.Reason().find(c.reason), std::string::npos) << c.what << ": " << e.what();
      EXPECT_EQ(std::string(e.what()), "test.json:" + std::to_string(e.Line()) + ": " + e.Reason());
    }
  }
}

TEST(SampleFileLoad, BuildsTheDisplayAndTheSystemFromTheFile) {
  const std::string text = R"({
  "dataSources": [
    { "name": "trend.dat", "kind": "file", "ascii": false,
      "variables": [ { "name": "LT101", "type": "Float", "cols": 24, "scope": "public", "useCount": 2 } ] },
    { "name": "Pumps.custom", "kind": "custom", "className": "TelvaneDV.DataSource",
      "variables": [ { "name": "P101", "access": 1,
                       "params": [ { "type": "empty" }, { "type": "text", "value": "\\\\APL\\3\\P\\P101\\10:OV" },
                                   { "type": "number", "value": 17 } ] } ] }
  ],
  "scada": {
    "applications": [ { "number": 3, "name": "PUMPS", "directory": "apl/PUMPS" } ],
    "objects": [ { "application": 3, "name": "P101", "kind": "P", "index": 10,
                   "attributes": { "OV": 1, "TREND": [ 1.5, 2 ] }, "offsets": "1,2,3" } ]
  }
})";
  const SampleDisplay sample = Load(text);
  auto list = sample.display->GetDataSources();
  ASSERT_EQ(list->DsCount(), 2);
  auto file = list->DsItem(1);
  EXPECT_EQ(file->GetDsType(), toolkit::kind::kFile);
  EXPECT_FALSE(file->GetDsAscii());
  auto level = file->GetDsVars()->DsvItem(1);
  EXPECT_EQ(level->GetDsvShape(), toolkit::shape::kVector);
  EXPECT_EQ(level->GetDsvScope(), toolkit::scope::kPublic);
  EXPECT_EQ(level->RemoveDsv(), false) << "in use";

  auto scadaDs = list->DsItem(2);
  EXPECT_EQ(scadaDs->AsCustom()->GetParams()->ParamCount(), 3) << "the class's own parameters";
  auto pump = scadaDs->GetDsVars()->DsvItem(1)->AsCustom();
  EXPECT_EQ(pump->GetDsvAccess(), 1);
  auto params = pump->GetParams();
  ASSERT_EQ(params->ParamCount(), 3);
  EXPECT_TRUE(params->ParamItem(1)->GetParamValue().IsEmpty());
  EXPECT_EQ(automation::CLng(params->ParamItem(3)->GetParamValue()), 17);

  ASSERT_NE(sample.scada, nullptr);
  EXPECT_EQ(sample.scada->CurrentApplication(), 3);
  automation::Variant value;
  sample.scada->ValidateItem(params->ParamItem(2)->GetParamValue().AsString(), value);
  EXPECT_EQ(value, automation::Variant(int32_t{1}));
  EXPECT_EQ(fs::path(sample.scada->Applications()[0].directory),
            (fs::path("/samples") / "apl" / "PUMPS").make_preferred());
}

TEST(SampleFileLoad, AFileWithoutScadaSectionHasNoSystem) {
  EXPECT_EQ(Load(R"({"dataSources": []})").scada, nullptr);
  EXPECT_NE(Load(R"({"dataSources": [], "scada": {}})").scada, nullptr);
}

TEST(SampleFileLoad, WritingAndReadingAgainGivesTheSameText) {
  const std::string text = R"({"dataSources": [
    {"name": "C", "kind": "constant", "variables": [{"name": "K", "value": 0.1, "useCount": 1}]},
    {"name": "L.custom", "kind": "custom", "className": "Lab.Sampler", "params": [{"type": "number", "value": 900}],
     "variables": [{"name": "T", "type": "Text", "cols": 255, "access": 1, "params": [{"type": "text", "value": "é"}]}]}],
   "scada": {"currentApplication": 2,
             "applications": [{"number": 1, "name": "A", "directory": "apl/A"}, {"number": 2, "name": "B", "directory": "/abs/B"}],
             "objects": [{"name": "WD", "kind": "b", "index": 1, "attributes": {"OV": -3, "F": 2.5, "S": "x", "N": null, "Y": true, "T": [1, 2.5]}}]}})";
  const std::string written = WriteDisplayJson(Load(text), "/samples");
  EXPECT_EQ(WriteDisplayJson(Load(written), "/samples"), written);
  EXPECT_NE(written.find("\"apl/A\""), std::string::npos) << "relative directories stay relative";
  EXPECT_NE(written.find("\"currentApplication\": 2"), std::string::npos);
}

TEST(SampleFileLoad, SavedFilesLoadAgainFromTheirOwnFolder) {
  const fs::path folder = fs::temp_directory_path() / "vd-sample-saved-files";
  fs::create_directories(folder);
  const fs::path path = folder / "saved.json";
  const SampleDisplay sample = LoadDisplayText(
      R"({"dataSources": [{"name": "m", "kind": "memory"}],
          "scada": {"applications": [{"number": 1, "name": "A", "directory": "apl/A"}]}})",
      "x.json", folder);
  SaveDisplayFile(sample, path);
  const SampleDisplay again = LoadDisplayFile(path);
  EXPECT_EQ(again.scada->Applications()[0].directory, sample.scada->Applications()[0].directory);
  EXPECT_EQ(WriteDisplayJson(again, folder), WriteDisplayJson(sample, folder));
  std::ofstream(path) << "{\n  \"dataSources\": [\n";
  try {
    LoadDisplayFile(path);
    ADD_FAILURE() << "loaded a truncated file";
  } catch (const SampleFileError& e) {
    EXPECT_EQ(e.File(), path.string());
    EXPECT_EQ(e.Line(), 2);
  }
  fs::remove_all(folder);
  try {
    LoadDisplayFile(path);
    ADD_FAILURE() << "loaded a missing file";
  } catch (const SampleFileError& e) {
    EXPECT_EQ(e.Line(), 0);
  }
}

TEST(SampleFileLoad, EveryFileUnderSamplesLoads) {
  const char* source = std::getenv("VD_SOURCE_DIR");
  int files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(source ? source : ".") / "samples")) {
    if (entry.path().extension() != ".json") continue;
    ++files;
    EXPECT_NO_THROW(LoadDisplayFile(entry.path())) << entry.path();
  }
  EXPECT_GE(files, 2);
}

TEST(LargeDisplay, HasTheRequestedSizeIsTheSameEveryTimeAndEveryMappedVariableValidates) {
  const SampleDisplay sample = GenerateLargeDisplay({16, 12});
  EXPECT_EQ(WriteDisplayJson(GenerateLargeDisplay({16, 12}), "/"), WriteDisplayJson(sample, "/"));
  int mapped = 0;
  auto list = sample.display->GetDataSources();
  ASSERT_EQ(list->DsCount(), 16);
  for (int32_t i = 1; i <= list->DsCount(); ++i) {
    auto vars = list->DsItem(i)->GetDsVars();
    ASSERT_EQ(vars->DsvCount(), 12);
    for (int32_t j = 1; j <= vars->DsvCount(); ++j) {
      auto custom = vars->DsvItem(j)->AsCustom();
      if (!custom) continue;
      automation::Variant value;
      sample.scada->ValidateItem(automation::CStr(custom->GetParams()->ParamItem(2)->GetParamValue()), value);
      ++mapped;
    }
  }
  EXPECT_EQ(mapped, 16 / 4 * 12);
}

}  // namespace
}  // namespace vd::sample
