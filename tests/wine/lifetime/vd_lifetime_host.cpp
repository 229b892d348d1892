// The component's lifetime as a long-running host sees it: N cycles (500 by
// default, the first argument) of creating VarDeskUI, setting Communication,
// an editing or a selection run that a test hook ends as soon as the dialog
// shows (none with --no-runs, the third argument), and releasing it. Prints the process's handle count, GDI and USER
// objects, private bytes and the bytes in use on the process's heaps after
// the first thousand cycles (or the first tenth of a shorter run) and at the
// end, how the heaps' bytes in use moved per cycle between the second tenth
// and the last (mean over each), whether the host's own objects got back
// every reference the component took, and what DllCanUnloadNow answers:
//   lifetime: cycles N
//   lifetime: figures: <where each figure comes from; Wine 8 answers some calls with 0>
//   lifetime: after C cycles: handles H, gdi G, user U, private P KiB, heaps B bytes
//   lifetime: last C cycles: handles +dH, gdi +dG, user +dU, private +dP KiB
//   lifetime: heaps in use: mean M1 bytes over cycles a-b, M2 over cycles c-d: +G bytes per cycle
//   lifetime: display references: added A, released R, held 0
//   lifetime: communication references: added A, released R, held 0
//   lifetime: DllCanUnloadNow S_OK
// Exits 1 when the counts grew over the last cycles, memory grew (heaps by
// more than kHeapBytesPerCycle, private bytes by more than
// kPrivateBytesPerCycle over the last cycles), a reference is still held or
// the DLL cannot unload; 2 when a run failed.
#include <windows.h>

#include <objbase.h>
#include <psapi.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

#include "VarDeskGUI.h"
#include "com/com_ptr.h"
#include "com/library_handle.h"
#include "demo/component_loader.h"
#include "expose/toolkit_exposers.h"
#include "vd/sample/sample_file.h"

namespace {

using vd::win32::ComPtr;

void Print(const std::string& line) {
  std::fputs(("lifetime: " + line + "\n").c_str(), stdout);
  std::fflush(stdout);
}

// Forwards to an object of the host and counts the references others take.
class CountingDispatch final : public IDispatch {
 public:
  explicit CountingDispatch(ComPtr<IDispatch> inner) : inner_(std::move(inner)) {}
  CountingDispatch(const CountingDispatch&) = delete;
  CountingDispatch& operator=(const CountingDispatch&) = delete;
  virtual ~CountingDispatch() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    ++added_;
    return static_cast<ULONG>(++held_);
  }
  ULONG STDMETHODCALLTYPE Release() override {
    ++released_;
    return static_cast<ULONG>(--held_);  // the host's own reference keeps it alive
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return inner_->GetTypeInfoCount(count); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    return inner_->GetTypeInfo(index, locale, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
    return inner_->GetIDsOfNames(iid, names, count, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params, VARIANT* result,
                                   EXCEPINFO* error, UINT* argError) override {
    return inner_->Invoke(id, iid, locale, flags, params, result, error, argError);
  }

  [[nodiscard]] long Added() const { return added_; }
  [[nodiscard]] long Released() const { return released_; }
  [[nodiscard]] long Held() const { return held_; }  // by others

 private:
  ComPtr<IDispatch> inner_;
  long added_ = 0;
  long released_ = 0;
  long held_ = 0;
};

struct Counts {
  DWORD handles = 0, gdi = 0, user = 0;
  SIZE_T privateBytes = 0;
  unsigned long long heapBytes = 0;
};

// Flat memory: what a cycle may add on average. A block kept per label and
// show (24 bytes each, a dozen labels or more a dialog) is far above the first;
// the private bytes also move with the heaps' reserve, in steps of pages.
constexpr double kHeapBytesPerCycle = 8;
constexpr long long kPrivateBytesPerCycle = 256;

// The bytes of every block in use on the process's heaps (the C runtime's
// one among them): exact, unlike the pages the process holds.
unsigned long long HeapBytesInUse() {
  std::vector<HANDLE> heaps(64);
  DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  if (count > heaps.size()) {
    heaps.resize(count);
    count = GetProcessHeaps(count, heaps.data());
  }
  unsigned long long total = 0;
  for (DWORD i = 0; i < count && i < heaps.size(); ++i) {
    if (!HeapLock(heaps[i])) continue;
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heaps[i], &entry))
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) total += entry.cbData;
    HeapUnlock(heaps[i]);
  }
  return total;
}

// Where the figures come from: the documented calls, or, where Wine answers
// them with 0, what the process can count itself.
struct Sources {
  bool handlesFromSystemList = false;  // NtQuerySystemInformation's handle list
  bool userFromWindows = false;        // the windows of this process
  bool gdiMissing = false;             // no count at all
};
Sources sources;

