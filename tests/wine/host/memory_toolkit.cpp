#include "memory_toolkit.h"

#include <algorithm>

#include "vd/automation/error.h"

namespace vd::testhost {
namespace {

template <class T>
bool Swap(std::vector<std::shared_ptr<T>>& items, const T* item, int delta) {
  auto it = std::find_if(items.begin(), items.end(), [&](const auto& p) { return p.get() == item; });
  if (it == items.end()) return false;
  const auto index = it - items.begin();
  const auto other = index + delta;
  if (other < 0 || other >= static_cast<long>(items.size())) return false;
  std::swap(items[static_cast<size_t>(index)], items[static_cast<size_t>(other)]);
  return true;
}

template <class T>
bool Remove(std::vector<std::shared_ptr<T>>& items, const T* item) {
  auto it = std::find_if(items.begin(), items.end(), [&](const auto& p) { return p.get() == item; });
  if (it == items.end()) return false;
  items.erase(it);
  return true;
}

template <class T>
std::shared_ptr<T> At(const std::vector<std::shared_ptr<T>>& items, int32_t index) {
  if (index < 1 || index > static_cast<int32_t>(items.size())) automation::Raise(automation::err::kSubscriptOutOfRange);
  return items[static_cast<size_t>(index - 1)];
}

}  // namespace

toolkit::ParamRef MemParamList::ParamItem(int16_t index) { return At(items, index); }
toolkit::ParamRef MemParamList::AddParam() {
  items.push_back(std::make_shared<MemParam>(toolkit::paramtype::kText, Variant(String())));
  return items.back();
}

toolkit::DsRef MemDsv::GetDsvParent() { return parent.lock(); }
bool MemDsv::RemoveDsv() {
  auto p = parent.lock();
  return p && Remove(p->vars->items, this);
}
bool MemDsv::DsvMoveUp() {
  auto p = parent.lock();
  return p && Swap(p->vars->items, this, -1);
}
bool MemDsv::DsvMoveDown() {
  auto p = parent.lock();
  return p && Swap(p->vars->items, this, +1);
}

toolkit::DsvRef MemDsvList::DsvItem(int32_t index) { return At(items, index); }
toolkit::DsvRef MemDsvList::AddDsv() {
  auto ds = owner.lock();
  if (!ds) return nullptr;
  return AddVariable(ds, u"Var" + automation::ToDecimal(static_cast<long long>(items.size()) + 1), 2.5);
}

String MemDs::GetDsName() {
  if (failReading) automation::Raise(1234, u"The data source cannot be read");
  return name;
}
bool MemDs::RemoveDs() {
  auto l = list.lock();
  return l && Remove(l->items, this);
}
bool MemDs::DsMoveUp() {
  auto l = list.lock();
  return l && Swap(l->items, this, -1);
}
bool MemDs::DsMoveDown() {
  auto l = list.lock();
  return l && Swap(l->items, this, +1);
}

toolkit::DsRef MemDsList::DsItem(int32_t index) { return At(items, index); }
toolkit::DsRef MemDsList::AddDs(int32_t kind, const String& creationText) {
  auto ds = std::make_shared<MemDs>();
  ds->name = creationText;
  ds->kind = kind;
  ds->list = weak_from_this();
  ds->vars->owner = ds;
  if (kind == toolkit::kind::kCustom) {
    ds->custom = std::make_shared<MemCustomDs>();
    ds->custom->params->items.push_back(std::make_shared<MemParam>(9, Variant(String(u"host1"))));
    ds->custom->params->items.push_back(std::make_shared<MemParam>(5, Variant(int32_t{4711})));
  }
  items.push_back(ds);
  return ds;
}

std::shared_ptr<MemDsv> AddVariable(const std::shared_ptr<MemDs>& ds, const String& name, double value) {
  auto dsv = std::make_shared<MemDsv>();
  dsv->name = name;
  dsv->value = value;
  dsv->parent = ds;
  if (ds->custom) {
    auto custom = std::make_shared<MemCustomDsv>();
    custom->params->items.push_back(std::make_shared<MemParam>(9, Variant(String(u"Plant.Tank1.Level"))));
    custom->params->items.push_back(std::make_shared<MemParam>(5, Variant(int32_t{2})));
    dsv->custom = custom;
  }
  ds->vars->items.push_back(dsv);
  return dsv;
}

std::shared_ptr<MemDisplay> MakePlantDisplay() {
  auto display = std::make_shared<MemDisplay>();
  auto tanks = std::static_pointer_cast<MemDs>(display->list->AddDs(toolkit::kind::kFile, u"Tanks"));
  AddVariable(tanks, u"Level", 1.5);
  AddVariable(tanks, u"Pressure", 3)->useCount = 2;
  auto scada = std::static_pointer_cast<MemDs>(display->list->AddDs(toolkit::kind::kCustom, u"Scada"));
  AddVariable(scada, u"Flow", 0.25)->type = toolkit::dsvtype::kFloat;
  AddVariable(scada, u"Valve", 0)->type = toolkit::dsvtype::kText;
  display->list->AddDs(toolkit::kind::kMemory, u"Scratch");
  return display;
}

void MemCommunication::GetApplications(Variant& names, Variant& numbers) {
  names = automation::Array{0, {Variant(String(u"Plant")), Variant(String(u"Mill"))}};
  numbers = automation::Array{0, {Variant(int16_t{1}), Variant(int16_t{7})}};
}

void MemCommunication::ExecuteKorl(const String& request, Variant& result) { result = Variant(u"ran " + request); }

void MemCommunication::ExecuteKorlInApp(int16_t applicationNr, const String& request, Variant& result) {
  result = Variant(u"app " + automation::ToDecimal(applicationNr) + u": " + request);
}

void MemCommunication::ValidateItem(const String& itemId, Variant& value) {
  if (itemId == u"bad") automation::Raise(5, u"Unknown item");
  value = Variant(3.5);
}

}  // namespace vd::testhost
