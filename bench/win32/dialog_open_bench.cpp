// Opening the data browser over the generated large display (2,000 data
// sources x 50 variables: 102,000 tree nodes) through the component, as a host
// does (EditDataSources on the COM object, the display a foreign IDispatch),
// until the dialog is shown with its tree filled and painted; beside it, in
// the same run, the floor: the same 102,000 texts inserted into a bare tree
// view with redraw off, the data sources opened, then shown and painted; and
// the same bare tree once more with its texts given by callback (the window
// asks for a text only when it paints it). Prints the best of several rounds
// of each, their ratio, and the memory each added in its first round while it
// stood filled and painted. Then where the dialog's time goes: the same build
// of the dialog's tree headless through IDispatch (reading the display and
// the forms nodes) and over the in-memory display (the forms nodes alone); the
// rest is the window, its inserts and its first paint, which the bare tree
// shows apart (inserts with redraw off, then opening and painting).
//
//   vd_dialog_bench [ROUNDS [DATA_SOURCES VARIABLES]]
//   (default 5 rounds over 2,000 x 50; run under Wine with a display)
#include <windows.h>

#include <commctrl.h>
#include <psapi.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "VarDeskGUI.h"
#include "browser/frm_data_browser.h"
#include "com/com_ptr.h"
#include "demo/component_loader.h"
#include "dispatch/adapt.h"
#include "expose/toolkit_exposers.h"
#include "forwarder.h"
#include "headless_services.h"
#include "silent_ui.h"
#include "vd/sample/large_display.h"
#include "views/control_lookup.h"

namespace {

using vd::win32::ComPtr;

class Stopwatch {
 public:
  Stopwatch() {
    QueryPerformanceFrequency(&frequency_);
    QueryPerformanceCounter(&start_);
  }
  [[nodiscard]] double Milliseconds() const {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return 1000.0 * static_cast<double>(now.QuadPart - start_.QuadPart) / static_cast<double>(frequency_.QuadPart);
  }

 private:
  LARGE_INTEGER frequency_{};
  LARGE_INTEGER start_{};
};

// The texts of the tree: each data source's name followed by its variables'.
struct TreeTexts {
  std::vector<std::wstring> dataSources;
  std::vector<std::vector<std::wstring>> variables;
  [[nodiscard]] size_t NodeCount() const {
    size_t count = dataSources.size();
    for (const auto& v : variables) count += v.size();
    return count;
  }
};

std::wstring Wide(const vd::automation::String& text) { return std::wstring(text.begin(), text.end()); }

TreeTexts TextsOf(const vd::sample::SampleDisplay& sample) {
  TreeTexts texts;
  const auto list = sample.display->GetDataSources();
  for (int32_t i = 1; i <= list->DsCount(); ++i) {
    const auto ds = list->DsItem(i);
    texts.dataSources.push_back(Wide(ds->GetDsName()));
    std::vector<std::wstring>& names = texts.variables.emplace_back();
    const auto vars = ds->GetDsVars();
    for (int32_t j = 1; j <= vars->DsvCount(); ++j) names.push_back(Wide(vars->DsvItem(j)->GetDsvName()));
  }
  return texts;
}

// The process's private bytes now; where the system reports none (Wine),
// its working set, which a filled tree grows by its own pages alone.
double PrivateMegabytes() {
  PROCESS_MEMORY_COUNTERS_EX counters{};
  counters.cb = sizeof counters;
  if (!GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                            sizeof counters))
    return 0;
  const SIZE_T bytes = counters.PrivateUsage != 0 ? counters.PrivateUsage : counters.WorkingSetSize;
  return static_cast<double>(bytes) / (1024.0 * 1024.0);
}

struct Measure {
  double milliseconds = 0;
  double megabytes = 0;            // memory added while the window stood filled
  double insertsMilliseconds = 0;  // the bare tree: until every item is in, redraw still off
};

