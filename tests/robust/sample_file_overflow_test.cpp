// A sample file with a number beyond Double's range loads nothing and names
// the file, the number's line and the reason, as every other bad file does
// (found by fuzz_sample_json; its input is kept under fuzz/corpus).
#include <gtest/gtest.h>

#include <string>

#include "vd/sample/sample_file.h"

namespace vd::robust_test {
namespace {

int LineOf(const std::string& text, const std::string& marker) {
  const size_t at = text.find(marker);
  EXPECT_NE(at, std::string::npos) << marker;
  int line = 1;
  for (size_t i = 0; i < at && i < text.size(); ++i) line += text[i] == '\n' ? 1 : 0;
  return line;
}

TEST(SampleFileNumberOverflow, NamesTheFileTheLineAndTheReason) {
  const struct {
    const char* what;
    std::string text;
    std::string number;  // as written; its line is the one reported
  } cases[] = {
      {"the whole file", "21E12111", "21E12111"},
      {"a constant's value",
       "{\n  \"dataSources\": [\n    { \"name\": \"Limits\", \"kind\": \"constant\",\n"
       "      \"variables\": [ { \"name\": \"High\", \"type\": \"Float\",\n        \"value\": -1e400 } ] } ] }\n",
       "-1e400"},
      {"a row count",
       "{\n  \"dataSources\": [\n    { \"name\": \"M\", \"kind\": \"memory\",\n"
       "      \"variables\": [ { \"name\": \"V\", \"rows\": 9E999 } ] } ] }\n",
       "9E999"}};
  for (const auto& c : cases) {
    try {
      (void)sample::LoadDisplayText(c.text, "test.json", "/samples");
      ADD_FAILURE() << c.what << ": loaded";
    } catch (const sample::SampleFileError& e) {
      EXPECT_EQ(e.File(), "test.json") << c.what;
      EXPECT_EQ(e.Line(), LineOf(c.text, c.number)) << c.what;
      EXPECT_EQ(e.Reason(), "number overflow parsing '" + c.number + "'") << c.what;
      EXPECT_EQ(std::string(e.what()), "test.json:" + std::to_string(e.Line()) + ": " + e.Reason()) << c.what;
    }
  }
}

}  // namespace
}  // namespace vd::robust_test