struct SystemHandle {
  USHORT process;
  USHORT creatorBackTraceIndex;
  UCHAR objectType;
  UCHAR flags;
  USHORT handle;
  PVOID object;
  ULONG grantedAccess;
};
struct SystemHandles {
  ULONG count;
  SystemHandle handles[1];
};
using QuerySystemInformation = LONG(WINAPI*)(ULONG, PVOID, ULONG, PULONG);
constexpr ULONG kSystemHandleInformation = 16;

DWORD HandlesInSystemList() {
  const auto query = reinterpret_cast<QuerySystemInformation>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
  if (query == nullptr) return 0;
  std::vector<unsigned char> buffer(1 << 22);
  ULONG length = 0;
  if (query(kSystemHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size()), &length) != 0) return 0;
  const auto* list = reinterpret_cast<const SystemHandles*>(buffer.data());
  const auto self = static_cast<USHORT>(GetCurrentProcessId());
  DWORD mine = 0;
  for (ULONG i = 0; i < list->count; ++i)
    if (list->handles[i].process == self) ++mine;
  return mine;
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId()) return TRUE;
  ++*reinterpret_cast<DWORD*>(count);
  EnumChildWindows(window, CountWindow, count);
  return TRUE;
}

DWORD WindowsOfProcess() {
  DWORD count = 0;
  EnumWindows(CountWindow, reinterpret_cast<LPARAM>(&count));
  return count;
}

Counts Measure() {
  Counts c;
  const HANDLE self = GetCurrentProcess();
  GetProcessHandleCount(self, &c.handles);
  if (c.handles == 0) {
    c.handles = HandlesInSystemList();
    sources.handlesFromSystemList = true;
  }
  c.gdi = GetGuiResources(self, GR_GDIOBJECTS);
  c.user = GetGuiResources(self, GR_USEROBJECTS);
  if (c.user == 0) {
    c.user = WindowsOfProcess();
    sources.userFromWindows = true;
  }
  sources.gdiMissing = c.gdi == 0;
  PROCESS_MEMORY_COUNTERS_EX memory{};
  memory.cb = sizeof memory;
  if (GetProcessMemoryInfo(self, reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory), sizeof memory))
    c.privateBytes =
        memory.PrivateUsage != 0 ? memory.PrivateUsage : memory.PagefileUsage;  // Wine fills only the latter
  c.heapBytes = HeapBytesInUse();
  return c;
}

std::string Describe(const Counts& c) {
  return "handles " + std::to_string(c.handles) + ", gdi " + std::to_string(c.gdi) + ", user " +
         std::to_string(c.user) + ", private " + std::to_string(c.privateBytes / 1024) + " KiB, heaps " +
         std::to_string(c.heapBytes) + " bytes";
}

std::string Signed(long long value) { return (value >= 0 ? "+" : "") + std::to_string(value); }

// Ends each run as soon as its dialog is shown: the test hook of a host that
// cannot wait for a user. Closing the dialog is what its close box does.
HHOOK hook = nullptr;

LRESULT CALLBACK EndRunAtOnce(int code, WPARAM wParam, LPARAM lParam) {
  if (code == HCBT_ACTIVATE) {
    const auto window = reinterpret_cast<HWND>(wParam);
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    if (std::wstring(className) == L"#32770") PostMessageW(window, WM_CLOSE, 0, 0);
  }
  return CallNextHookEx(hook, code, wParam, lParam);
}

using GetClassObjectFunction = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
using CanUnloadFunction = HRESULT(WINAPI*)();

