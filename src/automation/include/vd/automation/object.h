#pragma once
// The root of every object reference a Variant can hold. Nothing is nullptr.
#include <memory>

namespace vd::automation {

class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;
};

using ObjectRef = std::shared_ptr<Object>;

}  // namespace vd::automation
