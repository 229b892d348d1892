#pragma once
// The custom parameter list of the in-memory toolkit: an ordered, 1-based list
// of typed values carried by custom data sources and their variables.
//
// Rules:
// - AddParam appends a parameter of type code 0 whose value is Empty (so CStr
//   reads "" and CLng reads 0) and returns it.
// - ParamItem outside 1..ParamCount raises error 9.
// - SetParamValue accepts type code 9 (the value is stored as text, CStr) and
//   type code 5 (stored as a Double, CDbl); any other code raises error 5, and
//   a value that does not convert raises the conversion's error. A failed call
//   leaves the parameter as it was.
// - Once the data source or variable that owns the list has been deleted,
//   every call on the list or its parameters raises error 5.
#include <cstdint>
#include <memory>
#include <vector>

#include "vd/toolkit/toolkit.h"

namespace vd::sample {

namespace detail {
class Presence;
}

using automation::String;
using automation::Variant;

class MemoryParam final : public toolkit::Param {
 public:
  int32_t GetParamType() override;
  Variant GetParamValue() override;
  void SetParamValue(int32_t typeCode, const Variant& value) override;

 private:
  friend class MemoryParamList;
  explicit MemoryParam(std::shared_ptr<detail::Presence> owner) : owner_(std::move(owner)) {}
  void CheckPresent() const;

  std::shared_ptr<detail::Presence> owner_;
  int32_t type_ = 0;
  Variant value_;
};

class MemoryParamList final : public toolkit::ParamList {
 public:
  // A list whose parameters live as long as the owner that presence stands for.
  static std::shared_ptr<MemoryParamList> Create(std::shared_ptr<detail::Presence> owner);

  int32_t ParamCount() override;
  toolkit::ParamRef ParamItem(int16_t index) override;
  toolkit::ParamRef AddParam() override;

  // Set-up for samples and tests (not part of the toolkit's interface).
  std::shared_ptr<MemoryParam> Item(int32_t index);  // 1-based, error 9 outside
  void Append(int32_t typeCode, const Variant& value);
  void AppendEmpty();  // as AddParam: type code 0, Empty value
  void Clear();

 private:
  explicit MemoryParamList(std::shared_ptr<detail::Presence> owner) : owner_(std::move(owner)) {}
  void CheckPresent() const;

  std::shared_ptr<detail::Presence> owner_;
  std::vector<std::shared_ptr<MemoryParam>> items_;
};

}  // namespace vd::sample
