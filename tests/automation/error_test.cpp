#include <gtest/gtest.h>

#include <string>

#include "vd/automation/error.h"

namespace vd::automation {
namespace {

TEST(AutomationError, CarriesNumberAndDescription) {
  const struct {
    int32_t number;
    String description;  // empty: the standard one
    String expected;
    const char* what;
  } cases[] = {
      {err::kOverflow, u"", u"Overflow", "error 6: Overflow"},
      {err::kTypeMismatch, u"", u"Type mismatch", "error 13: Type mismatch"},
      {12345, u"", u"Application-defined or object-defined error",
       "error 12345: Application-defined or object-defined error"},
      {1001, u"K\u00FChlung fehlt", u"K\u00FChlung fehlt", "error 1001: K\xC3\xBChlung fehlt"},
  };
  for (const auto& c : cases) {
    try {
      if (c.description.empty()) {
        Raise(c.number);
      } else {
        Raise(c.number, c.description);
      }
      ADD_FAILURE() << "Raise returned for " << c.number;
    } catch (const AutomationError& e) {
      EXPECT_EQ(e.Number(), c.number);
      EXPECT_EQ(e.Description(), c.expected) << c.number;
      EXPECT_STREQ(e.what(), c.what);
    }
  }
}

}  // namespace
}  // namespace vd::automation
