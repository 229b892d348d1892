// A sample file with a number beyond Double's range loads nothing and names
// the file, the number's line and the reason, as every other bad file does
// (found by fuzz_sample_json; its input is kept under fuzz/corpus).
#include <gtest/gtest.h>

#include <string>

#include "vd/sample/sample_file.h"

namespace vd::robust_test {
namespace {

TEST(SampleFileNumberOverflow, NamesTheFileTheLineAndTheReason) {
  const struct {
    std::string text, number;  // the number as written
    int line;
  } cases[] = {{"21E12111", "21E12111", 1},
               {"{ \"dataSources\": [ { \"name\": \"L\", \"kind\": \"constant\",\n  \"variables\": [ { \"name\": \"H\","
                "\n \"type\": \"Float\", \"value\": -1e400 } ] } ] }\n",
                "-1e400", 3},
               {"{ \"dataSources\": [\n { \"name\": \"M\", \"kind\": \"memory\", \"variables\": [ { \"name\": \"V\","
                " \"rows\": 9E999 } ] } ] }\n",
                "9E999", 2}};
  for (const auto& c : cases) {
    try {
      (void)sample::LoadDisplayText(c.text, "test.json", "/samples");
      ADD_FAILURE() << c.number << ": loaded";
    } catch (const sample::SampleFileError& e) {
      EXPECT_EQ(std::string(e.what()),
                "test.json:" + std::to_string(c.line) + ": number overflow parsing '" + c.number + "'");
    }
  }
}

}  // namespace
}  // namespace vd::robust_test
