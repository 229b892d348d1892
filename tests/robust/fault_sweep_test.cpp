// Every call into the display model and the communication object fails once:
// for every k, a whole run with the k-th call raising an Automation error, as
// a host's object or the SCADA system's can fail any call. Nothing crashes,
// only Automation errors leave a user's step (the Windows views show them in
// a message box), the run still ends with Close or OK, and the next build of
// the tree shows exactly the model.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "dialog_fixture.h"
#include "vd/automation/error.h"
#include "vd/sample/sample_file.h"
#include "vd/toolkit/communication.h"

namespace vd::robust_test {
namespace {

using automation::String;
using automation::StringView;
using automation::ToDecimal;
using automation::Variant;
using browser::frmDataBrowser;
namespace tk = toolkit;

constexpr int32_t kInjected = 440;  // "Automation error"

// Counts every call through the decorators; the call numbered failAt raises.
struct FaultPlan {
  int64_t failAt = 0, calls = 0;
  std::string failedSite{};
  void Call(const char* site) {
    if (++calls != failAt) return;
    failedSite = site;
    automation::Raise(kInjected, u"Automation error");
  }
};

template <class I>
struct Faulty;

template <class T>
T Wrap(T value, FaultPlan& /*plan*/) {
  return value;
}
template <class I>
std::shared_ptr<I> Wrap(std::shared_ptr<I> inner, FaultPlan& plan) {
  if (!inner) return nullptr;
  auto faulty = std::make_shared<Faulty<I>>();
  faulty->inner_ = std::move(inner);
  faulty->plan_ = &plan;
  return faulty;
}

// A decorator counts each call, then passes it on; what it hands out comes back decorated.
template <class I>
struct Counting : I {
  template <class Call>
  auto Counted(const char* site, Call call) {
    plan_->Call(site);
    if constexpr (std::is_void_v<decltype(call())>) {
      call();
    } else {
      return Wrap(call(), *plan_);
    }
  }
  std::shared_ptr<I> inner_;
  FaultPlan* plan_ = nullptr;
};

#define VD_COUNTED(Ret, Name, Params, ...)                            \
  Ret Name Params override {                                          \
    return Counted(#Name, [&] { return inner_->Name(__VA_ARGS__); }); \
  }

template <>
struct Faulty<tk::Param> final : Counting<tk::Param> {
  VD_COUNTED(int32_t, GetParamType, ());
  VD_COUNTED(Variant, GetParamValue, ());
  VD_COUNTED(void, SetParamValue, (int32_t type, const Variant& value), type, value);
};
template <>
struct Faulty<tk::ParamList> final : Counting<tk::ParamList> {
  VD_COUNTED(int32_t, ParamCount, ());
  VD_COUNTED(tk::ParamRef, ParamItem, (int16_t index), index);
  VD_COUNTED(tk::ParamRef, AddParam, ());
};
template <>
struct Faulty<tk::CustomDs> final : Counting<tk::CustomDs> {
  VD_COUNTED(tk::ParamListRef, GetParams, ());
};
template <>
struct Faulty<tk::CustomDsv> final : Counting<tk::CustomDsv> {
  VD_COUNTED(tk::ParamListRef, GetParams, ());
  VD_COUNTED(int32_t, GetDsvAccess, ());
};
template <>
struct Faulty<tk::Ds> final : Counting<tk::Ds> {
  VD_COUNTED(String, GetDsName, ());
  VD_COUNTED(void, SetDsName, (const String& name), name);
  VD_COUNTED(int32_t, GetDsType, ());
  VD_COUNTED(tk::DsvListRef, GetDsVars, ());
  VD_COUNTED(bool, RemoveDs, ());
  VD_COUNTED(bool, DsMoveUp, ());
  VD_COUNTED(bool, DsMoveDown, ());
  VD_COUNTED(bool, GetDsAscii, ());
  VD_COUNTED(void, SetDsAscii, (bool ascii), ascii);
  VD_COUNTED(tk::CustomDsRef, AsCustom, ());
};
template <>
struct Faulty<tk::DsList> final : Counting<tk::DsList> {
  VD_COUNTED(int32_t, DsCount, ());
  VD_COUNTED(tk::DsRef, DsItem, (int32_t index), index);
  VD_COUNTED(tk::DsRef, AddDs, (int32_t kind, const String& text), kind, text);
};
template <>
struct Faulty<tk::Dsv> final : Counting<tk::Dsv> {
  VD_COUNTED(String, GetDsvName, ());
  VD_COUNTED(void, SetDsvName, (const String& name), name);
  VD_COUNTED(int32_t, GetDsvType, ());
  VD_COUNTED(void, SetDsvType, (int32_t type), type);
  VD_COUNTED(int32_t, GetDsvShape, ());
  VD_COUNTED(int32_t, GetDsvRows, ());
  VD_COUNTED(void, SetDsvRows, (int32_t rows), rows);
  VD_COUNTED(int32_t, GetDsvCols, ());
  VD_COUNTED(void, SetDsvCols, (int32_t cols), cols);
  VD_COUNTED(int32_t, GetDsvScope, ());
  VD_COUNTED(void, SetDsvScope, (int32_t scope), scope);
  VD_COUNTED(double, GetDsvValue, ());
  VD_COUNTED(void, SetDsvValue, (double value), value);
  VD_COUNTED(tk::DsRef, GetDsvParent, ());
  VD_COUNTED(int32_t, GetDsvUseCount, ());
  VD_COUNTED(bool, RemoveDsv, ());
  VD_COUNTED(bool, DsvMoveUp, ());
  VD_COUNTED(bool, DsvMoveDown, ());
  VD_COUNTED(tk::CustomDsvRef, AsCustom, ());
};
template <>
struct Faulty<tk::DsvList> final : Counting<tk::DsvList> {
  VD_COUNTED(int32_t, DsvCount, ());
  VD_COUNTED(tk::DsvRef, DsvItem, (int32_t index), index);
  VD_COUNTED(tk::DsvRef, AddDsv, ());
};
template <>
struct Faulty<tk::Display> final : Counting<tk::Display> {
  VD_COUNTED(tk::DsListRef, GetDataSources, ());
};
template <>
struct Faulty<tk::Communication> final : Counting<tk::Communication> {
  VD_COUNTED(void, GetApplications, (Variant & names, Variant& numbers), names, numbers);
  VD_COUNTED(void, ExecuteKorl, (const String& request, Variant& result), request, result);
  VD_COUNTED(void, ScriptFileChanged, (const String& path), path);
  VD_COUNTED(void, ExecuteKorlInApp, (int16_t app, const String& request, Variant& result), app, request, result);
  VD_COUNTED(void, ValidateItem, (const String& itemId, Variant& value), itemId, value);
};
#undef VD_COUNTED

// The user's first button answers every question (message boxes OK, dialogs
// cancelled): a failure may ask what the fault-free run does not.
struct AnsweringUi final : forms::UiServices {
  int32_t MsgBox(StringView, int32_t, const std::optional<String>&) override { return forms::vbOK; }
  String InputBox(StringView, StringView, StringView) override { return {}; }
  String OpenFileDialog(const forms::Form*, StringView, StringView, StringView, uint32_t) override { return {}; }
  bool StartProgramAndWait(StringView) override { return false; }
  void BringToFront(const forms::Form&) override {}
  void SetScreenMousePointer(int16_t) override {}
  void RefreshNow(const forms::Control&) override {}
};

constexpr std::string_view kDisplayJson = R"({ "dataSources": [
  { "name": "Tanks", "kind": "memory", "variables": [
      { "name": "Level", "type": "Double", "scope": "public" },
      { "name": "Profile", "type": "Float", "rows": 3, "cols": 5 },
      { "name": "Label", "type": "Text", "cols": 40 } ] },
  { "name": "Log", "kind": "file", "ascii": true, "variables": [ { "name": "Count", "type": "Long" } ] },
  { "name": "Limits", "kind": "constant", "variables": [ { "name": "High", "type": "Float", "value": 7.25 } ] },
  { "name": "Lab", "kind": "custom", "className": "Lab.Sampler",
    "params": [ { "type": "text", "value": "host1" }, { "type": "number", "value": 4711 } ],
    "variables": [ { "name": "pH", "type": "Double", "access": 1,
                     "params": [ { "type": "text", "value": "a" }, { "type": "number", "value": 2 } ] },
                   { "name": "T", "type": "Double" } ] } ] })";

