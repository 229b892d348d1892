#include <gtest/gtest.h>

#include <memory>

#include "error_number.h"
#include "vd/automation/error.h"
#include "vd/automation/variant.h"

namespace vd::automation {
namespace {

using testing::ErrorNumberOf;

class Tank : public Object {};
class Pump : public Object {};

TEST(Variant, KindAndTypeNameOfEveryValue) {
  const struct {
    Variant value;
    VarType type;
    String name;
  } cases[] = {
      {Variant(), VarType::kEmpty, u"Empty"},
      {Variant::Null(), VarType::kNull, u"Null"},
      {Variant(int16_t{1}), VarType::kInteger, u"Integer"},
      {Variant(1), VarType::kLong, u"Long"},
      {Variant(1.0F), VarType::kSingle, u"Single"},
      {Variant(1.0), VarType::kDouble, u"Double"},
      {Variant(false), VarType::kBoolean, u"Boolean"},
      {Variant(u""), VarType::kString, u"String"},
      {Variant(String(u"x")), VarType::kString, u"String"},
      {Variant(std::make_shared<Tank>()), VarType::kObject, u"Object"},
      {Variant(ObjectRef()), VarType::kObject, u"Nothing"},
      {Variant(nullptr), VarType::kObject, u"Nothing"},
      {Variant(Array{1, {}}), VarType::kArray, u"Variant()"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.value.Type(), c.type) << ToUtf8(c.name);
    EXPECT_EQ(TypeName(c.value), c.name);
    EXPECT_EQ(c.value.IsEmpty(), c.type == VarType::kEmpty) << ToUtf8(c.name);
    EXPECT_EQ(c.value.IsNull(), c.type == VarType::kNull) << ToUtf8(c.name);
    EXPECT_EQ(c.value.IsObject(), c.type == VarType::kObject) << ToUtf8(c.name);
    EXPECT_EQ(c.value.IsArray(), c.type == VarType::kArray) << ToUtf8(c.name);
  }
}

TEST(Variant, AccessorsRaiseOnAnotherKind) {
  const Variant text(u"12");
  const Variant number(12);
  EXPECT_EQ(text.AsString(), u"12");
  EXPECT_EQ(number.AsLong(), 12);
  const struct {
    const char* accessor;
    int32_t error;
  } cases[] = {
      {"AsInteger", ErrorNumberOf([&] { (void)text.AsInteger(); })},
      {"AsLong", ErrorNumberOf([&] { (void)text.AsLong(); })},
      {"AsSingle", ErrorNumberOf([&] { (void)number.AsSingle(); })},
      {"AsDouble", ErrorNumberOf([&] { (void)number.AsDouble(); })},
      {"AsBoolean", ErrorNumberOf([&] { (void)number.AsBoolean(); })},
      {"AsString", ErrorNumberOf([&] { (void)number.AsString(); })},
      {"AsArray", ErrorNumberOf([&] { (void)number.AsArray(); })},
  };
  for (const auto& c : cases) EXPECT_EQ(c.error, err::kTypeMismatch) << c.accessor;
  EXPECT_EQ(ErrorNumberOf([&] { (void)number.AsObject(); }), err::kObjectRequired);
}

TEST(Variant, EqualityNeedsTheSameKindAndValue) {
  auto tank = std::make_shared<Tank>();
  const struct {
    Variant a;
    Variant b;
    bool equal;
  } cases[] = {
      {Variant(1), Variant(1), true},
      {Variant(1), Variant(1.0), false},
      {Variant(1), Variant(int16_t{1}), false},
      {Variant(u"a"), Variant(u"a"), true},
      {Variant(u"a"), Variant(u"A"), false},
      {Variant(), Variant(), true},
      {Variant(), Variant::Null(), false},
      {Variant::Null(), Variant::Null(), true},
      {Variant(tank), Variant(tank), true},
      {Variant(tank), Variant(std::make_shared<Tank>()), false},
      {Variant(Array{0, {1, u"x"}}), Variant(Array{0, {1, u"x"}}), true},
      {Variant(Array{0, {1, u"x"}}), Variant(Array{1, {1, u"x"}}), false},
      {Variant(Array{0, {1, u"x"}}), Variant(Array{0, {1, u"y"}}), false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.a == c.b, c.equal) << ToUtf8(TypeName(c.a)) << " / " << ToUtf8(TypeName(c.b));
    EXPECT_EQ(c.b == c.a, c.equal) << ToUtf8(TypeName(c.a)) << " / " << ToUtf8(TypeName(c.b));
  }
}

}  // namespace
}  // namespace vd::automation
