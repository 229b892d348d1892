// The C++ test host: GoogleTest on a single-threaded apartment, as a host
// application's user-interface thread is.
#include <windows.h>

#include <objbase.h>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
  int result = RUN_ALL_TESTS();
  CoUninitialize();
  return result;
}
