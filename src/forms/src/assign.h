#pragma once
// Stores a value and says whether it changed: the rule that assigning the value
// a property already has changes and raises nothing.
#include <utility>

namespace vd::forms::detail {

template <class T>
bool Assign(T& member, T value) {
  if (member == value) return false;
  member = std::move(value);
  return true;
}

}  // namespace vd::forms::detail
