// Building the data browser's tree over the generated large display (2,000
// data sources x 50 variables), headless: once over the in-memory display
// directly (the floor), once over the same display behind IDispatch, as a host
// hands it in (the demo host's exposers, seen through the adapters). The
// exposed objects are wrapped in a thin forwarding IDispatch so that the
// adapters take them for a foreign host's, as they do across two modules.
// Prints the best of several rounds of each, their ratio, and how many calls
// crossed IDispatch.
//
//   vd_adapter_timing [ROUNDS]   (default 5; run under Wine, no display needed)
#include <windows.h>

#include <oaidl.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "browser/frm_data_browser.h"
#include "com/com_ptr.h"
#include "dispatch/adapt.h"
#include "expose/toolkit_exposers.h"
#include "forwarder.h"
#include "headless_services.h"
#include "platform/services.h"
#include "vd/sample/large_display.h"

namespace {

using vd::automation::String;
using vd::automation::StringView;
using vd::bench::CallCounts;
using vd::bench::counts;
using vd::bench::Forwarder;
using vd::bench::NoFiles;
using vd::bench::NoRegistry;
using vd::win32::ComPtr;

double Now() {
  LARGE_INTEGER frequency;
  LARGE_INTEGER now;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&now);
  return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

class SilentUi final : public vd::forms::UiServices {
 public:
  int32_t MsgBox(StringView, int32_t, const std::optional<String>&) override { return vd::forms::vbOK; }
  String InputBox(StringView, StringView, StringView) override { return {}; }
  String OpenFileDialog(const vd::forms::Form*, StringView, StringView, StringView, uint32_t) override { return {}; }
  bool StartProgramAndWait(StringView) override { return false; }
  void BringToFront(const vd::forms::Form&) override {}
  void SetScreenMousePointer(int16_t) override {}
  void RefreshNow(const vd::forms::Control&) override {}
};

double BuildMilliseconds(vd::browser::frmDataBrowser& dlg, const vd::toolkit::DisplayRef& display) {
  dlg.treDataSources.Nodes().Clear();
  const double start = Now();
  dlg.InitDBForEdit(display);
  return Now() - start;
}

// What the host's objects cost alone: the calls the build makes to read the
// display (each member's DISPID asked once, the texts read and freed), with no
// adapter and no tree.
class RawReader {
 public:
  explicit RawReader(IDispatch* display) : display_(display) {}

  double Milliseconds() {
    const double start = Now();
    UniqueCall list = Call(display_, u"GetDataSources", nullptr);
    const long count = Call(list.Get(), u"DsCount", nullptr).Long();
    for (long i = 1; i <= count; ++i) {
      UniqueCall ds = Call(list.Get(), u"DsItem", &i);
      Call(ds.Get(), u"GetDsName", nullptr);
      UniqueCall vars = Call(ds.Get(), u"GetDsVars", nullptr);
      const long dsvCount = Call(vars.Get(), u"DsvCount", nullptr).Long();
      for (long j = 1; j <= dsvCount; ++j) {
        UniqueCall dsv = Call(vars.Get(), u"DsvItem", &j);
        Call(dsv.Get(), u"GetDsvName", nullptr);
      }
    }
    return Now() - start;
  }

 private:
  struct UniqueCall {
    VARIANT v{};
    UniqueCall() { VariantInit(&v); }
    UniqueCall(UniqueCall&& other) noexcept : v(other.v) { VariantInit(&other.v); }
    UniqueCall(const UniqueCall&) = delete;
    UniqueCall& operator=(const UniqueCall&) = delete;
    UniqueCall& operator=(UniqueCall&&) = delete;
    ~UniqueCall() { VariantClear(&v); }
    [[nodiscard]] IDispatch* Get() const { return v.vt == VT_DISPATCH ? v.pdispVal : nullptr; }
    [[nodiscard]] long Long() const { return v.vt == VT_I4 ? v.lVal : v.vt == VT_I2 ? v.iVal : 0; }
  };

  UniqueCall Call(IDispatch* object, const char16_t* name, const long* argument) {
    DISPID& id = ids_[name];
    if (id == 0) {
      std::wstring wide(name, name + std::char_traits<char16_t>::length(name));
      LPOLESTR names[] = {wide.data()};
      object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    }
    VARIANT arg;
    VariantInit(&arg);
    if (argument != nullptr) {
      arg.vt = VT_I4;
      arg.lVal = *argument;
    }
    DISPPARAMS params{argument != nullptr ? &arg : nullptr, nullptr, argument != nullptr ? 1U : 0U, 0};
    UniqueCall result;
    object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &params, &result.v,
                   nullptr, nullptr);
    return result;
  }

  IDispatch* display_;
  std::map<const char16_t*, DISPID> ids_;  // the exposers' DISPIDs are never 0
};

int Rounds() {
  int count = 0;
  LPWSTR* argv = CommandLineToArgvW(GetCommandLineW(), &count);
  const int rounds = count > 1 ? _wtoi(argv[1]) : 5;
  LocalFree(argv);
  return std::max(rounds, 1);
}

}  // namespace

int main() {
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  const int rounds = Rounds();
  {
    const vd::sample::SampleDisplay sample = vd::sample::GenerateLargeDisplay({2000, 50});
    SilentUi ui;
    NoRegistry registry;
    NoFiles files;
    vd::platform::Services services{ui, registry, files};
    vd::browser::frmDataBrowser dlg(services);
    const ComPtr<IDispatch> host = ComPtr<IDispatch>::Attach(new Forwarder(vd::win32::ExposeObject(sample.display)));
    const vd::toolkit::DisplayRef adapted = vd::win32::AdaptAs<vd::toolkit::Display>(host.Get());

    std::vector<double> direct;
    std::vector<double> through;
    std::vector<double> raw;
    CallCounts best;
    RawReader reader(host.Get());
    BuildMilliseconds(dlg, sample.display);  // warms the heap
    for (int round = 0; round < rounds; ++round) {
      direct.push_back(BuildMilliseconds(dlg, sample.display));
      counts = {};
      through.push_back(BuildMilliseconds(dlg, adapted));
      if (through.back() <= *std::min_element(through.begin(), through.end())) best = counts;
      raw.push_back(reader.Milliseconds());
      std::printf("round %d: in memory %.1f ms, through IDispatch %.1f ms\n", round + 1, direct.back(), through.back());
      std::fflush(stdout);
    }
    const double bestDirect = *std::min_element(direct.begin(), direct.end());
    const double bestThrough = *std::min_element(through.begin(), through.end());
    std::printf("nodes: %d\n", dlg.treDataSources.Nodes().Count());
    std::printf("calls through IDispatch in one build: %ld Invoke, %ld GetIDsOfNames, %ld type info queries\n",
                best.invokes, best.nameLookups, best.typeInfoQueries);
    std::printf("tree build over the in-memory display (best of %d): %.1f ms\n", rounds, bestDirect);
    std::printf("tree build through IDispatch (best of %d): %.1f ms\n", rounds, bestThrough);
    const double bestRaw = *std::min_element(raw.begin(), raw.end());
    std::printf("the same reads made straight on the host's objects, no adapter, no tree (best of %d): %.1f ms\n",
                rounds, bestRaw);
    std::printf("  so the adapters add about %.1f ms to the in-memory build and the host's own reads\n",
                bestThrough - bestDirect - bestRaw);
    std::printf("ratio: %.2f (goal <= 1.50)\n", bestThrough / bestDirect);
  }
  CoUninitialize();
  return 0;
}
