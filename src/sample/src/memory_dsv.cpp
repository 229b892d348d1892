#include "custom_facets.h"
#include "presence.h"
#include "vd/automation/error.h"
#include "vd/sample/memory_toolkit.h"

namespace vd::sample {

using automation::Raise;
using automation::ToDecimal;
using automation::err::kInvalidProcedureCall;

namespace {
constexpr char16_t kDsvDeleted[] = u"The data variable was deleted from its data source";
constexpr char16_t kListDeleted[] = u"The data source of this variable list was deleted";
constexpr char16_t kNoDataSource[] = u"The data variable no longer belongs to a data source";

void CheckDimension(const char16_t* what, int32_t value) {
  if (value < 0 || value > kMaxDimension) {
    Raise(kInvalidProcedureCall,
          String(what) + u" must be between 0 and " + ToDecimal(kMaxDimension) + u", not " + ToDecimal(value));
  }
}
}  // namespace

// --- the variable list of one data source ---

MemoryDsvList::~MemoryDsvList() = default;

void MemoryDsvList::CheckPresent() const { presence_->Check(kListDeleted); }

int32_t MemoryDsvList::DsvCount() {
  CheckPresent();
  return static_cast<int32_t>(items_.size());
}

toolkit::DsvRef MemoryDsvList::DsvItem(int32_t index) { return Item(index); }

std::shared_ptr<MemoryDsv> MemoryDsvList::Item(int32_t index) {
  const int32_t count = DsvCount();
  if (index < 1 || index > count) {
    Raise(automation::err::kSubscriptOutOfRange,
          u"Data variable index " + ToDecimal(index) + u" is outside 1 to " + ToDecimal(count));
  }
  // Readers walk the list in order: the next variables' memory is asked for
  // now, so that it arrives while the caller works on this one.
  const auto next = static_cast<size_t>(index);
  if (next + 1 < items_.size()) __builtin_prefetch(items_[next + 1].get());
  if (next < items_.size()) {
    const MemoryDsv& following = *items_[next];
    __builtin_prefetch(following.presence_.get());
    __builtin_prefetch(following.name_.data());
  }
  return items_[static_cast<size_t>(index) - 1];
}

toolkit::DsvRef MemoryDsvList::AddDsv() { return Add(); }

std::shared_ptr<MemoryDsv> MemoryDsvList::Add() {
  const int32_t count = DsvCount();
  if (count >= maxVariables_) return nullptr;
  const bool floatOnly = kind_ == toolkit::kind::kFile || kind_ == toolkit::kind::kConstant;
  auto dsv = std::make_shared<MemoryDsv>(
      MemoryDsv::Token{}, weak_from_this(), presence_, names_.Fresh(u"var", count + 1, u""),
      floatOnly ? toolkit::dsvtype::kFloat : toolkit::dsvtype::kDouble, kind_ == toolkit::kind::kCustom);
  names_.Add(dsv->name_);
  items_.push_back(dsv);
  return dsv;
}

int32_t MemoryDsvList::IndexOf(const MemoryDsv* dsv) const {
  for (size_t i = 0; i < items_.size(); ++i)
    if (items_[i].get() == dsv) return static_cast<int32_t>(i) + 1;
  return 0;
}

bool MemoryDsvList::Remove(MemoryDsv* dsv) {
  const int32_t index = IndexOf(dsv);
  if (index == 0 || dsv->useCount_ >= 1) return false;
  names_.Remove(dsv->name_);
  dsv->presence_->MarkRemoved();
  items_.erase(items_.begin() + (index - 1));
  return true;
}

bool MemoryDsvList::Move(MemoryDsv* dsv, int32_t step) {
  const int32_t index = IndexOf(dsv);
  const int32_t target = index + step;
  if (index == 0 || target < 1 || target > static_cast<int32_t>(items_.size())) return false;
  std::swap(items_[static_cast<size_t>(index) - 1], items_[static_cast<size_t>(target) - 1]);
  return true;
}

// --- one variable ---

MemoryDsv::MemoryDsv(Token /*unused*/, std::weak_ptr<MemoryDsvList> list,
                     std::shared_ptr<detail::Presence> parentPresence, String name, int32_t type, bool custom)
    : list_(std::move(list)),
      presence_(std::make_shared<detail::Presence>(std::move(parentPresence))),
      name_(std::move(name)),
      type_(type) {
  if (custom) params_ = MemoryParamList::Create(presence_);
}

void MemoryDsv::CheckPresent() const { presence_->Check(kDsvDeleted); }
bool MemoryDsv::IsRemoved() const { return presence_->Gone(); }

String MemoryDsv::GetDsvName() {
  CheckPresent();
  return name_;
}

void MemoryDsv::SetDsvName(const String& name) {
  CheckPresent();
  if (auto list = list_.lock()) {
    list->names_.Remove(name_);
    list->names_.Add(name);
  }
  name_ = name;
}

int32_t MemoryDsv::GetDsvType() {
  CheckPresent();
  return type_;
}

void MemoryDsv::SetDsvType(int32_t type) {
  CheckPresent();
  if (type < toolkit::dsvtype::kByte || type > toolkit::dsvtype::kText) {
    Raise(kInvalidProcedureCall, u"Data type must be 1 to 9, not " + ToDecimal(type));
  }
  type_ = type;
}

int32_t MemoryDsv::GetDsvShape() {
  CheckPresent();
  if (rows_ >= 2) return toolkit::shape::kMatrix;
  if (cols_ >= 2) return toolkit::shape::kVector;
  return toolkit::shape::kScalar;
}

int32_t MemoryDsv::GetDsvRows() {
  CheckPresent();
  return rows_;
}

void MemoryDsv::SetDsvRows(int32_t rows) {
  CheckPresent();
  CheckDimension(u"Rows", rows);
  rows_ = rows;
}

int32_t MemoryDsv::GetDsvCols() {
  CheckPresent();
  return cols_;
}

void MemoryDsv::SetDsvCols(int32_t cols) {
  CheckPresent();
  CheckDimension(u"Columns", cols);
  cols_ = cols;
}

int32_t MemoryDsv::GetDsvScope() {
  CheckPresent();
  return scope_;
}

void MemoryDsv::SetDsvScope(int32_t scope) {
  CheckPresent();
  if (scope != toolkit::scope::kPrivate && scope != toolkit::scope::kPublic) {
    Raise(kInvalidProcedureCall, u"Scope must be 1 (private) or 2 (public), not " + ToDecimal(scope));
  }
  scope_ = scope;
}

double MemoryDsv::GetDsvValue() {
  CheckPresent();
  return value_;
}

void MemoryDsv::SetDsvValue(double value) {
  CheckPresent();
  value_ = value;
}

toolkit::DsRef MemoryDsv::GetDsvParent() { return Parent(); }

std::shared_ptr<MemoryDs> MemoryDsv::Parent() {
  auto ds = List()->owner_.lock();
  if (!ds) Raise(kInvalidProcedureCall, kNoDataSource);
  return ds;
}

std::shared_ptr<MemoryDsvList> MemoryDsv::List() const {
  CheckPresent();
  auto list = list_.lock();
  if (!list) Raise(kInvalidProcedureCall, kNoDataSource);
  return list;
}

int32_t MemoryDsv::GetDsvUseCount() {
  CheckPresent();
  return useCount_;
}

void MemoryDsv::SetUseCount(int32_t count) {
  CheckPresent();
  if (count < 0) Raise(kInvalidProcedureCall, u"A use count cannot be negative: " + ToDecimal(count));
  useCount_ = count;
}

void MemoryDsv::SetAccess(int32_t access) {
  CheckPresent();
  access_ = access;
}

int32_t MemoryDsv::Access() {
  CheckPresent();
  return access_;
}

std::shared_ptr<MemoryParamList> MemoryDsv::Params() {
  CheckPresent();
  return params_;
}

bool MemoryDsv::RemoveDsv() { return List()->Remove(this); }

bool MemoryDsv::DsvMoveUp() { return List()->Move(this, -1); }

bool MemoryDsv::DsvMoveDown() { return List()->Move(this, +1); }

toolkit::CustomDsvRef MemoryDsv::AsCustom() {
  CheckPresent();
  if (!params_) return nullptr;
  return std::make_shared<detail::CustomDsvFacet>(shared_from_this());
}

}  // namespace vd::sample
