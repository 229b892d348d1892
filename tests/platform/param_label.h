#pragma once
// Names a parameterised test after its case's label.
#include <gtest/gtest.h>

#include <string>

namespace vd::platform::testing {

struct ParamLabel {
  template <class Case>
  std::string operator()(const ::testing::TestParamInfo<Case>& testCase) const {
    return testCase.param.label;
  }
};

}  // namespace vd::platform::testing