enum class RunKind : uint8_t { kEditing, kSelection, kScada };

// What the user does, step by step ("VERB CONTROL [TEXT]; ..."): every panel
// and command of the dialog; a few picks (then OK); the plant's SCADA frames.
const char* StepsOf(RunKind kind) {
  switch (kind) {
    case RunKind::kEditing:
      return "node _Tanks1; type txtDsName Vessels; node 1:1; pick cboDsvType Long; click optDsvVector; "
             "type txtDsvCols 6; click optDsvMatrix; type txtDsvRows 3; type txtDsvCols abc; click optDsvScalar; "
             "click optDsvPrivate; type txtDsvName Height; node 1:3; pick cboDsvType Double; node _Log2; "
             "click optBinary; click optASCII; node 2:1; pick cboDsvType Text; node 3:1; focus txtDsvValue; "
             "type txtDsvValue 8.5; type txtDsvValue x; focus txtDsvName; pick cboDsvType Float; node _Lab4; "
             "click cmdDSCustom; node 4:1; click cmdDSVcustom; click chkExpandAll; pickat cboDsAdd 0; "
             "click cmdAddDs; click cmdAddDsv; node 4:2; click cmdMoveUp; click cmdMoveDown; click cmdSort; "
             "click chkSort; click cmdDelete; node _Log2; click cmdMoveUp";
    case RunKind::kSelection:
      return "node 1:1; node 4:2; node _Log2; node 2:1";
    case RunKind::kScada:
      return "node _Raw_Water_Station.custom6; drop cboTelvaneApplication; pickat cboTelvaneApplication 1; "
             "type txtBlinkPeriod 750; click cmdTelvaneDsApply; node 6:1; type txtTelvaneObjectReference RW_P102:P10; "
             "click cmdTelvaneDsvValidate; pickat cboTelvaneSignalType 2; type txtVarInfo 1,2,3; "
             "click cmdTelvaneDsvApply; node 6:4; click optTelvaneSwapNone; click cmdTelvaneDsvUndo; node 7:1; "
             "drop cmbKorlFileSelect; click lblObjectReference; click cmdTelvaneDsvApply; "
             "node _Softening_Plant.custom8; node 8:1";
  }
  return "";
}

