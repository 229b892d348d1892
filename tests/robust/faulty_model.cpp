#include "faulty_model.h"

#include <utility>

#include "vd/automation/error.h"

namespace vd::robust_test {

using automation::String;
using automation::Variant;

void FaultPlan::FailAt(int64_t k) {
  failAt_ = k;
  calls_ = 0;
  failedSite_.clear();
  sites_.clear();
}

void FaultPlan::Call(const char* site) {
  ++calls_;
  ++sites_[site];
  if (calls_ != failAt_) return;
  failedSite_ = site;
  automation::Raise(kInjectedError, u"Automation error");
}

namespace {

// The decorators: each call is counted, then passed on; objects handed out
// come back decorated.
class Decorated {
 protected:
  explicit Decorated(FaultPlan& plan) : plan_(plan) {}
  FaultPlan& plan_;
};

toolkit::ParamRef Wrap(toolkit::ParamRef inner, FaultPlan& plan);
toolkit::ParamListRef Wrap(toolkit::ParamListRef inner, FaultPlan& plan);
toolkit::CustomDsRef Wrap(toolkit::CustomDsRef inner, FaultPlan& plan);
toolkit::CustomDsvRef Wrap(toolkit::CustomDsvRef inner, FaultPlan& plan);
toolkit::DsRef Wrap(toolkit::DsRef inner, FaultPlan& plan);
toolkit::DsListRef Wrap(toolkit::DsListRef inner, FaultPlan& plan);
toolkit::DsvRef Wrap(toolkit::DsvRef inner, FaultPlan& plan);
toolkit::DsvListRef Wrap(toolkit::DsvListRef inner, FaultPlan& plan);

template <class Interface>
class Faulty : public Interface, protected Decorated {
 public:
  Faulty(std::shared_ptr<Interface> inner, FaultPlan& plan) : Decorated(plan), inner_(std::move(inner)) {}

