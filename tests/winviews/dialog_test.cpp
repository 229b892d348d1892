#include "dialog_test.h"

#include "views/control_lookup.h"

namespace vd::win32::views::testing {

POINT DialogTest::NodePoint(const String& key) const {
  POINT point{-1, -1};
  EXPECT_TRUE(NodeClickPoint(Tree(), FindTreeNode(Tree(), key), point)) << Narrow(key);
  return point;
}

}  // namespace vd::win32::views::testing
