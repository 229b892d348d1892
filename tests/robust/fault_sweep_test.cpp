// Every call into the display model fails once: for every k, a whole editing
// run and a whole selection run with the k-th call failing. Nothing crashes,
// only Automation errors leave a handler (the Windows views show them in a
// message box and the dialog goes on), the user's later steps still work and
// the run ends with Close, and the next build of the tree shows exactly the
// model.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "browser/frm_data_browser.h"
#include "faulty_model.h"
#include "host/var_desk_ui.h"
#include "platform/services.h"
#include "platform/testing/fake_registry.h"
#include "platform/testing/memory_file_service.h"
#include "vd/automation/error.h"
#include "vd/forms/testing/test_driver.h"
#include "vd/sample/sample_file.h"

namespace vd::robust_test {
namespace {

using automation::String;
using automation::StringView;
using automation::ToDecimal;
using automation::ToUtf8;
using browser::frmDataBrowser;

// UI services that answer every question as the user's first button would
// (message boxes OK, dialogs cancelled), since a failure may ask what the
// fault-free run does not.
class AnsweringUiServices final : public forms::UiServices {
 public:
  int32_t MsgBox(StringView text, int32_t /*style*/, const std::optional<String>& /*title*/) override {
    messages.emplace_back(text);
    return forms::vbOK;
  }
  String InputBox(StringView /*prompt*/, StringView /*title*/, StringView /*defaultText*/) override { return {}; }
  String OpenFileDialog(const forms::Form* /*owner*/, StringView /*title*/, StringView /*filter*/,
                        StringView /*defaultExt*/, uint32_t /*flags*/) override {
    return {};
  }
  bool StartProgramAndWait(StringView /*commandLine*/) override { return false; }
  void BringToFront(const forms::Form& /*form*/) override {}
  void SetScreenMousePointer(int16_t /*pointer*/) override {}
  void RefreshNow(const forms::Control& /*control*/) override {}

