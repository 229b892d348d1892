#pragma once
// The innermost boundary: runs a body and gives its result, or a fallback
// when anything is thrown. Window procedures and other callbacks of the system
// use it directly; the COM boundaries of convert/error_convert.h build on it.
#include <type_traits>
#include <utility>

namespace vd::win32 {

// body() when it returns, else onFailure() (which must not throw either; a
// throw from it ends the process, as noexcept says).
template <class Body, class OnFailure>
auto Contain(Body&& body, OnFailure&& onFailure) noexcept -> std::invoke_result_t<Body> {
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    return std::forward<OnFailure>(onFailure)();
  }
}

// body() when it returns, else fallback: a window procedure's "not handled".
template <class Result, class Body>
Result ContainOr(Result fallback, Body&& body) noexcept {
  return Contain(std::forward<Body>(body), [&]() noexcept { return fallback; });
}

}  // namespace vd::win32
