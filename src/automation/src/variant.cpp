#include "vd/automation/variant.h"

#include "vd/automation/error.h"

namespace vd::automation {
namespace {
template <class T, class V>
const T& Get(const V& value) {
  if (const T* p = std::get_if<T>(&value)) return *p;
  Raise(err::kTypeMismatch);
}
}  // namespace

int16_t Variant::AsInteger() const { return Get<int16_t>(value_); }
int32_t Variant::AsLong() const { return Get<int32_t>(value_); }
float Variant::AsSingle() const { return Get<float>(value_); }
double Variant::AsDouble() const { return Get<double>(value_); }
bool Variant::AsBoolean() const { return Get<bool>(value_); }
const String& Variant::AsString() const { return Get<String>(value_); }
const Array& Variant::AsArray() const { return *Get<std::shared_ptr<Array>>(value_); }

const ObjectRef& Variant::AsObject() const {
  if (const ObjectRef* p = std::get_if<ObjectRef>(&value_)) return *p;
  Raise(err::kObjectRequired);
}

bool Variant::operator==(const Variant& other) const {
  if (Type() != other.Type()) return false;
  if (Type() == VarType::kArray) {
    const Array& a = AsArray();
    const Array& b = other.AsArray();
    return a.lowerBound == b.lowerBound && a.items == b.items;
  }
  return value_ == other.value_;
}

String TypeName(const Variant& v) {
  switch (v.Type()) {
    case VarType::kEmpty:
      return u"Empty";
    case VarType::kNull:
      return u"Null";
    case VarType::kInteger:
      return u"Integer";
    case VarType::kLong:
      return u"Long";
    case VarType::kSingle:
      return u"Single";
    case VarType::kDouble:
      return u"Double";
    case VarType::kBoolean:
      return u"Boolean";
    case VarType::kString:
      return u"String";
    case VarType::kObject:
      return v.AsObject() ? u"Object" : u"Nothing";
    case VarType::kArray:
      return u"Variant()";
  }
  return u"Unknown";
}

}  // namespace vd::automation
