// The Win32 views' tests under Wine (or Windows): GoogleTest, then one line
// "winviews: N passed, M failed" for the scripts that collect the results.
//
// "--wait-event NAME" makes the program a helper child instead: it waits for
// the named event (set by the parent while StartProgramAndWait pumps its
// messages) and exits 0, or 1 when the event never comes.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

constexpr DWORD kChildPatienceMilliseconds = 30000;

int WaitForEvent(const char* name) {
  const std::wstring wide(name, name + std::strlen(name));
  const HANDLE event = OpenEventW(SYNCHRONIZE, FALSE, wide.c_str());
  if (event == nullptr) return 2;
  const DWORD waited = WaitForSingleObject(event, kChildPatienceMilliseconds);
  CloseHandle(event);
  return waited == WAIT_OBJECT_0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::strcmp(argv[1], "--wait-event") == 0) return WaitForEvent(argv[2]);
  testing::InitGoogleTest(&argc, argv);
  const int result = RUN_ALL_TESTS();
  const testing::UnitTest& unit = *testing::UnitTest::GetInstance();
  std::printf("winviews: %d passed, %d failed\n", unit.successful_test_count(), unit.failed_test_count());
  std::fflush(stdout);
  return result;
}
