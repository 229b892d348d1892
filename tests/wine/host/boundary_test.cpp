// The three error boundaries: what each returns and leaves behind when the
// body throws, and that a body's own HRESULT passes through untouched.
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "com/bstr.h"
#include "com/com_ptr.h"
#include "convert/error_convert.h"

namespace vd::testhost {
namespace {

using automation::AutomationError;

struct Thrown {
  const char* name;
  std::function<HRESULT()> body;
  HRESULT hr;                // what every boundary returns (Invoke: its EXCEPINFO's scode)
  const wchar_t* described;  // the description rich error info and EXCEPINFO carry
};

std::vector<Thrown> ThrownCases() {
  return {
      {"automation error", []() -> HRESULT { throw AutomationError(91); }, static_cast<HRESULT>(0x800A005B),
       L"Object variable or With block variable not set"},
      {"own description", []() -> HRESULT { throw AutomationError(35602, u"Key is not unique in collection"); },
       static_cast<HRESULT>(0x800A8B12), L"Key is not unique in collection"},
      {"out of memory", []() -> HRESULT { throw std::bad_alloc(); }, static_cast<HRESULT>(0x800A0007),
       L"Out of memory"},
      {"foreign exception", []() -> HRESULT { throw std::runtime_error("boom"); }, E_UNEXPECTED,
       L"Unexpected failure: boom"},
      {"not an exception", []() -> HRESULT { throw 7; }, E_UNEXPECTED, L"Unexpected failure"},
  };
}

std::wstring ThreadErrorDescription() {
  win32::ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.Put()) != S_OK || !info) return L"<none>";
  win32::Bstr description;
  info->GetDescription(description.Put());
  return description.Get() ? description.Get() : L"";
}

// Rich: the error is left for the thread. HRESULT only: the number, no error
// info. Invoke: the caller's EXCEPINFO, or the HRESULT when it passes none.
TEST(BoundaryTest, EachBoundaryReportsAThrownErrorItsOwnWay) {
  for (const Thrown& c : ThrownCases()) {
    SCOPED_TRACE(c.name);
    SetErrorInfo(0, nullptr);
    EXPECT_EQ(win32::ComBoundary(L"T", IID_IDispatch, c.body), c.hr);
    EXPECT_EQ(ThreadErrorDescription(), c.described);
    SetErrorInfo(0, nullptr);
    EXPECT_EQ(win32::HResultBoundary(c.body), c.hr);
    EXPECT_EQ(ThreadErrorDescription(), L"<none>");
    EXCEPINFO info{};
    EXPECT_EQ(win32::InvokeBoundary(L"Test.Source", &info, c.body), DISP_E_EXCEPTION);
    win32::Bstr description = win32::Bstr::Attach(info.bstrDescription);
    win32::Bstr source = win32::Bstr::Attach(info.bstrSource);
    EXPECT_EQ(info.scode, c.hr);
    EXPECT_STREQ(description.Get(), c.described);
    EXPECT_STREQ(source.Get(), L"Test.Source");
    EXPECT_EQ(win32::InvokeBoundary(L"Test.Source", nullptr, c.body), c.hr);
  }
}

TEST(BoundaryTest, ABodysOwnResultPassesThroughEveryBoundary) {
  const HRESULT results[] = {S_OK, S_FALSE, DISP_E_MEMBERNOTFOUND, E_NOINTERFACE};
  for (HRESULT hr : results) {
    SCOPED_TRACE(hr);
    EXCEPINFO info{};
    EXPECT_EQ(win32::ComBoundary(L"T", IID_IDispatch, [&] { return hr; }), hr);
    EXPECT_EQ(win32::HResultBoundary([&] { return hr; }), hr);
    EXPECT_EQ(win32::InvokeBoundary(L"T", &info, [&] { return hr; }), hr);
    EXPECT_EQ(info.bstrDescription, nullptr) << "no failure, nothing filled";
  }
  EXPECT_EQ(win32::HResultBoundary([] {}), S_OK);
}

TEST(BoundaryTest, AWindowProcedureGetsItsFallback) {
  EXPECT_EQ(win32::ContainOr<LRESULT>(-1, []() -> LRESULT { throw std::bad_alloc(); }), -1);
  EXPECT_EQ(win32::ContainOr<LRESULT>(-1, [] { return LRESULT{5}; }), 5);
}

}  // namespace
}  // namespace vd::testhost
