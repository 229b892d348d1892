// The rescan of item offsets (the SCADA panel's Rescan button) over one data
// source of 2,000 status colour variables, headless, three ways in one run:
// through IDispatch as a host hands its objects in (the display and the
// communication object exposed by the demo host's exposers, seen through a
// forwarding IDispatch and the adapters); over the in-memory display and the
// simulated system directly; and the floor, the simulated system answering
// the same 2,000 requests, made beforehand, on its own. Prints the best of
// several rounds of each, the ratios, and the calls that crossed IDispatch.
//
//   vd_rescan_timing [ROUNDS]   (default 5; run under Wine, no display needed)
#include <windows.h>

#include <oaidl.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "browser/frm_data_browser.h"
#include "com/com_ptr.h"
#include "dispatch/adapt.h"
#include "expose/toolkit_exposers.h"
#include "feeders.h"
#include "forwarder.h"
#include "headless_services.h"
#include "platform/services.h"
#include "scada/sa_data_sources.h"
#include "silent_ui.h"
#include "vd/automation/conversions.h"

namespace {

using vd::automation::String;
using vd::automation::Variant;
using vd::bench::counts;
using vd::bench::Forwarder;
using vd::win32::ComPtr;

double Now() {
  LARGE_INTEGER frequency;
  LARGE_INTEGER now;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&now);
  return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

int Rounds() {
  int count = 0;
  LPWSTR* argv = CommandLineToArgvW(GetCommandLineW(), &count);
  const int rounds = count > 1 ? _wtoi(argv[1]) : 5;
  LocalFree(argv);
  return std::max(rounds, 1);
}

// A data browser over the display, its SCADA data source selected, ready to rescan.
class Rescanner {
 public:
  Rescanner(const vd::toolkit::DisplayRef& display, const vd::toolkit::CommunicationRef& comm)
      : display_(display), services_{ui_, registry_, files_}, dlg_(services_) {
    dlg_.SetCommunication(comm);
    dlg_.InitDBForEdit(display);
    if (!dlg_.treDataSources.UserSelectNode(dlg_.treDataSources.Nodes().Item(1)) || !dlg_.Command1.Visible()) {
      std::printf("the SCADA data source panel is not shown\n");
      std::exit(1);
    }
  }
  double Milliseconds() {
    const double start = Now();
    dlg_.Command1.UserClick();
    return Now() - start;
  }
  // The offsets the rescan stored for the first variable.
  String FirstOffsets() {
    return vd::automation::CStr(display_->GetDataSources()
                                    ->DsItem(1)
                                    ->GetDsVars()
                                    ->DsvItem(1)
                                    ->AsCustom()
                                    ->GetParams()
                                    ->ParamItem(4)
                                    ->GetParamValue());
  }

 private:
  vd::toolkit::DisplayRef display_;
  vd::bench::SilentUi ui_;
  vd::bench::NoRegistry registry_;
  vd::bench::NoFiles files_;
  vd::platform::Services services_;
  vd::browser::frmDataBrowser dlg_;
};

double FloorMilliseconds(vd::sample::SimulatedScada& scada, const std::vector<String>& requests) {
  const double start = Now();
  for (const String& request : requests) {
    Variant result;
    scada.ExecuteKorlInApp(vd::bench::kApplication, request, result);
  }
  return Now() - start;
}

}  // namespace

int main() {
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  const int rounds = Rounds();
  {
    const vd::sample::SampleDisplay direct = vd::bench::Feeders();
    const vd::sample::SampleDisplay hosted = vd::bench::Feeders();
    const ComPtr<IDispatch> display = ComPtr<IDispatch>::Attach(new Forwarder(vd::win32::ExposeObject(hosted.display)));
    const ComPtr<IDispatch> comm = ComPtr<IDispatch>::Attach(new Forwarder(vd::win32::ExposeObject(hosted.scada)));
    Rescanner inMemory(direct.display, direct.scada);
    Rescanner throughCom(vd::win32::AdaptAs<vd::toolkit::Display>(display.Get()),
                         vd::win32::AdaptAs<vd::toolkit::Communication>(comm.Get()));
    std::vector<String> requests;
    for (int32_t i = 1; i <= vd::bench::kVariables; ++i)
      requests.push_back(vd::scada::modSADataSources::OffsetsRequest(vd::bench::Name(i), 11));

    std::vector<double> through;
    std::vector<double> memory;
    std::vector<double> floor;
    vd::bench::CallCounts best;
    for (int round = 0; round < rounds; ++round) {
      direct.scada->ClearLog();
      hosted.scada->ClearLog();
      floor.push_back(FloorMilliseconds(*direct.scada, requests));
      direct.scada->ClearLog();
      memory.push_back(inMemory.Milliseconds());
      counts = {};
      through.push_back(throughCom.Milliseconds());
      if (through.back() <= *std::min_element(through.begin(), through.end())) best = counts;
      std::printf("round %d: through IDispatch %.2f ms, in memory %.2f ms, floor %.2f ms\n", round + 1, through.back(),
                  memory.back(), floor.back());
      std::fflush(stdout);
    }
    if (inMemory.FirstOffsets() != throughCom.FirstOffsets()) {
      std::printf("the two rescans stored different offsets\n");
      return 1;
    }
    const double bestThrough = *std::min_element(through.begin(), through.end());
    const double bestMemory = *std::min_element(memory.begin(), memory.end());
    const double bestFloor = *std::min_element(floor.begin(), floor.end());
    std::printf("variables: %d; first variable's offsets: %s\n", vd::bench::kVariables,
                vd::automation::ToUtf8(inMemory.FirstOffsets()).c_str());
    std::printf("calls through IDispatch in one rescan: %ld Invoke, %ld GetIDsOfNames, %ld type info queries\n",
                best.invokes, best.nameLookups, best.typeInfoQueries);
    std::printf("rescan through IDispatch (best of %d): %.2f ms (%.2f us a variable)\n", rounds, bestThrough,
                1000.0 * bestThrough / vd::bench::kVariables);
    std::printf("rescan over the in-memory display and system (best of %d): %.2f ms\n", rounds, bestMemory);
    std::printf("floor, the system answering the same requests (best of %d): %.2f ms\n", rounds, bestFloor);
    std::printf("ratio through IDispatch / floor: %.2f; in memory / floor: %.2f\n", bestThrough / bestFloor,
                bestMemory / bestFloor);
  }
  CoUninitialize();
  return 0;
}
