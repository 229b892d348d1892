#include <gtest/gtest.h>

#include <string>

#include "vd/automation/error.h"

namespace vd::automation {
namespace {

TEST(AutomationError, StandardDescriptions) {
  const struct {
    int32_t number;
    String description;
  } cases[] = {
      {err::kInvalidProcedureCall, u"Invalid procedure call or argument"},
      {err::kOverflow, u"Overflow"},
      {err::kSubscriptOutOfRange, u"Subscript out of range"},
      {err::kTypeMismatch, u"Type mismatch"},
      {err::kObjectNotSet, u"Object variable or With block variable not set"},
      {err::kInvalidUseOfNull, u"Invalid use of Null"},
      {err::kKeyAlreadyInCollection, u"This key is already associated with an element of this collection"},
      {err::kTreeKeyNotUnique, u"Key is not unique in collection"},
      {12345, u"Application-defined or object-defined error"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(StandardDescription(c.number), c.description) << c.number;
    const AutomationError e(c.number);
    EXPECT_EQ(e.Number(), c.number);
    EXPECT_EQ(e.Description(), c.description);
    EXPECT_EQ(std::string(e.what()), "error " + std::to_string(c.number) + ": " + ToUtf8(c.description));
  }
}

TEST(AutomationError, RaiseCarriesNumberAndDescription) {
  try {
    Raise(err::kOverflow);
    ADD_FAILURE() << "Raise returned";
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.Number(), err::kOverflow);
    EXPECT_EQ(e.Description(), u"Overflow");
  }
  try {
    Raise(1001, u"K\u00FChlung fehlt");
    ADD_FAILURE() << "Raise returned";
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.Number(), 1001);
    EXPECT_EQ(e.Description(), u"K\u00FChlung fehlt");
    EXPECT_STREQ(e.what(), "error 1001: K\xC3\xBChlung fehlt");
  }
}

}  // namespace
}  // namespace vd::automation
