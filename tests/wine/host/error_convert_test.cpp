// Errors across the COM boundary keep their number and description.
#include <gtest/gtest.h>

#include "convert/error_convert.h"

namespace vd::testhost {
namespace {

using automation::AutomationError;
using win32::HResultFromNumber;
using win32::NumberFromHResult;

struct NumberCase {
  int32_t number;
  HRESULT hr;
};

TEST(ErrorConvertTest, AutomationNumbersTravelInTheControlFacility) {
  const NumberCase cases[] = {
      {5, static_cast<HRESULT>(0x800A0005)},     {13, static_cast<HRESULT>(0x800A000D)},
      {1234, static_cast<HRESULT>(0x800A04D2)},  {35602, static_cast<HRESULT>(0x800A8B12)},
      {65535, static_cast<HRESULT>(0x800AFFFF)}, {static_cast<int32_t>(E_NOTIMPL), E_NOTIMPL},
      {static_cast<int32_t>(E_FAIL), E_FAIL},
  };
  for (const NumberCase& c : cases) {
    SCOPED_TRACE(c.number);
    EXPECT_EQ(HResultFromNumber(c.number), c.hr);
    EXPECT_EQ(NumberFromHResult(c.hr), c.number);
  }
  EXPECT_EQ(HResultFromNumber(0), E_FAIL) << "0 is no error number";
}

struct DispatchFailure {
  HRESULT hr;
  int32_t number;
};

TEST(ErrorConvertTest, DispatchFailuresBecomeTheRuntimeErrorNumbers) {
  const DispatchFailure cases[] = {
      {DISP_E_MEMBERNOTFOUND, 438},   {DISP_E_UNKNOWNNAME, 438},
      {DISP_E_TYPEMISMATCH, 13},      {DISP_E_BADPARAMCOUNT, 450},
      {DISP_E_PARAMNOTOPTIONAL, 450}, {DISP_E_OVERFLOW, 6},
      {DISP_E_BADINDEX, 9},           {static_cast<HRESULT>(0x800A0009), 9},
  };
  for (const DispatchFailure& c : cases) {
    SCOPED_TRACE(c.number);
    SetErrorInfo(0, nullptr);
    EXCEPINFO info{};
    AutomationError error = win32::ErrorFromInvoke(c.hr, info);
    EXPECT_EQ(error.Number(), c.number);
    EXPECT_EQ(error.Description(), automation::StandardDescription(c.number));
  }
}

TEST(ErrorConvertTest, AnExceptionKeepsTheCalleesNumberAndDescription) {
  EXCEPINFO info{};
  info.scode = static_cast<SCODE>(0x800A04D2);
  info.bstrDescription = SysAllocString(L"The data source cannot be read");
  info.bstrSource = SysAllocString(L"Host");
  AutomationError error = win32::ErrorFromInvoke(DISP_E_EXCEPTION, info);
  EXPECT_EQ(error.Number(), 1234);
  EXPECT_EQ(error.Description(), u"The data source cannot be read");
  EXPECT_EQ(info.bstrDescription, nullptr) << "the strings are freed";
}

TEST(ErrorConvertTest, AnExceptionWithOnlyACodeUsesIt) {
  EXCEPINFO info{};
  info.wCode = 1001;
  AutomationError error = win32::ErrorFromInvoke(DISP_E_EXCEPTION, info);
  EXPECT_EQ(error.Number(), 1001);
  EXPECT_FALSE(error.Description().empty());
}

HRESULT STDAPICALLTYPE FillLater(EXCEPINFO* info) {
  info->scode = static_cast<SCODE>(0x800A005B);
  info->bstrDescription = SysAllocString(L"filled later");
  return S_OK;
}

TEST(ErrorConvertTest, ADeferredExceptionIsFilledInFirst) {
  EXCEPINFO info{};
  info.pfnDeferredFillIn = &FillLater;
  AutomationError error = win32::ErrorFromInvoke(DISP_E_EXCEPTION, info);
  EXPECT_EQ(error.Number(), 91);
  EXPECT_EQ(error.Description(), u"filled later");
}

}  // namespace
}  // namespace vd::testhost
