// Object reference <-> OPC item id, and the application inside an item id.
#include <gtest/gtest.h>

#include "scada/item_id.h"
#include "vd/automation/string.h"

namespace vd::scada {
namespace {

using automation::ToUtf8;

// Each pair: the text given, what it turns into (nullptr: refused, the output is left alone).
using Cases = std::vector<std::pair<const char16_t*, const char16_t*>>;

TEST(ItemId, BuildsEachKindsFormAndRefusesMalformedReferences) {
  const Cases cases = {{u"sta:sov10", u"\\\\APL\\1\\S\\STA:OV(10)"},
                       {u"STA:SOV(10)", u"\\\\APL\\1\\S\\STA:OV(10)"},
                       {u"STA:DAL", u"\\\\APL\\1\\D\\STA:AL"},
                       {u"STA:POV10", u"\\\\APL\\1\\P\\STA\\10:OV"},
                       {u"STA:P10", u"\\\\APL\\1\\P\\STA\\10"},
                       {u"STA:POV", u"\\\\APL\\1\\P\\STA:OV"},
                       {u"STA:P", u"\\\\APL\\1\\P\\STA:"},
                       {u"STA12:BOV", u"\\\\STA\\12:OV"},
                       {u"STA:BOV", u"\\\\STA:OV"},
                       {u"STA", nullptr},
                       {u":SOV", nullptr},
                       {u"STA:", nullptr},
                       {u"12:BOV", nullptr},
                       {u"STA:B", nullptr}};
  for (const auto& [reference, itemId] : cases) {
    String out = u"old";
    EXPECT_EQ(BuildItemId(reference, 1, out), itemId != nullptr) << ToUtf8(reference);
    EXPECT_EQ(out, itemId ? itemId : u"old") << ToUtf8(reference);
  }
}

TEST(ItemId, ParsesBothFormsBackAndRefusesOthers) {
  const Cases cases = {{u"\\\\APL\\7\\S\\STA:OV(10)", u"STA:SOV10"},
                       {u"\\\\APL\\1\\P\\STA\\10:OV", u"STA:POV10"},
                       {u"\\\\APL\\1\\P\\STA\\10", u"STA:P10"},
                       {u"\\\\STA\\12:OV", u"STA12:BOV"},
                       {u"\\\\STA:OV", u"STA:BOV"},
                       {u"\\APL\\1\\P\\STA:OV", nullptr},
                       {u"\\\\APL\\1\\P", nullptr},
                       {u"\\\\APL\\1\\PX\\STA:OV", nullptr},
                       {u"\\\\APL\\1\\P\\:OV", nullptr},
                       {u"\\\\STA", nullptr},
                       {u"\\\\STA:OV\\1", nullptr},
                       {u"", nullptr}};
  for (const auto& [itemId, reference] : cases) {
    String out = u"old";
    EXPECT_EQ(ParseItemId(itemId, out), reference != nullptr) << ToUtf8(itemId);
    EXPECT_EQ(out, reference ? reference : u"old") << ToUtf8(itemId);
  }
}

TEST(ItemId, RewritesOnlyTheExactApplicationPrefix) {
  const Cases cases = {{u"\\\\APL\\1\\x", u"\\\\APL\\7\\x"},
                       {u"\\\\APL\\123\\P\\A:B", u"\\\\APL\\7\\P\\A:B"},
                       {u"\\\\APL\\1", nullptr},
                       {u"\\\\apl\\3\\x", nullptr},
                       {u"\\\\STA\\12:OV", nullptr},
                       {u"", nullptr}};
  for (const auto& [before, after] : cases) {
    String itemId = before;
    EXPECT_EQ(SetItemIdApplication(itemId, 7), after != nullptr) << ToUtf8(before);
    EXPECT_EQ(itemId, after ? after : before) << ToUtf8(before);
  }
}

}  // namespace
}  // namespace vd::scada
