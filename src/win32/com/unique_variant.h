#pragma once
// An owning VARIANT: the one handle owner with VariantClear, cleared on
// destruction and before it is overwritten.
#include "com/unique_handle.h"

namespace vd::win32 {

class UniqueVariant : public UniqueHandle<VARIANT, VariantTraits> {
 public:
  UniqueVariant() = default;

  // Adopts a VARIANT whose contents the caller owns.
  static UniqueVariant Attach(const VARIANT& v) {
    UniqueVariant result;
    result.Reset(v);
    return result;
  }
  // Gives up ownership of the contents.
  VARIANT Detach() { return Release(); }

  VARIANT* Get() { return &Stored(); }
  [[nodiscard]] const VARIANT& Ref() const { return Stored(); }
  [[nodiscard]] VARTYPE Type() const { return Stored().vt; }
};

}  // namespace vd::win32
