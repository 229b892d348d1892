#pragma once
// Automation errors at the COM boundary: error numbers <-> HRESULTs, the error
// of a failed IDispatch::Invoke, and the rich error information a failing COM
// method leaves for its caller.
#include <windows.h>

#include <oaidl.h>

#include <cstdint>
#include <type_traits>

#include "com/boundary.h"
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

// What a boundary's body gives: S_OK for a body that returns nothing.
template <class Body>
HRESULT ResultOf(Body& body) {
  if constexpr (std::is_void_v<std::invoke_result_t<Body&>>) {
    body();
    return S_OK;
  } else {
    return body();
  }
}

// The error a COM method reports when something other than an AutomationError
// escapes: out of memory, or an unexpected failure.
automation::AutomationError ErrorFromCurrentException();

// The three boundaries every COM method and exported function goes through.
// Each runs a body that returns nothing (S_OK) or an HRESULT, and lets nothing
// escape.
//
// ComBoundary: a method of an interface that supports rich error information.
// A failure leaves the thread's IErrorInfo (source, iid, description) and
// returns 0x800A0000|number for an Automation error number.
template <class Body>
HRESULT ComBoundary(const wchar_t* source, REFIID iid, Body&& body) noexcept {
  return Contain([&] { return ResultOf(body); },
                 [&]() noexcept {
                   return ContainOr(E_UNEXPECTED,
                                    [&] { return ReportError(ErrorFromCurrentException(), source, iid); });
                 });
}

// HResultBoundary: a method or export without error information; a failure is
// its HRESULT only.
template <class Body>
HRESULT HResultBoundary(Body&& body) noexcept {
  return Contain([&] { return ResultOf(body); },
                 [&]() noexcept {
                   return ContainOr(E_UNEXPECTED,
                                    [&] { return HResultFromNumber(ErrorFromCurrentException().Number()); });
                 });
}

// InvokeBoundary: inside IDispatch::Invoke. A failure fills the caller's
// EXCEPINFO and returns DISP_E_EXCEPTION; without an EXCEPINFO it is the
// HRESULT only.
template <class Body>
HRESULT InvokeBoundary(const wchar_t* source, EXCEPINFO* exception, Body&& body) noexcept {
  return Contain([&] { return ResultOf(body); },
                 [&]() noexcept {
                   return ContainOr(E_UNEXPECTED, [&] {
                     automation::AutomationError error = ErrorFromCurrentException();
                     if (!exception) return HResultFromNumber(error.Number());
                     FillExcepInfo(error, source, *exception);
                     return DISP_E_EXCEPTION;
                   });
                 });
}

}  // namespace vd::win32