int Run(long cycles, const std::wstring& displayFile, bool withRuns) {
  const vd::sample::SampleDisplay sample = vd::sample::LoadDisplayFile(displayFile);
  CountingDispatch display(vd::win32::ExposeObject(sample.display));
  CountingDispatch communication(vd::win32::ExposeObject(sample.scada));

  const vd::win32::LibraryHandle library(vd::win32::demo::ProgramFolder() + L"VarDeskGUI.dll");
  if (!library) return 2;
  const auto getClassObject = library.Export<GetClassObjectFunction>("DllGetClassObject");
  const auto canUnloadNow = library.Export<CanUnloadFunction>("DllCanUnloadNow");
  if (!getClassObject || !canUnloadNow) return 2;

  hook = SetWindowsHookExW(WH_CBT, EndRunAtOnce, nullptr, GetCurrentThreadId());
  const long window = cycles >= 10000 ? 1000 : (cycles / 10 > 0 ? cycles / 10 : 1);
  Counts afterFirst, beforeLast, atEnd;
  // The heaps' bytes in use, summed over the second window and the last one.
  const long early = window < cycles / 2 ? window : 0;
  unsigned long long earlySum = 0, lastSum = 0;
  Print("cycles " + std::to_string(cycles));
  for (long cycle = 1; cycle <= cycles; ++cycle) {
    ComPtr<IClassFactory> factory;
    ComPtr<_VarDeskUI> ui;
    if (FAILED(getClassObject(CLSID_VarDeskUI, IID_IClassFactory, factory.PutVoid())) ||
        FAILED(factory->CreateInstance(nullptr, IID__VarDeskUI, ui.PutVoid())))
      return 2;
    if (FAILED(ui->putref_Communication(&communication))) return 2;
    HRESULT hr = S_OK;
    if (!withRuns) {
      // Only the object's own life.
    } else if (cycle % 2 == 1) {
      hr = ui->EditDataSources(&display);
    } else {
      ComPtr<IDispatch> selected;
      hr = ui->SelectDataVar(&display, 1, 501, 0, 0, selected.Put());
    }
    if (FAILED(hr)) {
      Print("cycle " + std::to_string(cycle) + " failed: " + std::to_string(static_cast<long>(hr)));
      return 2;
    }
    ui.Reset();
    factory.Reset();
    if (cycle == window) afterFirst = Measure();
    if (cycle == cycles - window) beforeLast = Measure();
    if (cycle > early && cycle <= early + window) earlySum += HeapBytesInUse();
    if (cycle > cycles - window) lastSum += HeapBytesInUse();
  }
  atEnd = Measure();
  UnhookWindowsHookEx(hook);

  Print(std::string("figures: handles from ") +
        (sources.handlesFromSystemList ? "the system's handle list" : "GetProcessHandleCount") + ", user objects " +
        (sources.userFromWindows ? "as the process's windows" : "from GetGuiResources") + ", gdi objects " +
        (sources.gdiMissing ? "not counted (GetGuiResources answers 0)" : "from GetGuiResources") +
        ", private bytes from GetProcessMemoryInfo");
  Print("after " + std::to_string(window) + " cycles: " + Describe(afterFirst));
  Print("after " + std::to_string(cycles) + " cycles: " + Describe(atEnd));
  const bool grew = atEnd.handles > beforeLast.handles || atEnd.gdi > beforeLast.gdi || atEnd.user > beforeLast.user;
  const double earlyMean = static_cast<double>(earlySum) / static_cast<double>(window);
  const double lastMean = static_cast<double>(lastSum) / static_cast<double>(window);
  const double between = static_cast<double>(cycles - window - early);
  const double heapPerCycle = between > 0 ? (lastMean - earlyMean) / between : 0;
  const long long privateGrowth =
      static_cast<long long>(atEnd.privateBytes) - static_cast<long long>(beforeLast.privateBytes);
  const bool memoryGrew = heapPerCycle > kHeapBytesPerCycle || privateGrowth > kPrivateBytesPerCycle * window;
  Print("last " + std::to_string(window) + " cycles: handles " +
        Signed(static_cast<long long>(atEnd.handles) - beforeLast.handles) + ", gdi " +
        Signed(static_cast<long long>(atEnd.gdi) - beforeLast.gdi) + ", user " +
        Signed(static_cast<long long>(atEnd.user) - beforeLast.user) + ", private " + Signed(privateGrowth / 1024) +
        " KiB");
  char perCycle[32];
  std::snprintf(perCycle, sizeof perCycle, "%+.1f", heapPerCycle);
  Print("heaps in use: mean " + std::to_string(static_cast<long long>(earlyMean)) + " bytes over cycles " +
        std::to_string(early + 1) + "-" + std::to_string(early + window) + ", " +
        std::to_string(static_cast<long long>(lastMean)) + " over cycles " + std::to_string(cycles - window + 1) + "-" +
        std::to_string(cycles) + ": " + perCycle + " bytes per cycle");
  Print("display references: added " + std::to_string(display.Added()) + ", released " +
        std::to_string(display.Released()) + ", held " + std::to_string(display.Held()));
  Print("communication references: added " + std::to_string(communication.Added()) + ", released " +
        std::to_string(communication.Released()) + ", held " + std::to_string(communication.Held()));
  const HRESULT unload = canUnloadNow();
  Print(std::string("DllCanUnloadNow ") + (unload == S_OK ? "S_OK" : "S_FALSE"));
  return grew || memoryGrew || display.Held() != 0 || communication.Held() != 0 || unload != S_OK ? 1 : 0;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  const long cycles = argc > 1 ? std::wcstol(argv[1], nullptr, 10) : 500;
  const std::wstring displayFile = argc > 2 ? argv[2] : vd::win32::demo::ProgramFolder() + L"plant.json";
  const bool withRuns = argc <= 3 || std::wstring(argv[3]) != L"--no-runs";
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
  int status = 2;
  try {
    status = Run(cycles, displayFile, withRuns);
  } catch (const std::exception& e) {
    Print(std::string("failed: ") + e.what());
  }
  CoUninitialize();
  return status;
}
