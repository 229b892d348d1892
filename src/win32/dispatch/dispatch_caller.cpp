#include "dispatch/dispatch_caller.h"

#include <array>
#include <vector>

#include "convert/error_convert.h"
#include "convert/variant_convert.h"

namespace vd::win32 {

CallArg::CallArg(const automation::Variant& value) : value_(ToVariant(value)) {}

CallArg CallArg::ByRef(UniqueVariant& slot) {
  CallArg arg;
  arg.byRef_ = true;
  arg.byRefView_.vt = VT_BYREF | VT_VARIANT;
  arg.byRefView_.pvarVal = slot.Get();
  return arg;
}

DispatchCaller::DispatchCaller(ComPtr<IDispatch> dispatch)
    : dispatch_(std::move(dispatch)), shared_(SharedMemberIdsFor(dispatch_.Get())) {}

bool DispatchCaller::Has(automation::StringView name) { return Ids().Find(dispatch_.Get(), name).has_value(); }

UniqueVariant DispatchCaller::Call(automation::StringView name, std::span<const CallArg> args) {
  std::optional<DISPID> id = Ids().Find(dispatch_.Get(), name);
  if (!id) automation::Raise(automation::err::kMethodNotSupported);
  // DISPPARAMS lists the arguments last to first; the VARIANTs stay owned by
  // args. Calls of the toolkit take few arguments: those need no allocation.
  constexpr size_t kInline = 4;
  std::array<VARIANT, kInline> inlineArgs{};
  std::vector<VARIANT> manyArgs;
  VARIANT* reversed = inlineArgs.data();
  if (args.size() > kInline) {
    manyArgs.resize(args.size());
    reversed = manyArgs.data();
  }
  for (size_t i = 0; i < args.size(); ++i) reversed[i] = args[args.size() - 1 - i].Raw();
  DISPPARAMS params{args.empty() ? nullptr : reversed, nullptr, static_cast<UINT>(args.size()), 0};
  UniqueVariant result;
  EXCEPINFO info{};
  SetErrorInfo(0, nullptr);  // so that a failure's error info is the callee's, not an older one
  UINT argError = 0;
  HRESULT hr = dispatch_->Invoke(*id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &params,
                                 result.Put(), &info, &argError);
  if (FAILED(hr)) throw ErrorFromInvoke(hr, info);
  return result;
}

}  // namespace vd::win32
