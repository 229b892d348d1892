// A host of the component, as a display builder would be: it loads a sample
// display with its simulated SCADA system, hands both to the component as
// Automation objects, opens the data browser for an editing run or a
// selection run, and prints what came back:
//   component: <where it came from>
//   selected: <data source> / <variable>      (selection runs; "none" after Close)
//   modified: yes|no
// With VD_DEMO_AUDIT=1 in its environment it also prints what the run did to
// the display and asked of the SCADA system (the application path requests,
// which only read, on a line of their own):
//   display: unchanged|changed
//   scada calls: none|<operation>, ...
//   scada path requests: <count>               (when there were any)
// With VD_DEMO_SCRATCH=1 the SCADA applications' directories are copied to a
// fresh folder under the temporary directory first, so that script files
// created in the run do not land in the sample's folder.
#include <windows.h>

#include <objbase.h>
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "com/bstr.h"
#include "convert/error_convert.h"
#include "demo/component_loader.h"
#include "demo/demo_options.h"
#include "dispatch/adapt.h"
#include "expose/toolkit_exposers.h"
#include "vd/automation/string.h"
#include "vd/sample/sample_file.h"

namespace {

using vd::win32::ComPtr;

void Print(const std::string& line) {
  std::fputs(line.c_str(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

std::string Utf8(const std::wstring& text) {
  return vd::automation::ToUtf8(vd::automation::String(text.begin(), text.end()));
}

std::vector<std::wstring> Arguments() {
  int count = 0;
  LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::wstring> arguments;
  for (int i = 1; i < count; ++i) arguments.emplace_back(words[i]);
  LocalFree(words);
  return arguments;
}

// The apartment of a user-interface thread, for the program's whole run.
class Apartment {
 public:
  Apartment() : hr_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() {
    if (SUCCEEDED(hr_)) CoUninitialize();
  }
  [[nodiscard]] bool Ok() const { return SUCCEEDED(hr_); }

 private:
  HRESULT hr_;
};

void Check(HRESULT hr) {
  if (FAILED(hr)) throw vd::win32::ErrorFromHResult(hr);
}

// "<data source> / <variable>" of a variable the component handed back.
std::string Describe(IDispatch* selected) {
  if (!selected) return "none";
  const vd::toolkit::DsvRef dsv = vd::win32::AdaptAs<vd::toolkit::Dsv>(selected);
  const vd::toolkit::DsRef ds = dsv->GetDsvParent();
  return vd::automation::ToUtf8(ds->GetDsName()) + " / " + vd::automation::ToUtf8(dsv->GetDsvName());
}

const char* CallName(vd::sample::ScadaCall call) {
  switch (call) {
    case vd::sample::ScadaCall::kGetApplications:
      return "GetApplications";
    case vd::sample::ScadaCall::kExecuteKorl:
      return "ExecuteKorl";
    case vd::sample::ScadaCall::kScriptFileChanged:
      return "ScriptFileChanged";
    case vd::sample::ScadaCall::kExecuteKorlInApp:
      return "ExecuteKorlInApp";
    case vd::sample::ScadaCall::kValidateItem:
      return "ValidateItem";
  }
  return "?";
}

// Whether the run changed the display, and every call the SCADA system got.
void PrintAudit(const vd::sample::SampleDisplay& sample, const std::filesystem::path& folder,
                const std::string& before) {
  Print(std::string("display: ") + (vd::sample::WriteDisplayJson(sample, folder) == before ? "unchanged" : "changed"));
  std::string calls;
  int pathRequests = 0;
  if (sample.scada) {
    for (const vd::sample::ScadaCallRecord& record : sample.scada->Calls()) {
      if (record.call == vd::sample::ScadaCall::kExecuteKorl && record.text.starts_with(u"@path1=path(")) {
        ++pathRequests;
        continue;
      }
      calls += (calls.empty() ? "" : ", ") + std::string(CallName(record.call));
    }
  }
  Print("scada calls: " + (calls.empty() ? std::string("none") : calls));
  if (pathRequests > 0) Print("scada path requests: " + std::to_string(pathRequests));
}

// Copies every application's directory to <temp>\vd_demo_apl\<name> and moves the application there.
void UseScratchDirectories(vd::sample::SimulatedScada& scada) {
  namespace fs = std::filesystem;
  const fs::path scratch = fs::temp_directory_path() / "vd_demo_apl";
  fs::remove_all(scratch);
  const std::vector<vd::sample::ScadaApplication> applications = scada.Applications();
  for (const vd::sample::ScadaApplication& application : applications) {
    const fs::path copy = scratch / fs::path(application.name);
    fs::create_directories(copy);
    if (fs::is_directory(fs::path(application.directory))) {
      fs::copy(fs::path(application.directory), copy, fs::copy_options::recursive);
    }
    scada.SetApplicationDirectory(application.number, copy.u16string());
  }
}

bool EnvironmentSays(const char* name) {
  const char* setting = std::getenv(name);
  return setting != nullptr && std::string(setting) == "1";
}

int Run(const vd::win32::demo::DemoOptions& options) {
  const vd::sample::SampleDisplay sample = vd::sample::LoadDisplayFile(options.displayFile);
  if (sample.scada && EnvironmentSays("VD_DEMO_SCRATCH")) UseScratchDirectories(*sample.scada);
  const bool audit = EnvironmentSays("VD_DEMO_AUDIT");
  const std::filesystem::path folder = std::filesystem::path(options.displayFile).parent_path();
  const std::string before = audit ? vd::sample::WriteDisplayJson(sample, folder) : std::string();
  const ComPtr<IDispatch> display = vd::win32::ExposeObject(sample.display);
  const ComPtr<IDispatch> scada = vd::win32::ExposeObject(sample.scada);

  vd::win32::demo::LoadedComponent component = vd::win32::demo::CreateVarDeskUI();
  Print("component: " + Utf8(component.origin));
  if (scada) Check(component.ui->putref_Communication(scada.Get()));

  if (options.selection) {
    const auto& s = *options.selection;
    Print("run: selection (context " + std::to_string(s.context) + ", type " + std::to_string(s.dsvType) + ", rows " +
          std::to_string(s.rows) + ", cols " + std::to_string(s.cols) + ")");
    ComPtr<IDispatch> selected;
    Check(component.ui->SelectDataVar(display.Get(), s.context, s.dsvType, s.rows, s.cols, selected.Put()));
    Print("selected: " + Describe(selected.Get()));
  } else {
    Print("run: editing");
    Check(component.ui->EditDataSources(display.Get()));
  }
  VARIANT_BOOL modified = VARIANT_FALSE;
  Check(component.ui->IsModified(&modified));
  Print(std::string("modified: ") + (modified != VARIANT_FALSE ? "yes" : "no"));
  if (audit) PrintAudit(sample, folder, before);
  return 0;
}

}  // namespace

int main() {
  const vd::win32::demo::ParsedOptions parsed = vd::win32::demo::ParseDemoOptions(Arguments());
  if (!parsed.options) {
    Print("vd_demo_host: " + Utf8(parsed.error));
    Print(Utf8(vd::win32::demo::kDemoUsage));
    return 2;
  }
  const Apartment apartment;
  if (!apartment.Ok()) {
    Print("vd_demo_host: COM did not start");
    return 1;
  }
  try {
    return Run(*parsed.options);
  } catch (const vd::sample::SampleFileError& e) {
    Print(std::string("vd_demo_host: ") + e.what());
    return 2;
  } catch (const vd::automation::AutomationError& e) {
    Print("vd_demo_host: error " + std::to_string(e.Number()) + ": " + vd::automation::ToUtf8(e.Description()));
  } catch (const std::exception& e) {
    Print(std::string("vd_demo_host: ") + e.what());
  }
  return 1;
}
