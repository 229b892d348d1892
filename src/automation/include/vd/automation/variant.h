#pragma once
// A tagged Automation value. Holds exactly one of the kinds below; Empty by default.
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

#include "vd/automation/object.h"
#include "vd/automation/string.h"

namespace vd::automation {

enum class VarType : uint8_t { kEmpty, kNull, kInteger, kLong, kSingle, kDouble, kBoolean, kString, kObject, kArray };

class Variant;

// A one-dimensional Automation array (SAFEARRAY of VARIANT) with its lower bound.
struct Array {
  int32_t lowerBound = 0;
  std::vector<Variant> items;
  // Defined below Variant: the element type must be complete first.
  [[nodiscard]] int32_t UpperBound() const;
};

struct NullValue {
  bool operator==(const NullValue&) const = default;
};

class Variant {
 public:
  Variant() = default;
  Variant(int16_t v) : value_(v) {}                  // NOLINT(google-explicit-constructor)
  Variant(int32_t v) : value_(v) {}                  // NOLINT(google-explicit-constructor)
  Variant(float v) : value_(v) {}                    // NOLINT(google-explicit-constructor)
  Variant(double v) : value_(v) {}                   // NOLINT(google-explicit-constructor)
  Variant(bool v) : value_(v) {}                     // NOLINT(google-explicit-constructor)
  Variant(String v) : value_(std::move(v)) {}        // NOLINT(google-explicit-constructor)
  Variant(const char16_t* v) : value_(String(v)) {}  // NOLINT(google-explicit-constructor)
  Variant(ObjectRef v) : value_(std::move(v)) {}     // NOLINT(google-explicit-constructor)
  Variant(std::nullptr_t) : value_(ObjectRef()) {}   // NOLINT(google-explicit-constructor) Nothing
  // Narrow text would silently become a Boolean through the pointer; say u"...".
  Variant(const char*) = delete;
  Variant(Array v) : value_(std::make_shared<Array>(std::move(v))) {}  // NOLINT(google-explicit-constructor)
  template <std::derived_from<Object> T>
  Variant(std::shared_ptr<T> v) : value_(ObjectRef(std::move(v))) {}  // NOLINT(google-explicit-constructor)

  static Variant Null() {
    Variant v;
    v.value_ = NullValue{};
    return v;
  }

  [[nodiscard]] VarType Type() const { return static_cast<VarType>(value_.index()); }
  [[nodiscard]] bool IsEmpty() const { return Type() == VarType::kEmpty; }
  [[nodiscard]] bool IsNull() const { return Type() == VarType::kNull; }
  [[nodiscard]] bool IsObject() const { return Type() == VarType::kObject; }
  [[nodiscard]] bool IsArray() const { return Type() == VarType::kArray; }

  // Exact-kind accessors: error 13 (type mismatch) when the kind differs.
  [[nodiscard]] int16_t AsInteger() const;
  [[nodiscard]] int32_t AsLong() const;
  [[nodiscard]] float AsSingle() const;
  [[nodiscard]] double AsDouble() const;
  [[nodiscard]] bool AsBoolean() const;
  [[nodiscard]] const String& AsString() const;
  [[nodiscard]] const ObjectRef& AsObject() const;  // error 424 when not an object
  [[nodiscard]] const Array& AsArray() const;

  // Object of a given interface, or nullptr when Nothing or of another class.
  template <class T>
  [[nodiscard]] std::shared_ptr<T> ObjectAs() const {
    if (!IsObject()) return nullptr;
    return std::dynamic_pointer_cast<T>(std::get<ObjectRef>(value_));
  }

  // Same kind and same value (Long 1 differs from Double 1); arrays compare
  // element by element, objects by identity. Not Automation's "=" operator.
  bool operator==(const Variant& other) const;

 private:
  // Order matches VarType.
  std::variant<std::monostate, NullValue, int16_t, int32_t, float, double, bool, String, ObjectRef,
               std::shared_ptr<Array>>
      value_;
};

inline int32_t Array::UpperBound() const { return lowerBound + static_cast<int32_t>(items.size()) - 1; }

// "Empty", "Null", "Integer", "Long", "Single", "Double", "Boolean", "String",
// "Nothing" or "Object" for objects, "Variant()" for arrays.
String TypeName(const Variant& v);

}  // namespace vd::automation
