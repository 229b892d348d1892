// Opening the data browser over the generated large display (2,000 data
// sources x 50 variables: 102,000 tree nodes) through the component, as a host
// does (EditDataSources on the COM object, the display a foreign IDispatch),
// until the dialog is shown with its tree filled and painted; beside it, in
// the same run, the floor: the same 102,000 texts inserted into a bare tree
// view with redraw off, the data sources opened, then shown and painted. Prints the best of several
// rounds of each and their ratio.
//
//   vd_dialog_bench [ROUNDS]   (default 5; run under Wine with a display)
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "VarDeskGUI.h"
#include "com/com_ptr.h"
#include "demo/component_loader.h"
#include "expose/toolkit_exposers.h"
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

// The floor: a top-level window holding a tree view with the dialog's styles.
double BareTreeMilliseconds(const TreeTexts& texts) {
  static const ATOM frameClass = [] {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = DefWindowProcW;
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
  const Stopwatch watch;
  SendMessageW(tree, WM_SETREDRAW, FALSE, 0);
  // The data sources go in first, then the variables under their collapsed
  // data sources (the cheap way for the window), then the data sources open:
  // the end state of the dialog's tree.
  std::vector<HTREEITEM> parents;
  parents.reserve(texts.dataSources.size());
  for (const std::wstring& name : texts.dataSources) {
    TVINSERTSTRUCTW parent{};
    parent.hParent = TVI_ROOT;
    parent.hInsertAfter = TVI_LAST;
    parent.item.mask = TVIF_TEXT;
    parent.item.pszText = const_cast<LPWSTR>(name.c_str());
    parents.push_back(
        reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&parent))));
  }
  for (size_t i = 0; i < parents.size(); ++i) {
    for (const std::wstring& name : texts.variables[i]) {
      TVINSERTSTRUCTW child{};
      child.hParent = parents[i];
      child.hInsertAfter = TVI_LAST;
      child.item.mask = TVIF_TEXT;
      child.item.pszText = const_cast<LPWSTR>(name.c_str());
      SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&child));
    }
  }
  for (HTREEITEM parent : parents) SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(parent));
  SendMessageW(tree, WM_SETREDRAW, TRUE, 0);
  ShowWindow(frame, SW_SHOW);
  UpdateWindow(frame);
  const double elapsed = watch.Milliseconds();
  const auto count = static_cast<size_t>(SendMessageW(tree, TVM_GETCOUNT, 0, 0));
  DestroyWindow(frame);
  if (count != texts.NodeCount()) {
    std::printf("the bare tree holds %zu nodes, not %zu\n", count, texts.NodeCount());
    std::exit(1);
  }
  return elapsed;
}

// While the component's dialog runs: the moment its tree is full and it is
// painted, then a click on Close. The timer's messages come only once the
// dialog's message loop runs and nothing else is waiting.
struct DialogWatch {
  const Stopwatch* watch = nullptr;
  size_t expectedNodes = 0;
  double shownAt = -1;
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
  KillTimer(nullptr, timer);
  PostMessageW(vd::win32::views::FindControlWindow(dialog, u"dbClose"), BM_CLICK, 0, 0);
}

double ComponentMilliseconds(_VarDeskUI& ui, IDispatch* display, size_t nodes) {
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
  return dialogWatch.shownAt;
}

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
  const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_TREEVIEW_CLASSES};
  InitCommonControlsEx(&classes);
  const int rounds = Rounds();
  int result = 0;
  {
    const vd::sample::SampleDisplay sample = vd::sample::GenerateLargeDisplay({2000, 50});
    const TreeTexts texts = TextsOf(sample);
    const ComPtr<IDispatch> display = vd::win32::ExposeObject(sample.display);
    vd::win32::demo::LoadedComponent component = vd::win32::demo::CreateVarDeskUI();

    std::vector<double> dialog;
    std::vector<double> floor;
    BareTreeMilliseconds(texts);  // loads and warms the common controls
    for (int round = 0; round < rounds; ++round) {
      floor.push_back(BareTreeMilliseconds(texts));
      dialog.push_back(ComponentMilliseconds(*component.ui.Get(), display.Get(), texts.NodeCount()));
      std::printf("round %d: dialog %.0f ms, bare tree %.0f ms\n", round + 1, dialog.back(), floor.back());
      std::fflush(stdout);
    }
    const double bestDialog = *std::min_element(dialog.begin(), dialog.end());
    const double bestFloor = *std::min_element(floor.begin(), floor.end());
    std::printf("nodes: %zu (%zu data sources x %zu variables)\n", texts.NodeCount(), texts.dataSources.size(),
                texts.variables.empty() ? size_t{0} : texts.variables[0].size());
    std::printf("dialog open through the component (best of %d): %.0f ms\n", rounds, bestDialog);
    std::printf("bare tree view, redraw off (best of %d): %.0f ms\n", rounds, bestFloor);
    std::printf("ratio: %.2f (goal <= 1.30)\n", bestDialog / bestFloor);
    result = 0;
  }
  CoUninitialize();
  return result;
}
