#include "views/activation_context.h"

#include "views/win_handles.h"

namespace vd::win32::views {
namespace {
// Any function of this module: its address names the module.
void ModuleMarker() {}
}  // namespace

HMODULE ViewsModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&ModuleMarker), &module);
  return module;
}

HANDLE ModuleActivationContext() {
  // Created once; a module without the manifest resource gets none and asks no more.
  static const ActivationContextHandle context = [] {
    ACTCTXW request{};
    request.cbSize = sizeof(request);
    request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    request.hModule = ViewsModule();
    request.lpResourceName = MAKEINTRESOURCEW(2);  // ISOLATIONAWARE_MANIFEST_RESOURCE_ID
    return ActivationContextHandle(CreateActCtxW(&request));
  }();
  return context.Get();
}

ScopedActivation::ScopedActivation() : ScopedActivation(ModuleActivationContext()) {}

ScopedActivation::ScopedActivation(HANDLE context) {
  if (context != INVALID_HANDLE_VALUE) active_ = ActivateActCtx(context, &cookie_) != FALSE;
}

ScopedActivation::~ScopedActivation() {
  if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace vd::win32::views
