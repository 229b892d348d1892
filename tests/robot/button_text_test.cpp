#include "button_text.h"

#include <gtest/gtest.h>

namespace vd::robot {
namespace {

struct AccessKeyCase {
  const char16_t* shown;
  const char16_t* read;
};

class AccessKey : public ::testing::TestWithParam<AccessKeyCase> {};

TEST_P(AccessKey, IsDroppedFromTheText) { EXPECT_EQ(WithoutAccessKey(GetParam().shown), GetParam().read); }

INSTANTIATE_TEST_SUITE_P(Texts, AccessKey,
                         ::testing::Values(AccessKeyCase{u"OK", u"OK"}, AccessKeyCase{u"&Retry", u"Retry"},
                                           AccessKeyCase{u"<< &Edit", u"<< Edit"}, AccessKeyCase{u"&&Co", u"&Co"},
                                           AccessKeyCase{u"A&&&B", u"A&B"}, AccessKeyCase{u"End&", u"End"},
                                           AccessKeyCase{u"", u""}));

}  // namespace
}  // namespace vd::robot