// One step; false when the control or node cannot be used now.
bool Do(frmDataBrowser& d, const std::string& step) {
  std::istringstream words(step);
  std::string verb, name, text;
  words >> verb >> name >> text;
  if (verb == "node") {
    const forms::NodeRef node = d.treDataSources.Nodes().Find(automation::FromUtf8(name));
    return node && d.treDataSources.UserSelectNode(node);
  }
  forms::Control& control = *d.FindControl(automation::FromUtf8(name));
  if (verb == "click") return control.UserClick();
  if (verb == "focus") return control.UserFocus();
  if (verb == "type") return dynamic_cast<forms::TextBox&>(control).UserType(automation::FromUtf8(text));
  auto& list = dynamic_cast<forms::ComboBox&>(control);
  if (verb == "drop") return list.UserDropDown();
  if (verb == "pick") return list.UserPick(automation::FromUtf8(text));
  return list.ListCount() > std::stoi(text) && list.UserPick(std::stoi(text));  // pickat
}

struct Figures {
  int64_t runs = 0, shown = 0, toHost = 0;
  std::set<std::string> sites;                         // operations that failed
  std::set<std::pair<size_t, std::string>> stepSites;  // (user's step, operation)
};

// The tree of the next run, without failures, shows exactly the model (key,
// text and parent of every node), and an edit still reaches the model.
void ExpectNextRunShowsModel(DialogFixture<AnsweringUi>& f, const std::shared_ptr<sample::MemoryDisplay>& model,
                             const std::string& label) {
  f.user
      .Check([&] {
        std::set<String> shown, expected;
        const forms::Nodes& nodes = f.dlg.treDataSources.Nodes();
        for (int32_t n = 1; n <= nodes.Count(); ++n) {
          const forms::NodeRef parent = nodes.Item(n)->Parent();
          shown.insert(nodes.Item(n)->Key() + u"|" + nodes.Item(n)->Text() + u"|" + (parent ? parent->Key() : u""));
        }
        for (int32_t i = 1; i <= model->DataSources()->DsCount(); ++i) {
          const String name = model->DataSources()->Item(i)->GetDsName(), key = u"_" + name + ToDecimal(i);
          expected.insert(key + u"|" + name + u"|");
          const auto vars = model->DataSources()->Item(i)->GetDsVars();
          for (int32_t j = 1; j <= vars->DsvCount(); ++j) {
            expected.insert(ToDecimal(i) + u":" + ToDecimal(j) + u"|" + vars->DsvItem(j)->GetDsvName() + u"|" + key);
          }
        }
        EXPECT_EQ(shown, expected) << label;
      })
      .SelectNode(f.dlg.treDataSources, u"1:1")
      .Type(f.dlg.txtDsvName, u"Edited")
      .Click(f.dlg.dbClose);
  f.desk.EditDataSources(model);
  EXPECT_EQ(model->DataSources()->Item(1)->GetDsVars()->DsvItem(1)->GetDsvName(), u"Edited") << label;
}