// The bare tree's frame answers a callback item's text from the item's lParam.
LRESULT CALLBACK BareFrameProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == TVN_GETDISPINFOW) {
    auto* info = reinterpret_cast<NMTVDISPINFOW*>(lParam);
    if ((info->item.mask & TVIF_TEXT) != 0)
      info->item.pszText = const_cast<LPWSTR>(reinterpret_cast<const std::wstring*>(info->item.lParam)->c_str());
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

// One item of the bare tree: its text stored, or given by callback.
TVINSERTSTRUCTW BareItem(HTREEITEM parent, const std::wstring& text, bool callback) {
  TVINSERTSTRUCTW insert{};
  insert.hParent = parent;
  insert.hInsertAfter = TVI_LAST;
  insert.item.mask = callback ? TVIF_TEXT | TVIF_PARAM : TVIF_TEXT;
  insert.item.pszText = callback ? LPSTR_TEXTCALLBACKW : const_cast<LPWSTR>(text.c_str());
  insert.item.lParam = reinterpret_cast<LPARAM>(&text);
  return insert;
}

// The floor: a top-level window holding a tree view with the dialog's styles.
Measure BareTree(const TreeTexts& texts, bool callback) {
  static const ATOM frameClass = [] {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = BareFrameProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = L"VdBareTreeFrame";
    return RegisterClassW(&windowClass);
  }();
  const HWND frame = CreateWindowExW(0, MAKEINTATOM(frameClass), L"Bare tree view", WS_OVERLAPPEDWINDOW, 0, 0, 640, 480,
                                     nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  const HWND tree = CreateWindowExW(
      WS_EX_CLIENTEDGE, WC_TREEVIEWW, L"",
      WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_SHOWSELALWAYS, 8, 8,
      600, 420, frame, nullptr, GetModuleHandleW(nullptr), nullptr);
  const double megabytesBefore = PrivateMegabytes();
  const Stopwatch watch;
  SendMessageW(tree, WM_SETREDRAW, FALSE, 0);
  // The data sources go in first, then the variables under their collapsed
  // data sources (the cheap way for the window), then the data sources open:
  // the end state of the dialog's tree.
  std::vector<HTREEITEM> parents;
  parents.reserve(texts.dataSources.size());
  for (const std::wstring& name : texts.dataSources) {
    TVINSERTSTRUCTW parent = BareItem(TVI_ROOT, name, callback);
    parents.push_back(
        reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&parent))));
  }
  for (size_t i = 0; i < parents.size(); ++i) {
    for (const std::wstring& name : texts.variables[i]) {
      TVINSERTSTRUCTW child = BareItem(parents[i], name, callback);
      SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&child));
    }
  }
  const double inserted = watch.Milliseconds();
  for (HTREEITEM parent : parents) SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(parent));
  SendMessageW(tree, WM_SETREDRAW, TRUE, 0);
  ShowWindow(frame, SW_SHOW);
  UpdateWindow(frame);
  const Measure measure{watch.Milliseconds(), PrivateMegabytes() - megabytesBefore, inserted};
  const auto count = static_cast<size_t>(SendMessageW(tree, TVM_GETCOUNT, 0, 0));
  DestroyWindow(frame);
  if (count != texts.NodeCount()) {
    std::printf("the bare tree holds %zu nodes, not %zu\n", count, texts.NodeCount());
    std::exit(1);
  }
  return measure;
}

// While the component's dialog runs: the moment its tree is full and it is
// painted, then a click on Close. The timer's messages come only once the
// dialog's message loop runs and nothing else is waiting.
struct DialogWatch {
  const Stopwatch* watch = nullptr;
  size_t expectedNodes = 0;
  double shownAt = -1;
  double megabytes = 0;  // private bytes with the dialog shown
};
DialogWatch* theWatch = nullptr;

void CALLBACK OnDialogTimer(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND dialog = vd::win32::views::FindFormWindow(u"frmDataBrowser");
  if (dialog == nullptr || theWatch->shownAt >= 0) return;
  const HWND tree = vd::win32::views::FindControlWindow(dialog, u"treDataSources");
  if (tree == nullptr || !IsWindowVisible(tree)) return;
  if (static_cast<size_t>(SendMessageW(tree, TVM_GETCOUNT, 0, 0)) != theWatch->expectedNodes) return;
  UpdateWindow(dialog);
  theWatch->shownAt = theWatch->watch->Milliseconds();
  theWatch->megabytes = PrivateMegabytes();
  KillTimer(nullptr, timer);
  PostMessageW(vd::win32::views::FindControlWindow(dialog, u"dbClose"), BM_CLICK, 0, 0);
}

Measure Component(_VarDeskUI& ui, IDispatch* display, size_t nodes) {
  const double megabytesBefore = PrivateMegabytes();
  const Stopwatch watch;
  DialogWatch dialogWatch{&watch, nodes};
  theWatch = &dialogWatch;
  const UINT_PTR timer = SetTimer(nullptr, 0, 1, OnDialogTimer);
  const HRESULT hr = ui.EditDataSources(display);
  KillTimer(nullptr, timer);
  theWatch = nullptr;
  if (FAILED(hr) || dialogWatch.shownAt < 0) {
    std::printf("the dialog run failed (0x%08lX) or never showed its tree\n", static_cast<unsigned long>(hr));
    std::exit(1);
  }
  return {dialogWatch.shownAt, dialogWatch.megabytes - megabytesBefore};
}

struct Arguments {
  int rounds = 5;
  int32_t dataSources = 2000;
  int32_t variables = 50;
};

Arguments ArgumentsOf() {
  int count = 0;
  LPWSTR* argv = CommandLineToArgvW(GetCommandLineW(), &count);
  Arguments arguments;
  if (count > 1) arguments.rounds = std::max(_wtoi(argv[1]), 1);
  if (count > 3) {
    arguments.dataSources = std::max(_wtoi(argv[2]), 1);
    arguments.variables = std::max(_wtoi(argv[3]), 0);
  }
  LocalFree(argv);
  return arguments;
}

