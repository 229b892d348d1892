#include "dispatch/dispatch_caller.h"

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
    : dispatch_(std::move(dispatch)), ids_(MemberIdsFor(dispatch_.Get())) {}

bool DispatchCaller::Has(automation::StringView name) { return ids_->Find(dispatch_.Get(), name).has_value(); }

UniqueVariant DispatchCaller::Call(automation::StringView name, std::span<const CallArg> args) {
  std::optional<DISPID> id = ids_->Find(dispatch_.Get(), name);
  if (!id) automation::Raise(automation::err::kMethodNotSupported);
  // DISPPARAMS lists the arguments last to first; the VARIANTs stay owned by args.
  std::vector<VARIANT> reversed;
  reversed.reserve(args.size());
  for (auto it = args.rbegin(); it != args.rend(); ++it) reversed.push_back(it->Raw());
  DISPPARAMS params{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
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