 protected:
  Interface& Inner(const char* site) {
    plan_.Call(site);
    return *inner_;
  }
  std::shared_ptr<Interface> inner_;
};

class FaultyParam final : public Faulty<toolkit::Param> {
 public:
  using Faulty::Faulty;
  int32_t GetParamType() override { return Inner("Param.GetParamType").GetParamType(); }
  Variant GetParamValue() override { return Inner("Param.GetParamValue").GetParamValue(); }
  void SetParamValue(int32_t typeCode, const Variant& value) override {
    Inner("Param.SetParamValue").SetParamValue(typeCode, value);
  }
};

class FaultyParamList final : public Faulty<toolkit::ParamList> {
 public:
  using Faulty::Faulty;
  int32_t ParamCount() override { return Inner("ParamList.ParamCount").ParamCount(); }
  toolkit::ParamRef ParamItem(int16_t index) override {
    return Wrap(Inner("ParamList.ParamItem").ParamItem(index), plan_);
  }
  toolkit::ParamRef AddParam() override { return Wrap(Inner("ParamList.AddParam").AddParam(), plan_); }
};

class FaultyCustomDs final : public Faulty<toolkit::CustomDs> {
 public:
  using Faulty::Faulty;
  toolkit::ParamListRef GetParams() override { return Wrap(Inner("CustomDs.GetParams").GetParams(), plan_); }
};

class FaultyCustomDsv final : public Faulty<toolkit::CustomDsv> {
 public:
  using Faulty::Faulty;
  toolkit::ParamListRef GetParams() override { return Wrap(Inner("CustomDsv.GetParams").GetParams(), plan_); }
  int32_t GetDsvAccess() override { return Inner("CustomDsv.GetDsvAccess").GetDsvAccess(); }
};

class FaultyDs final : public Faulty<toolkit::Ds> {
 public:
  using Faulty::Faulty;
  String GetDsName() override { return Inner("Ds.GetDsName").GetDsName(); }
  void SetDsName(const String& name) override { Inner("Ds.SetDsName").SetDsName(name); }
  int32_t GetDsType() override { return Inner("Ds.GetDsType").GetDsType(); }
  toolkit::DsvListRef GetDsVars() override { return Wrap(Inner("Ds.GetDsVars").GetDsVars(), plan_); }
  bool RemoveDs() override { return Inner("Ds.RemoveDs").RemoveDs(); }
  bool DsMoveUp() override { return Inner("Ds.DsMoveUp").DsMoveUp(); }
  bool DsMoveDown() override { return Inner("Ds.DsMoveDown").DsMoveDown(); }
  bool GetDsAscii() override { return Inner("Ds.GetDsAscii").GetDsAscii(); }
  void SetDsAscii(bool ascii) override { Inner("Ds.SetDsAscii").SetDsAscii(ascii); }
  toolkit::CustomDsRef AsCustom() override { return Wrap(Inner("Ds.AsCustom").AsCustom(), plan_); }
};

class FaultyDsList final : public Faulty<toolkit::DsList> {
 public:
  using Faulty::Faulty;
  int32_t DsCount() override { return Inner("DsList.DsCount").DsCount(); }
  toolkit::DsRef DsItem(int32_t index) override { return Wrap(Inner("DsList.DsItem").DsItem(index), plan_); }
  toolkit::DsRef AddDs(int32_t kind, const String& creationText) override {
    return Wrap(Inner("DsList.AddDs").AddDs(kind, creationText), plan_);
  }
};

class FaultyDsv final : public Faulty<toolkit::Dsv> {
 public:
  using Faulty::Faulty;
  String GetDsvName() override { return Inner("Dsv.GetDsvName").GetDsvName(); }
  void SetDsvName(const String& name) override { Inner("Dsv.SetDsvName").SetDsvName(name); }
  int32_t GetDsvType() override { return Inner("Dsv.GetDsvType").GetDsvType(); }
  void SetDsvType(int32_t type) override { Inner("Dsv.SetDsvType").SetDsvType(type); }
  int32_t GetDsvShape() override { return Inner("Dsv.GetDsvShape").GetDsvShape(); }
  int32_t GetDsvRows() override { return Inner("Dsv.GetDsvRows").GetDsvRows(); }
  void SetDsvRows(int32_t rows) override { Inner("Dsv.SetDsvRows").SetDsvRows(rows); }
  int32_t GetDsvCols() override { return Inner("Dsv.GetDsvCols").GetDsvCols(); }
  void SetDsvCols(int32_t cols) override { Inner("Dsv.SetDsvCols").SetDsvCols(cols); }
  int32_t GetDsvScope() override { return Inner("Dsv.GetDsvScope").GetDsvScope(); }
  void SetDsvScope(int32_t scope) override { Inner("Dsv.SetDsvScope").SetDsvScope(scope); }
  double GetDsvValue() override { return Inner("Dsv.GetDsvValue").GetDsvValue(); }
  void SetDsvValue(double value) override { Inner("Dsv.SetDsvValue").SetDsvValue(value); }
  toolkit::DsRef GetDsvParent() override { return Wrap(Inner("Dsv.GetDsvParent").GetDsvParent(), plan_); }
  int32_t GetDsvUseCount() override { return Inner("Dsv.GetDsvUseCount").GetDsvUseCount(); }
  bool RemoveDsv() override { return Inner("Dsv.RemoveDsv").RemoveDsv(); }
  bool DsvMoveUp() override { return Inner("Dsv.DsvMoveUp").DsvMoveUp(); }
  bool DsvMoveDown() override { return Inner("Dsv.DsvMoveDown").DsvMoveDown(); }
  toolkit::CustomDsvRef AsCustom() override { return Wrap(Inner("Dsv.AsCustom").AsCustom(), plan_); }
};

class FaultyDsvList final : public Faulty<toolkit::DsvList> {
 public:
  using Faulty::Faulty;
  int32_t DsvCount() override { return Inner("DsvList.DsvCount").DsvCount(); }
  toolkit::DsvRef DsvItem(int32_t index) override { return Wrap(Inner("DsvList.DsvItem").DsvItem(index), plan_); }
  toolkit::DsvRef AddDsv() override { return Wrap(Inner("DsvList.AddDsv").AddDsv(), plan_); }
};

class FaultyDisplayObject final : public Faulty<toolkit::Display> {
 public:
  using Faulty::Faulty;
  toolkit::DsListRef GetDataSources() override { return Wrap(Inner("Display.GetDataSources").GetDataSources(), plan_); }
};

class FaultyCommunicationObject final : public Faulty<toolkit::Communication> {
 public:
  using Faulty::Faulty;
  void GetApplications(Variant& names, Variant& numbers) override {
    Inner("Communication.GetApplications").GetApplications(names, numbers);
  }
  void ExecuteKorl(const String& request, Variant& result) override {
    Inner("Communication.ExecuteKorl").ExecuteKorl(request, result);
  }
  void ScriptFileChanged(const String& path) override {
    Inner("Communication.ScriptFileChanged").ScriptFileChanged(path);
  }
  void ExecuteKorlInApp(int16_t applicationNr, const String& request, Variant& result) override {
    Inner("Communication.ExecuteKorlInApp").ExecuteKorlInApp(applicationNr, request, result);
  }
  void ValidateItem(const String& itemId, Variant& value) override {
    Inner("Communication.ValidateItem").ValidateItem(itemId, value);
  }
};

template <class Decorator, class Ref>
Ref WrapWith(Ref inner, FaultPlan& plan) {
  if (!inner) return nullptr;
  return std::make_shared<Decorator>(std::move(inner), plan);
}

toolkit::ParamRef Wrap(toolkit::ParamRef inner, FaultPlan& plan) {
  return WrapWith<FaultyParam>(std::move(inner), plan);
}
toolkit::ParamListRef Wrap(toolkit::ParamListRef inner, FaultPlan& plan) {
  return WrapWith<FaultyParamList>(std::move(inner), plan);
}
toolkit::CustomDsRef Wrap(toolkit::CustomDsRef inner, FaultPlan& plan) {
  return WrapWith<FaultyCustomDs>(std::move(inner), plan);
}
toolkit::CustomDsvRef Wrap(toolkit::CustomDsvRef inner, FaultPlan& plan) {
  return WrapWith<FaultyCustomDsv>(std::move(inner), plan);
}
toolkit::DsRef Wrap(toolkit::DsRef inner, FaultPlan& plan) { return WrapWith<FaultyDs>(std::move(inner), plan); }
toolkit::DsListRef Wrap(toolkit::DsListRef inner, FaultPlan& plan) {
  return WrapWith<FaultyDsList>(std::move(inner), plan);
}
toolkit::DsvRef Wrap(toolkit::DsvRef inner, FaultPlan& plan) { return WrapWith<FaultyDsv>(std::move(inner), plan); }
toolkit::DsvListRef Wrap(toolkit::DsvListRef inner, FaultPlan& plan) {
  return WrapWith<FaultyDsvList>(std::move(inner), plan);
}

}  // namespace

toolkit::DisplayRef FaultyDisplay(toolkit::DisplayRef inner, FaultPlan& plan) {
  return WrapWith<FaultyDisplayObject>(std::move(inner), plan);
}

toolkit::CommunicationRef FaultyCommunication(toolkit::CommunicationRef inner, FaultPlan& plan) {
  return WrapWith<FaultyCommunicationObject>(std::move(inner), plan);
}

}  // namespace vd::robust_test