  std::vector<String> messages;
};

struct SweepFixture {
  AnsweringUiServices ui;
  platform::testing::FakeRegistry registry;
  platform::testing::MemoryFileService files;
  platform::Services services{ui, registry, files};
  forms::testing::TestDriver user;
  host::VarDeskUI desk{services};
  frmDataBrowser& dlg = *desk.DataBrowser();
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

// One thing the user does; false when the control or node cannot be used now.
struct UserStep {
  std::string label;
  std::function<bool(frmDataBrowser&)> act;
};

bool SelectNode(frmDataBrowser& dlg, const String& key) {
  const forms::NodeRef node = dlg.treDataSources.Nodes().Find(key);
  return node && dlg.treDataSources.UserSelectNode(node);
}

// An editing run that goes through every panel and command of the dialog.
std::vector<UserStep> EditingSteps() {
  return {
      {"data source Tanks", [](auto& d) { return SelectNode(d, u"_Tanks1"); }},
      {"rename Tanks", [](auto& d) { return d.txtDsName.UserType(u"Vessels"); }},
      {"variable Level", [](auto& d) { return SelectNode(d, u"1:1"); }},
      {"type Long", [](auto& d) { return d.cboDsvType.UserPick(u"Long"); }},
      {"vector", [](auto& d) { return d.optDsvVector.UserClick(); }},
      {"length 6", [](auto& d) { return d.txtDsvCols.UserType(u"6"); }},
      {"matrix", [](auto& d) { return d.optDsvMatrix.UserClick(); }},
      {"rows 3", [](auto& d) { return d.txtDsvRows.UserType(u"3"); }},
      {"columns abc", [](auto& d) { return d.txtDsvCols.UserType(u"abc"); }},
      {"scalar", [](auto& d) { return d.optDsvScalar.UserClick(); }},
      {"private", [](auto& d) { return d.optDsvPrivate.UserClick(); }},
      {"rename Level", [](auto& d) { return d.txtDsvName.UserType(u"Height"); }},
      {"variable Label", [](auto& d) { return SelectNode(d, u"1:3"); }},
      {"type Double", [](auto& d) { return d.cboDsvType.UserPick(u"Double"); }},
      {"data source Log", [](auto& d) { return SelectNode(d, u"_Log2"); }},
      {"binary", [](auto& d) { return d.optBinary.UserClick(); }},
      {"ASCII", [](auto& d) { return d.optASCII.UserClick(); }},
      {"variable Count", [](auto& d) { return SelectNode(d, u"2:1"); }},
      {"type Text", [](auto& d) { return d.cboDsvType.UserPick(u"Text"); }},
      {"variable High", [](auto& d) { return SelectNode(d, u"3:1"); }},
      {"value focus", [](auto& d) { return d.txtDsvValue.UserFocus(); }},
      {"value 8.5", [](auto& d) { return d.txtDsvValue.UserType(u"8.5"); }},
      {"value x", [](auto& d) { return d.txtDsvValue.UserType(u"x"); }},
      {"leave value", [](auto& d) { return d.txtDsvName.UserFocus(); }},
      {"type Float", [](auto& d) { return d.cboDsvType.UserPick(u"Float"); }},
      {"data source Lab", [](auto& d) { return SelectNode(d, u"_Lab4"); }},
      {"More... of Lab", [](auto& d) { return d.cmdDSCustom.UserClick(); }},
      {"variable pH", [](auto& d) { return SelectNode(d, u"4:1"); }},
      {"More... of pH", [](auto& d) { return d.cmdDSVcustom.UserClick(); }},
      {"expand all", [](auto& d) { return d.chkExpandAll.UserClick(); }},
      {"kind to add", [](auto& d) { return d.cboDsAdd.ListCount() > 0 && d.cboDsAdd.UserPick(0); }},
      {"add data source", [](auto& d) { return d.cmdAddDs.UserClick(); }},
      {"add variable", [](auto& d) { return d.cmdAddDsv.UserClick(); }},
      {"variable T", [](auto& d) { return SelectNode(d, u"4:2"); }},
      {"move up", [](auto& d) { return d.cmdMoveUp.UserClick(); }},
      {"move down", [](auto& d) { return d.cmdMoveDown.UserClick(); }},
      {"sort", [](auto& d) { return d.cmdSort.UserClick(); }},
      {"sort in view", [](auto& d) { return d.chkSort.UserClick(); }},
      {"delete", [](auto& d) { return d.cmdDelete.UserClick(); }},
      {"data source Log again", [](auto& d) { return SelectNode(d, u"_Log2"); }},
      {"move data source up", [](auto& d) { return d.cmdMoveUp.UserClick(); }},
  };
}

// An editing run over the plant sample through the SCADA frames, with the
// simulated SCADA system as the communication object.
std::vector<UserStep> ScadaSteps() {
  return {
      {"SCADA data source", [](auto& d) { return SelectNode(d, u"_Raw_Water_Station.custom6"); }},
      {"application list", [](auto& d) { return d.cboTelvaneApplication.UserDropDown(); }},
      {"application 2",
       [](auto& d) { return d.cboTelvaneApplication.ListCount() > 1 && d.cboTelvaneApplication.UserPick(1); }},
      {"blink period", [](auto& d) { return d.txtBlinkPeriod.UserType(u"750"); }},
      {"apply data source", [](auto& d) { return d.cmdTelvaneDsApply.UserClick(); }},
      {"mapped variable", [](auto& d) { return SelectNode(d, u"6:1"); }},
      {"object reference", [](auto& d) { return d.txtTelvaneObjectReference.UserType(u"RW_P102:P10"); }},
      {"validate", [](auto& d) { return d.cmdTelvaneDsvValidate.UserClick(); }},
      {"signal type",
       [](auto& d) { return d.cboTelvaneSignalType.ListCount() > 2 && d.cboTelvaneSignalType.UserPick(2); }},
      {"variable info", [](auto& d) { return d.txtVarInfo.UserType(u"1,2,3"); }},
      {"apply variable", [](auto& d) { return d.cmdTelvaneDsvApply.UserClick(); }},
      {"status colour variable", [](auto& d) { return SelectNode(d, u"6:4"); }},
      {"swap none", [](auto& d) { return d.optTelvaneSwapNone.UserClick(); }},
      {"undo", [](auto& d) { return d.cmdTelvaneDsvUndo.UserClick(); }},
      {"variable with a script", [](auto& d) { return SelectNode(d, u"7:1"); }},
      {"script files", [](auto& d) { return d.cmbKorlFileSelect.UserDropDown(); }},
      {"reference label", [](auto& d) { return d.lblObjectReference.UserClick(); }},
      {"apply again", [](auto& d) { return d.cmdTelvaneDsvApply.UserClick(); }},
      {"unmapped data source", [](auto& d) { return SelectNode(d, u"_Softening_Plant.custom8"); }},
      {"unmapped variable", [](auto& d) { return SelectNode(d, u"8:1"); }},
  };
}

// A selection run: variables chosen; the run ends with OK.
std::vector<UserStep> SelectionSteps() {
  return {
      {"variable Level", [](auto& d) { return SelectNode(d, u"1:1"); }},
      {"variable T", [](auto& d) { return SelectNode(d, u"4:2"); }},
      {"data source Log", [](auto& d) { return SelectNode(d, u"_Log2"); }},
      {"variable Count", [](auto& d) { return SelectNode(d, u"2:1"); }},
  };
}

// What one run with a failing call came to.
struct Outcome {
  int64_t calls = 0;               // calls into the model in the whole run
  std::string failedSite;          // "" when the run made fewer calls than k
  std::string failedStep;          // the user's step during which the call failed
  std::vector<int32_t> reported;   // errors the user's steps raised (shown in a message box)
  int32_t toHost = 0;              // the error the run's call raised to the host, 0 for none
  std::vector<std::string> stray;  // exceptions other than Automation errors
  bool endedByUser = false;        // the last step (Close / OK) hid the dialog
};

enum class RunKind : uint8_t { kEditing, kSelection, kScada };

const char* NameOf(RunKind kind) {
  switch (kind) {
    case RunKind::kEditing:
      return "editing";
    case RunKind::kSelection:
      return "selection";
    case RunKind::kScada:
      return "SCADA editing";
  }
  return "";
}

sample::SampleDisplay ModelFor(RunKind kind) {
  if (kind == RunKind::kScada) return sample::LoadDisplayFile(VD_ROBUST_PLANT_SAMPLE);
  return sample::LoadDisplayText(kDisplayJson, "t.json", "/");
}

Outcome Run(SweepFixture& f, RunKind kind, int64_t k, const sample::SampleDisplay& model) {
  FaultPlan plan;
  Outcome outcome;
  const bool selection = kind == RunKind::kSelection;
  const std::vector<UserStep> steps =
      kind == RunKind::kScada ? ScadaSteps() : (selection ? SelectionSteps() : EditingSteps());
  for (const UserStep& step : steps) {
    f.user.Check([&f, &outcome, &plan, step] {
      try {
        step.act(f.dlg);
      } catch (const automation::AutomationError& e) {
        outcome.reported.push_back(e.Number());
      } catch (const std::exception& e) {
        outcome.stray.push_back(step.label + ": " + e.what());
      }
      if (!plan.FailedSite().empty() && outcome.failedStep.empty()) outcome.failedStep = step.label;
    });
  }
  // The end of the run: a user who met an error still ends it, with OK when
  // the variable shown may be chosen, else with Close.
  f.user.Check([&] {
    if (selection && f.dlg.dbOK.Enabled()) outcome.endedByUser = f.dlg.dbOK.UserClick();
    if (f.dlg.Visible()) outcome.endedByUser = f.dlg.dbClose.UserClick();
    outcome.endedByUser = outcome.endedByUser && !f.dlg.Visible();
  });
  plan.FailAt(k);
  if (model.scada) f.desk.SetCommunication(FaultyCommunication(model.scada, plan));
  try {
    const toolkit::DisplayRef display = FaultyDisplay(model.display, plan);
    if (selection) {
      (void)f.desk.SelectDataVar(display, 4, 500, 0, 0);
    } else {
      f.desk.EditDataSources(display);
    }
  } catch (const automation::AutomationError& e) {
    outcome.toHost = e.Number();
  }
  outcome.calls = plan.Calls();
  outcome.failedSite = plan.FailedSite();
  f.desk.SetCommunication(model.scada);  // the next run without failures
  if (outcome.failedStep.empty()) outcome.failedStep = "opening or ending the run";
  // The run raised before the dialog was shown: the user's steps never ran.
  if (outcome.toHost != 0) {
    while (f.user.Remaining() > 0) f.user.RunAll();
  }
  return outcome;
}

// The next run of the same dialog, without failures: its tree shows exactly
// the model, and an edit still reaches the model.
void ExpectNextRunShowsModel(SweepFixture& f, const std::shared_ptr<sample::MemoryDisplay>& model,
                             const std::string& label) {
  f.user
      .Check([&] {
        const forms::Nodes& nodes = f.dlg.treDataSources.Nodes();
        const auto dataSources = model->DataSources();
        int32_t expectedNodes = dataSources->DsCount();
        for (int32_t i = 1; i <= dataSources->DsCount(); ++i) {
          const auto ds = dataSources->Item(i);
          const String name = ds->GetDsName();
          const forms::NodeRef dsNode = nodes.Item(i);
          EXPECT_EQ(dsNode->Key(), u"_" + name + ToDecimal(i)) << label;
          EXPECT_EQ(dsNode->Text(), name) << label;
          const auto vars = ds->GetDsVars();
          expectedNodes += vars->DsvCount();
          for (int32_t j = 1; j <= vars->DsvCount(); ++j) {
            const forms::NodeRef node = nodes.Find(ToDecimal(i) + u":" + ToDecimal(j));
            ASSERT_TRUE(node) << label << " variable " << i << ":" << j;
            EXPECT_EQ(node->Text(), vars->DsvItem(j)->GetDsvName()) << label;
            EXPECT_EQ(node->Parent(), dsNode) << label;
          }
        }
        EXPECT_EQ(nodes.Count(), expectedNodes) << label;
      })
      .SelectNode(f.dlg.treDataSources, u"1:1")
      .Type(f.dlg.txtDsvName, u"Edited")
      .Click(f.dlg.dbClose);
  f.desk.EditDataSources(model);
  EXPECT_EQ(model->DataSources()->Item(1)->GetDsVars()->DsvItem(1)->GetDsvName(), u"Edited") << label;
  EXPECT_TRUE(f.desk.IsModified()) << label;
}

struct SweepFigures {
  int64_t runs = 0, shown = 0, toHost = 0, silent = 0;
  std::set<std::string> sites;                              // operations that failed
  std::set<std::pair<std::string, std::string>> stepSites;  // (user's step, operation)
};

SweepFigures Sweep(RunKind kind) {
  SweepFigures figures;
  SweepFixture clean;
  const int64_t calls = Run(clean, kind, 0, ModelFor(kind)).calls;
  EXPECT_GT(calls, 100);
  for (int64_t k = 1; k <= calls; ++k) {
    const sample::SampleDisplay model = ModelFor(kind);
    SweepFixture f;
    const Outcome outcome = Run(f, kind, k, model);
    const std::string label =
        std::string(NameOf(kind)) + " run, call " + std::to_string(k) + " (" + outcome.failedSite + ")";
    ++figures.runs;
    EXPECT_FALSE(outcome.failedSite.empty()) << label << ": the run made only " << outcome.calls << " calls";
    figures.sites.insert(outcome.failedSite);
    figures.stepSites.emplace(outcome.failedStep, outcome.failedSite);
    EXPECT_TRUE(outcome.stray.empty()) << label << ": " << (outcome.stray.empty() ? "" : outcome.stray.front());
    if (outcome.toHost != 0) {
      EXPECT_EQ(outcome.toHost, kInjectedError) << label;
      ++figures.toHost;
    } else {
      EXPECT_TRUE(outcome.endedByUser) << label << ": the dialog did not close";
      if (outcome.reported.empty()) {
        ++figures.silent;
      } else {
        ++figures.shown;
        EXPECT_EQ(outcome.reported.front(), kInjectedError) << label;
      }
    }
    ExpectNextRunShowsModel(f, model.display, label);
  }
  return figures;
}

void Print(const char* run, const SweepFigures& s) {
  std::string sites;
  for (const std::string& site : s.sites) sites += (sites.empty() ? "" : ", ") + site;
  std::printf(
      "fault sweep, %s run: %lld failing calls; %lld shown to the user, %lld raised to the host, %lld trapped "
      "silently; %zu call sites (user's step and operation) over %zu operations: %s\n",
      run, static_cast<long long>(s.runs), static_cast<long long>(s.shown), static_cast<long long>(s.toHost),
      static_cast<long long>(s.silent), s.stepSites.size(), s.sites.size(), sites.c_str());
}

class FaultSweep : public ::testing::TestWithParam<RunKind> {};

TEST_P(FaultSweep, SurvivesEveryFailingCall) {
  const SweepFigures figures = Sweep(GetParam());
  EXPECT_EQ(figures.runs, figures.shown + figures.toHost + figures.silent);
  Print(NameOf(GetParam()), figures);
}

std::string KindName(const ::testing::TestParamInfo<RunKind>& tested) {
  const std::string name = NameOf(tested.param);
  return name == "SCADA editing" ? "ScadaEditing" : name == "editing" ? "Editing" : "Selection";
}

INSTANTIATE_TEST_SUITE_P(Runs, FaultSweep, ::testing::Values(RunKind::kEditing, RunKind::kSelection, RunKind::kScada),
                         KindName);

}  // namespace
}  // namespace vd::robust_test