// One run with the k-th call failing (0: none), ended by the user with OK when
// the variable shown may be chosen, else with Close. Answers the calls made.
int64_t OneRun(RunKind kind, int64_t k, Figures& figures) {
  const sample::SampleDisplay model = kind == RunKind::kScada ? sample::LoadDisplayFile(VD_ROBUST_PLANT_SAMPLE)
                                                              : sample::LoadDisplayText(kDisplayJson, "t.json", "/");
  FaultPlan plan{k};
  DialogFixture<AnsweringUi> f;
  const std::string label = "call " + std::to_string(k);
  std::vector<std::string> steps;
  std::istringstream script(StepsOf(kind));
  for (std::string step; std::getline(script, step, ';');) steps.push_back(step);
  size_t failedStep = steps.size();  // the end of the run, or its opening
  int32_t reported = 0;              // the first error a user's step raised (shown in a message box)
  for (size_t i = 0; i < steps.size(); ++i) {
    f.user.Check([&, i] {
      try {
        (void)Do(f.dlg, steps[i]);
      } catch (const automation::AutomationError& e) {
        reported = reported != 0 ? reported : e.Number();
      } catch (const std::exception& e) {
        ADD_FAILURE() << label << ", step " << i << ": " << e.what();
      }
      if (!plan.failedSite.empty() && failedStep == steps.size()) failedStep = i;
    });
  }
  bool ended = false;
  f.user.Check([&] {
    if (kind == RunKind::kSelection && f.dlg.dbOK.Enabled()) (void)f.dlg.dbOK.UserClick();
    if (f.dlg.Visible()) (void)f.dlg.dbClose.UserClick();
    ended = !f.dlg.Visible();
  });
  if (model.scada) f.desk.SetCommunication(Wrap<tk::Communication>(model.scada, plan));
  int32_t toHost = 0;
  try {
    const tk::DisplayRef display = Wrap<tk::Display>(model.display, plan);
    if (kind == RunKind::kSelection) {
      (void)f.desk.SelectDataVar(display, 4, 500, 0, 0);
    } else {
      f.desk.EditDataSources(display);
    }
  } catch (const automation::AutomationError& e) {
    toHost = e.Number();
    while (f.user.Remaining() > 0) f.user.RunAll();  // raised before the dialog showed
  }
  if (k == 0) return plan.calls;
  EXPECT_FALSE(plan.failedSite.empty()) << label << ": the run made only " << plan.calls << " calls";
  ++figures.runs;
  figures.sites.insert(plan.failedSite);
  figures.stepSites.emplace(failedStep, plan.failedSite);
  if (toHost != 0) {
    EXPECT_EQ(toHost, kInjected) << label;
    ++figures.toHost;
  } else {
    EXPECT_TRUE(ended) << label << ": the dialog did not close";
    EXPECT_TRUE(reported == 0 || reported == kInjected) << label << ": error " << reported;
    figures.shown += reported != 0 ? 1 : 0;
  }
  f.desk.SetCommunication(model.scada);
  ExpectNextRunShowsModel(f, model.display, label + " (" + plan.failedSite + ")");
  return plan.calls;
}

class FaultSweep : public ::testing::TestWithParam<RunKind> {};

TEST_P(FaultSweep, SurvivesEveryFailingCall) {
  Figures figures;
  const int64_t calls = OneRun(GetParam(), 0, figures);
  EXPECT_GT(calls, 100);
  for (int64_t k = 1; k <= calls; ++k) OneRun(GetParam(), k, figures);
  std::printf(
      "fault sweep: %lld failing calls, %lld shown to the user, %lld raised to the host; %zu call sites "
      "(user's step and operation) over %zu operations\n",
      static_cast<long long>(figures.runs), static_cast<long long>(figures.shown),
      static_cast<long long>(figures.toHost), figures.stepSites.size(), figures.sites.size());
}

INSTANTIATE_TEST_SUITE_P(Runs, FaultSweep, ::testing::Values(RunKind::kEditing, RunKind::kSelection, RunKind::kScada));

}  // namespace
}  // namespace vd::robust_test
