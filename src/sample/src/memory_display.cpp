#include "presence.h"
#include "vd/automation/error.h"
#include "vd/automation/text.h"
#include "vd/sample/memory_toolkit.h"

namespace vd::sample {

using automation::Raise;
using automation::ToDecimal;

std::shared_ptr<MemoryDisplay> MemoryDisplay::Create(ToolkitLimits limits) {
  auto list = std::shared_ptr<MemoryDsList>(new MemoryDsList(limits));
  return std::shared_ptr<MemoryDisplay>(new MemoryDisplay(std::move(list)));
}

toolkit::DsListRef MemoryDisplay::GetDataSources() { return list_; }

int32_t MemoryDsList::DsCount() { return static_cast<int32_t>(items_.size()); }

toolkit::DsRef MemoryDsList::DsItem(int32_t index) { return Item(index); }

std::shared_ptr<MemoryDs> MemoryDsList::Item(int32_t index) {
  const int32_t count = DsCount();
  if (index < 1 || index > count) {
    Raise(automation::err::kSubscriptOutOfRange,
          u"Data source index " + ToDecimal(index) + u" is outside 1 to " + ToDecimal(count));
  }
  return items_[static_cast<size_t>(index) - 1];
}

toolkit::DsRef MemoryDsList::AddDs(int32_t kind, const String& creationText) { return Add(kind, creationText); }

std::shared_ptr<MemoryDs> MemoryDsList::Add(int32_t kind, const String& creationText) {
  if (DsCount() >= limits_.maxDataSources) return nullptr;
  const int32_t next = DsCount() + 1;
  String name;
  String className;
  switch (kind) {
    case toolkit::kind::kFile:
      name = creationText.empty() ? names_.Fresh(u"file", next, u".dat") : creationText;
      break;
    case toolkit::kind::kConstant:
      name = names_.Fresh(u"constant", next, u"");
      break;
    case toolkit::kind::kMemory:
      name = names_.Fresh(u"memory", next, u"");
      break;
    case toolkit::kind::kCustom:
      if (creationText.empty()) return nullptr;
      name = u"default.custom";
      className = creationText;
      break;
    default:
      return nullptr;
  }
  auto ds = std::shared_ptr<MemoryDs>(new MemoryDs(weak_from_this(), kind, name, className));
  ds->vars_ = std::shared_ptr<MemoryDsvList>(new MemoryDsvList(ds, ds->presence_, kind, limits_.maxVariablesPerDs));
  if (kind == toolkit::kind::kCustom) {
    ds->params_ = MemoryParamList::Create(ds->presence_);
    if (automation::EqualsIgnoreCase(className, kScadaDsClass)) {
      ds->params_->Append(toolkit::paramtype::kText, String(kScadaDsMarker));
      ds->params_->Append(toolkit::paramtype::kNumber, 0.0);
      ds->params_->Append(toolkit::paramtype::kNumber, kScadaDefaultBlinkPeriod);
    }
  }
  names_.Add(name);
  items_.push_back(ds);
  return ds;
}

int32_t MemoryDsList::IndexOf(const MemoryDs* ds) const {
  for (size_t i = 0; i < items_.size(); ++i)
    if (items_[i].get() == ds) return static_cast<int32_t>(i) + 1;
  return 0;
}

bool MemoryDsList::Remove(MemoryDs* ds) {
  const int32_t index = IndexOf(ds);
  if (index == 0) return false;
  auto vars = ds->vars_;
  for (int32_t j = 1; j <= vars->DsvCount(); ++j)
    if (vars->Item(j)->GetDsvUseCount() >= 1) return false;
  names_.Remove(ds->name_);
  ds->presence_->MarkRemoved();
  items_.erase(items_.begin() + (index - 1));
  return true;
}

bool MemoryDsList::Move(MemoryDs* ds, int32_t step) {
  const int32_t index = IndexOf(ds);
  const int32_t target = index + step;
  if (index == 0 || target < 1 || target > DsCount()) return false;
  std::swap(items_[static_cast<size_t>(index) - 1], items_[static_cast<size_t>(target) - 1]);
  return true;
}

}  // namespace vd::sample
