#include "relay_core.h"

#include "vd/automation/error.h"

namespace vd::testbridge {
namespace {

toolkit::DsRef FirstDs(const toolkit::DisplayRef& display) {
  if (!display) automation::Raise(automation::err::kObjectNotSet);
  return display->GetDataSources()->DsItem(1);
}

}  // namespace

void RelayCore::EditDataSources(const toolkit::DisplayRef& display) {
  automation::ObjectRef obj = FirstDs(display);
  ++record_->runs;
  if (onEditCustomDs) onEditCustomDs(obj);
  record_->lastEventObject = obj;
}

toolkit::DsvRef RelayCore::SelectDataVar(const toolkit::DisplayRef& display, int32_t context, int32_t, int32_t,
                                         int32_t) {
  if (context < 0 || context > 4) automation::Raise(automation::err::kInvalidProcedureCall);
  automation::ObjectRef obj = FirstDs(display)->GetDsVars()->DsvItem(1);
  ++record_->runs;
  if (onEditCustomDsv) onEditCustomDsv(obj);
  record_->lastEventObject = obj;
  if (!obj) return nullptr;
  auto dsv = std::dynamic_pointer_cast<toolkit::Dsv>(obj);
  if (!dsv) automation::Raise(automation::err::kTypeMismatch);
  return dsv;
}

}  // namespace vd::testbridge
