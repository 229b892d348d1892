#include "vd/sample/memory_params.h"

#include "presence.h"
#include "vd/automation/conversions.h"
#include "vd/automation/error.h"

namespace vd::sample {

using automation::Raise;
using automation::ToDecimal;
using automation::err::kInvalidProcedureCall;
using automation::err::kSubscriptOutOfRange;

namespace {
constexpr char16_t kOwnerDeleted[] = u"The data source or variable of this parameter was deleted";
}

void MemoryParam::CheckPresent() const { owner_->Check(kOwnerDeleted); }

int32_t MemoryParam::GetParamType() {
  CheckPresent();
  return type_;
}

Variant MemoryParam::GetParamValue() {
  CheckPresent();
  return value_;
}

void MemoryParam::SetParamValue(int32_t typeCode, const Variant& value) {
  CheckPresent();
  Variant stored;
  if (typeCode == toolkit::paramtype::kText) {
    stored = automation::CStr(value);
  } else if (typeCode == toolkit::paramtype::kNumber) {
    stored = automation::CDbl(value);
  } else {
    Raise(kInvalidProcedureCall, u"Parameter type must be 5 (number) or 9 (text), not " + ToDecimal(typeCode));
  }
  type_ = typeCode;
  value_ = std::move(stored);
}

std::shared_ptr<MemoryParamList> MemoryParamList::Create(std::shared_ptr<detail::Presence> owner) {
  return std::shared_ptr<MemoryParamList>(new MemoryParamList(std::move(owner)));
}

void MemoryParamList::CheckPresent() const { owner_->Check(kOwnerDeleted); }

int32_t MemoryParamList::ParamCount() {
  CheckPresent();
  return static_cast<int32_t>(items_.size());
}

toolkit::ParamRef MemoryParamList::ParamItem(int16_t index) { return Item(index); }

std::shared_ptr<MemoryParam> MemoryParamList::Item(int32_t index) {
  CheckPresent();
  const auto count = static_cast<int32_t>(items_.size());
  if (index < 1 || index > count) {
    Raise(kSubscriptOutOfRange, u"Parameter index " + ToDecimal(index) + u" is outside 1 to " + ToDecimal(count));
  }
  return items_[static_cast<size_t>(index) - 1];
}

toolkit::ParamRef MemoryParamList::AddParam() {
  AppendEmpty();
  return items_.back();
}

void MemoryParamList::AppendEmpty() {
  CheckPresent();
  items_.push_back(std::shared_ptr<MemoryParam>(new MemoryParam(owner_)));
}

void MemoryParamList::Append(int32_t typeCode, const Variant& value) {
  CheckPresent();
  auto param = std::shared_ptr<MemoryParam>(new MemoryParam(owner_));
  param->SetParamValue(typeCode, value);
  items_.push_back(std::move(param));
}

void MemoryParamList::Clear() {
  CheckPresent();
  items_.clear();
}

}  // namespace vd::sample
