#include "custom_facets.h"
#include "presence.h"
#include "vd/automation/error.h"
#include "vd/sample/memory_toolkit.h"

namespace vd::sample {

namespace {
constexpr char16_t kDsDeleted[] = u"The data source was deleted from the display";
constexpr char16_t kNoDisplay[] = u"The data source no longer belongs to a display";
}  // namespace

MemoryDs::MemoryDs(std::weak_ptr<MemoryDsList> list, int32_t kind, String name, String className)
    : list_(std::move(list)),
      presence_(std::make_shared<detail::Presence>()),
      kind_(kind),
      name_(std::move(name)),
      className_(std::move(className)),
      ascii_(kind == toolkit::kind::kFile) {}

MemoryDs::~MemoryDs() = default;

std::shared_ptr<MemoryDsList> MemoryDs::List() const {
  CheckPresent();
  auto list = list_.lock();
  if (!list) automation::Raise(automation::err::kInvalidProcedureCall, kNoDisplay);
  return list;
}

void MemoryDs::CheckPresent() const { presence_->Check(kDsDeleted); }
bool MemoryDs::IsRemoved() const { return presence_->Gone(); }

String MemoryDs::GetDsName() {
  CheckPresent();
  return name_;
}

void MemoryDs::SetDsName(const String& name) {
  CheckPresent();
  if (auto list = list_.lock()) {
    list->names_.Remove(name_);
    list->names_.Add(name);
  }
  name_ = name;
}

int32_t MemoryDs::GetDsType() {
  CheckPresent();
  return kind_;
}

toolkit::DsvListRef MemoryDs::GetDsVars() { return Variables(); }

std::shared_ptr<MemoryDsvList> MemoryDs::Variables() {
  CheckPresent();
  return vars_;
}

std::shared_ptr<MemoryParamList> MemoryDs::Params() {
  CheckPresent();
  return params_;
}

bool MemoryDs::RemoveDs() { return List()->Remove(this); }

bool MemoryDs::DsMoveUp() { return List()->Move(this, -1); }

bool MemoryDs::DsMoveDown() { return List()->Move(this, +1); }

bool MemoryDs::GetDsAscii() {
  CheckPresent();
  return kind_ == toolkit::kind::kFile && ascii_;
}

void MemoryDs::SetDsAscii(bool ascii) {
  CheckPresent();
  if (kind_ != toolkit::kind::kFile) {
    automation::Raise(automation::err::kInvalidProcedureCall, u"Only file data sources have an ASCII or binary format");
  }
  ascii_ = ascii;
}

toolkit::CustomDsRef MemoryDs::AsCustom() {
  CheckPresent();
  if (kind_ != toolkit::kind::kCustom) return nullptr;
  return std::make_shared<detail::CustomDsFacet>(shared_from_this());
}

}  // namespace vd::sample
