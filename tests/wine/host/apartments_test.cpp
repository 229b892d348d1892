// Two single-threaded apartments in one process each open the component's
// dialog through their own platform: the second apartment's dialog, opened
// while the first one's is still shown, is not owned by the first apartment's
// dialog, and each run ends on its own thread.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "VarDeskGUI.h"
#include "com/com_ptr.h"
#include "com/unique_handle.h"
#include "component/windows_platform.h"
#include "expose/toolkit_exposers.h"
#include "plant.h"
#include "server/var_desk_ui_object.h"

namespace vd::testhost {
namespace {

using win32::ComPtr;

// What one apartment saw of the dialog it opened.
struct Apartment {
  HWND dialog = nullptr;
  HWND owner = nullptr;  // the dialog's owner when it was created
  DWORD thread = 0;
  const void* platform = nullptr;
  HRESULT run = E_FAIL;  // EditDataSources
  bool closeAtOnce = false;
  win32::KernelHandle opened{CreateEventW(nullptr, TRUE, FALSE, nullptr)};  // the dialog exists
};

// The top-level dialog the component creates on this thread; with closeAtOnce
// it is posted a close request at once (it arrives inside its modal loop).
thread_local Apartment* watched = nullptr;

LRESULT CALLBACK WatchCreation(int code, WPARAM wParam, LPARAM lParam) {
  if (code == HCBT_CREATEWND && watched != nullptr && watched->dialog == nullptr) {
    const auto* create = reinterpret_cast<const CBT_CREATEWNDW*>(lParam)->lpcs;
    std::wstring className(16, L'\0');
    className.resize(static_cast<size_t>(
        GetClassNameW(reinterpret_cast<HWND>(wParam), className.data(), static_cast<int>(className.size()))));
    if (className == L"#32770" && (create->style & WS_CHILD) == 0) {
      watched->dialog = reinterpret_cast<HWND>(wParam);
      watched->owner = create->hwndParent;
      if (watched->closeAtOnce) PostMessageW(watched->dialog, WM_CLOSE, 0, 0);
      SetEvent(watched->opened.Get());
    }
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

// An editing run of the component on a new apartment thread, started once
// `before` (when given) is set; a run with `first` closes that apartment's
// dialog when its own run is over.
struct ApartmentRun {
  Apartment& seen;
  HANDLE before = nullptr;
  Apartment* first = nullptr;  // the other apartment, whose dialog is shown now
};

DWORD WINAPI ApartmentThread(void* parameter) {
  ApartmentRun& run = *static_cast<ApartmentRun*>(parameter);
  if (run.before != nullptr) WaitForSingleObject(run.before, INFINITE);
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  {
    run.seen.thread = GetCurrentThreadId();
    run.seen.platform = &win32::ApartmentPlatform();
    watched = &run.seen;
    HHOOK hook = SetWindowsHookExW(WH_CBT, WatchCreation, nullptr, GetCurrentThreadId());
    ComPtr<_VarDeskUI> ui;
    if (SUCCEEDED(win32::VarDeskUIObject::Create(IID__VarDeskUI, ui.PutVoid()))) {
      const ComPtr<IDispatch> display = win32::ExposeObject(MakePlant());
      run.seen.run = ui->EditDataSources(display.Get());
      if (run.first != nullptr) PostMessageW(run.first->dialog, WM_CLOSE, 0, 0);
    }
    UnhookWindowsHookEx(hook);
    watched = nullptr;
  }
  CoUninitialize();
  return 0;
}

TEST(ApartmentsTest, EachSingleThreadedApartmentShowsItsOwnDialog) {
  Apartment first;
  Apartment second;
  second.closeAtOnce = true;
  ApartmentRun firstRun{first};
  ApartmentRun secondRun{second, first.opened.Get(), &first};
  const win32::KernelHandle one(CreateThread(nullptr, 0, ApartmentThread, &firstRun, 0, nullptr));
  const win32::KernelHandle two(CreateThread(nullptr, 0, ApartmentThread, &secondRun, 0, nullptr));
  ASSERT_TRUE(one.Valid() && two.Valid());
  const HANDLE both[] = {one.Get(), two.Get()};
  ASSERT_EQ(WaitForMultipleObjects(2, both, TRUE, 120000), WAIT_OBJECT_0);

  EXPECT_EQ(first.run, S_OK);
  EXPECT_EQ(second.run, S_OK);
  ASSERT_NE(first.dialog, nullptr);
  ASSERT_NE(second.dialog, nullptr);
  EXPECT_NE(first.platform, second.platform);
  EXPECT_NE(first.owner, second.dialog);
  EXPECT_NE(first.thread, second.thread);
  EXPECT_NE(second.owner, first.dialog) << "the second apartment's dialog is owned by the first one's";
}

}  // namespace
}  // namespace vd::testhost
