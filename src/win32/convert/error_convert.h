#pragma once
// Automation errors at the COM boundary: error numbers <-> HRESULTs, the error
// of a failed IDispatch::Invoke, and the rich error information a failing COM
// method leaves for its caller.
#include <windows.h>

#include <oaidl.h>

#include <cstdint>

#include "vd/automation/error.h"

namespace vd::win32 {

// Numbers the Automation runtime reports for failures of late-bound calls.
namespace errnum {
inline constexpr int32_t kWrongArgumentCount = 450;
inline constexpr int32_t kAutomationError = 440;
}  // namespace errnum

// An Automation error number 1..65535 travels as 0x800A0000|number (what a
// script shows as Err.Number); any other number is an HRESULT already.
HRESULT HResultFromNumber(int32_t number);
// The reverse: 0x800Axxxx gives xxxx, anything else the HRESULT as a number.
int32_t NumberFromHResult(HRESULT hr);

// The error that a failed Invoke (hr, with the callee's EXCEPINFO) stands for.
// Frees the EXCEPINFO's strings.
automation::AutomationError ErrorFromInvoke(HRESULT hr, EXCEPINFO& info);
// The error of a failed call that is no Invoke: the thread's error info when
// the callee left one, else the HRESULT's own meaning.
automation::AutomationError ErrorFromHResult(HRESULT hr);

// Fills an EXCEPINFO for the error (strings allocated; the caller frees them).
void FillExcepInfo(const automation::AutomationError& error, const wchar_t* source, EXCEPINFO& info);
// Leaves the error as the thread's error info and returns its HRESULT.
HRESULT ReportError(const automation::AutomationError& error, const wchar_t* source, REFIID iid);

// The error a COM method reports when something other than an AutomationError
// escapes: out of memory, or an unexpected failure.
automation::AutomationError ErrorFromCurrentException();

// Runs body inside a COM method: S_OK when it returns, otherwise the failure as
// an HRESULT with rich error info. Nothing escapes.
template <class Body>
HRESULT ComBoundary(const wchar_t* source, REFIID iid, Body&& body) noexcept {
  try {
    body();
    return S_OK;
  } catch (...) {
    try {
      return ReportError(ErrorFromCurrentException(), source, iid);
    } catch (...) {
      return E_UNEXPECTED;
    }
  }
}

}  // namespace vd::win32
