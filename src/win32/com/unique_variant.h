#pragma once
// An owning VARIANT: cleared on destruction and before it is overwritten.
#include <windows.h>

#include <oleauto.h>

namespace vd::win32 {

class UniqueVariant {
 public:
  UniqueVariant() { VariantInit(&v_); }
  UniqueVariant(UniqueVariant&& other) noexcept : v_(other.v_) { VariantInit(&other.v_); }
  UniqueVariant& operator=(UniqueVariant&& other) noexcept {
    if (this != &other) {
      VariantClear(&v_);
      v_ = other.v_;
      VariantInit(&other.v_);
    }
    return *this;
  }
  UniqueVariant(const UniqueVariant&) = delete;
  UniqueVariant& operator=(const UniqueVariant&) = delete;
  ~UniqueVariant() { VariantClear(&v_); }

  // Adopts a VARIANT whose contents the caller owns.
  static UniqueVariant Attach(const VARIANT& v) {
    UniqueVariant result;
    result.v_ = v;
    return result;
  }
  // Gives up ownership of the contents.
  VARIANT Detach() {
    VARIANT v = v_;
    VariantInit(&v_);
    return v;
  }
  // Clears and exposes the VARIANT for an out parameter.
  VARIANT* Put() {
    VariantClear(&v_);
    return &v_;
  }
  void Reset() { VariantClear(&v_); }

  VARIANT* Get() { return &v_; }
  [[nodiscard]] const VARIANT& Ref() const { return v_; }
  [[nodiscard]] VARTYPE Type() const { return v_.vt; }

 private:
  VARIANT v_;
};

}  // namespace vd::win32
