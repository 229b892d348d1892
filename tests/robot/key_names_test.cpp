#include "key_names.h"

#include <gtest/gtest.h>

namespace vd::robot {
namespace {

struct KeyCase {
  const char* name;
  uint16_t code;  // Windows' VK_ value
};

class KnownKey : public ::testing::TestWithParam<KeyCase> {};

TEST_P(KnownKey, HasWindowsCode) {
  const auto code = VirtualKeyOf(GetParam().name);
  ASSERT_TRUE(code.has_value()) << GetParam().name;
  EXPECT_EQ(*code, GetParam().code) << GetParam().name;
}

// VK_F1 0x70 .. VK_F12 0x7B, VK_TAB 0x09, VK_RETURN 0x0D, VK_ESCAPE 0x1B,
// VK_DELETE 0x2E; letters and digits are their upper-case characters.
INSTANTIATE_TEST_SUITE_P(Keys, KnownKey,
                         ::testing::Values(KeyCase{"F1", 0x70}, KeyCase{"F3", 0x72}, KeyCase{"f3", 0x72},
                                           KeyCase{"F12", 0x7B}, KeyCase{"TAB", 0x09}, KeyCase{"Enter", 0x0D},
                                           KeyCase{"return", 0x0D}, KeyCase{"ESC", 0x1B}, KeyCase{"DELETE", 0x2E},
                                           KeyCase{"F", 'F'}, KeyCase{"f", 'F'}, KeyCase{"7", '7'},
                                           KeyCase{"down", 0x28}));

class UnknownKey : public ::testing::TestWithParam<const char*> {};

TEST_P(UnknownKey, HasNoCode) { EXPECT_FALSE(VirtualKeyOf(GetParam()).has_value()) << GetParam(); }

INSTANTIATE_TEST_SUITE_P(Keys, UnknownKey, ::testing::Values("", "F0", "F25", "F100", "FX", "ENTERX", "#", "ab"));

}  // namespace
}  // namespace vd::robot
