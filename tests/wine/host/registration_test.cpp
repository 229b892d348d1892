// Registration as regsvr32 does it: per machine (DllRegisterServer) and per
// user (DllInstall with "user"), the keys a host's CreateObject reads, and
// nothing left once unregistered.
#include <gtest/gtest.h>

#include <string>

#include "com/library_handle.h"
#include "com/reg_key.h"

namespace vd::testhost {
namespace {

using RegisterFunction = HRESULT(WINAPI*)();
using InstallFunction = HRESULT(WINAPI*)(BOOL, LPCWSTR);

constexpr wchar_t kClsid[] = L"{18918549-798F-48FD-B33F-D049C5B6C3B0}";
constexpr wchar_t kLibid[] = L"TypeLib\\{F165069A-298F-4B23-92D8-ED5889444ADC}";
#ifdef _WIN64
constexpr wchar_t kPlatform[] = L"win64";
#else
constexpr wchar_t kPlatform[] = L"win32";
#endif

std::wstring ComponentPath() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L"\\/") + 1) + L"VarDeskGUI.dll";
}

// The value under ROOT\Software\Classes\KEY; "(absent)" when the key or value is not there.
std::wstring Value(HKEY root, const std::wstring& key, const std::wstring& name = L"") {
  const win32::RegKey opened = win32::RegKey::OpenForRead(root, L"Software\\Classes\\" + key);
  std::wstring value;
  return opened.Get() != nullptr && opened.GetString(name, value) ? value : L"(absent)";
}

class RegistrationTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(library_);
    registerServer_ = library_.Export<RegisterFunction>("DllRegisterServer");
    unregisterServer_ = library_.Export<RegisterFunction>("DllUnregisterServer");
    install_ = library_.Export<InstallFunction>("DllInstall");
    ASSERT_TRUE(registerServer_ && unregisterServer_ && install_);
  }

  // Every key a host needs, under root.
  void ExpectRegistered(HKEY root) {
    const std::wstring dll = ComponentPath();
    const std::wstring clsid = std::wstring(L"CLSID\\") + kClsid;
    EXPECT_EQ(Value(root, L"VarDeskGUI.VarDeskUI\\CLSID"), kClsid);
    EXPECT_EQ(Value(root, L"VarDeskGUI.SelectionHandler\\CLSID"), L"{91A182CF-7842-43C8-8C07-BB10D5C73CA2}");
    EXPECT_EQ(Value(root, clsid + L"\\InprocServer32"), dll);
    EXPECT_EQ(Value(root, clsid + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(Value(root, std::wstring(kLibid) + L"\\1.0\\0\\" + kPlatform), dll);
  }
  void ExpectUnregistered(HKEY root) {
    EXPECT_EQ(Value(root, L"VarDeskGUI.VarDeskUI\\CLSID"), L"(absent)");
    EXPECT_EQ(Value(root, L"VarDeskGUI.SelectionHandler\\CLSID"), L"(absent)");
    EXPECT_EQ(Value(root, std::wstring(L"CLSID\\") + kClsid + L"\\InprocServer32"), L"(absent)");
    EXPECT_EQ(Value(root, std::wstring(kLibid) + L"\\1.0\\0\\" + kPlatform), L"(absent)");
  }

  win32::LibraryHandle library_{ComponentPath()};
  RegisterFunction registerServer_ = nullptr;
  RegisterFunction unregisterServer_ = nullptr;
  InstallFunction install_ = nullptr;
};

TEST_F(RegistrationTest, PerMachineRegistersEveryKeyAndUnregistersThemAll) {
  ASSERT_EQ(registerServer_(), S_OK);
  ExpectRegistered(HKEY_LOCAL_MACHINE);
  // The dual interface goes through the Automation marshaler.
  EXPECT_EQ(Value(HKEY_LOCAL_MACHINE, L"Interface\\{BA6CC585-BE35-4C72-B4BF-399271E8A167}\\ProxyStubClsid32"),
            L"{00020424-0000-0000-C000-000000000046}");
  CLSID clsid{};
  EXPECT_EQ(CLSIDFromProgID(L"VarDeskGUI.VarDeskUI", &clsid), S_OK);

  ASSERT_EQ(unregisterServer_(), S_OK);
  ExpectUnregistered(HKEY_LOCAL_MACHINE);
  // What makes CreateObject fail with error 429 in a script host.
  EXPECT_EQ(CLSIDFromProgID(L"VarDeskGUI.VarDeskUI", &clsid), CO_E_CLASSSTRING);
  EXPECT_EQ(CLSIDFromProgID(L"VarDeskGUI.SelectionHandler", &clsid), CO_E_CLASSSTRING);
}

TEST_F(RegistrationTest, PerUserWritesOnlyTheUsersKeys) {
  ASSERT_EQ(install_(TRUE, L"user"), S_OK);
  ExpectRegistered(HKEY_CURRENT_USER);
  ExpectUnregistered(HKEY_LOCAL_MACHINE);
  ASSERT_EQ(install_(FALSE, L"user"), S_OK);
  ExpectUnregistered(HKEY_CURRENT_USER);
}

}  // namespace
}  // namespace vd::testhost