// The best (least) time over the rounds, with the memory of the first (later
// rounds reuse what the first one's heap kept).
Measure Best(const std::vector<Measure>& rounds) {
  Measure best = rounds.front();
  for (const Measure& m : rounds) {
    best.milliseconds = std::min(best.milliseconds, m.milliseconds);
    best.insertsMilliseconds = std::min(best.insertsMilliseconds, m.insertsMilliseconds);
  }
  return best;
}

// The dialog's tree built headless, as the dialog builds it, best of rounds.
double HeadlessBuildMilliseconds(const vd::toolkit::DisplayRef& display, int rounds) {
  vd::bench::SilentUi ui;
  vd::bench::NoRegistry registry;
  vd::bench::NoFiles files;
  vd::platform::Services services{ui, registry, files};
  vd::browser::frmDataBrowser dlg(services);
  double best = 0;
  for (int round = 0; round < rounds; ++round) {
    dlg.treDataSources.Nodes().Clear();
    const Stopwatch watch;
    dlg.InitDBForEdit(display);
    const double elapsed = watch.Milliseconds();
    best = round == 0 ? elapsed : std::min(best, elapsed);
  }
  return best;
}

}  // namespace

int main() {
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_TREEVIEW_CLASSES};
  InitCommonControlsEx(&classes);
  const Arguments arguments = ArgumentsOf();
  const int rounds = arguments.rounds;
  int result = 0;
  {
    const vd::sample::SampleDisplay sample =
        vd::sample::GenerateLargeDisplay({arguments.dataSources, arguments.variables});
    const TreeTexts texts = TextsOf(sample);
    const ComPtr<IDispatch> display = vd::win32::ExposeObject(sample.display);
    vd::win32::demo::LoadedComponent component = vd::win32::demo::CreateVarDeskUI();

    std::vector<Measure> dialog;
    std::vector<Measure> floor;
    std::vector<Measure> callbacks;
    BareTree(texts, false);  // loads and warms the common controls
    for (int round = 0; round < rounds; ++round) {
      floor.push_back(BareTree(texts, false));
      callbacks.push_back(BareTree(texts, true));
      dialog.push_back(Component(*component.ui.Get(), display.Get(), texts.NodeCount()));
      std::printf("round %d: dialog %.0f ms, bare tree %.0f ms, bare tree with callback texts %.0f ms\n", round + 1,
                  dialog.back().milliseconds, floor.back().milliseconds, callbacks.back().milliseconds);
      std::fflush(stdout);
    }
    const Measure bestDialogMeasure = Best(dialog);
    const Measure bestFloorMeasure = Best(floor);
    const Measure bestCallbacks = Best(callbacks);
    const double bestDialog = bestDialogMeasure.milliseconds;
    const double bestFloor = bestFloorMeasure.milliseconds;
    std::printf("nodes: %zu (%zu data sources x %zu variables)\n", texts.NodeCount(), texts.dataSources.size(),
                texts.variables.empty() ? size_t{0} : texts.variables[0].size());
    std::printf("dialog open through the component (best of %d): %.0f ms\n", rounds, bestDialog);
    std::printf("bare tree view, redraw off (best of %d): %.0f ms\n", rounds, bestFloor);
    std::printf("bare tree view, callback texts (best of %d): %.0f ms\n", rounds, bestCallbacks.milliseconds);
    std::printf("ratio: %.2f (goal <= 1.00)\n", bestDialog / bestFloor);
    std::printf(
        "memory added in the first round: dialog %.1f MB, bare tree %.1f MB, bare tree with callback texts "
        "%.1f MB; ratio %.2f (goal <= 2.00)\n",
        bestDialogMeasure.megabytes, bestFloorMeasure.megabytes, bestCallbacks.megabytes,
        bestFloorMeasure.megabytes > 0 ? bestDialogMeasure.megabytes / bestFloorMeasure.megabytes : 0.0);
    const ComPtr<IDispatch> foreign = ComPtr<IDispatch>::Attach(new vd::bench::Forwarder(display));
    const double throughCom =
        HeadlessBuildMilliseconds(vd::win32::AdaptAs<vd::toolkit::Display>(foreign.Get()), rounds);
    const double inMemory = HeadlessBuildMilliseconds(sample.display, rounds);
    std::printf("where the dialog's time goes (best of %d each):\n", rounds);
    std::printf("  reading the display through IDispatch: %.0f ms\n", throughCom - inMemory);
    std::printf("  the forms nodes (the same build over the in-memory display): %.0f ms\n", inMemory);
    std::printf("  the dialog's windows, the view's inserts and the first paint: %.0f ms\n", bestDialog - throughCom);
    std::printf("  bare tree for comparison: inserts %.0f ms, opening and first paint %.0f ms\n",
                bestFloorMeasure.insertsMilliseconds, bestFloor - bestFloorMeasure.insertsMilliseconds);
    result = 0;
  }
  CoUninitialize();
  return result;
}
