#include "views/common_controls.h"

#include "views/activation_context.h"

namespace vd::win32::views {
namespace {

// GetProcAddress answers a generic function pointer; void(*)() converts to
// any other function pointer type without a cast-function-type warning.
template <class Function>
void Resolve(HMODULE module, const char* name, Function& target) {
  const auto generic = reinterpret_cast<void (*)()>(GetProcAddress(module, name));
  target = reinterpret_cast<Function>(generic);
}

CommonControls Load() {
  const ScopedActivation activation;
  CommonControls api;
  // Stays loaded for the process's life: the views' windows use its classes.
  const HMODULE module = LoadLibraryW(L"comctl32.dll");
  if (module == nullptr) return api;
  Resolve(module, "InitCommonControlsEx", api.initCommonControlsEx);
  Resolve(module, "ImageList_Create", api.imageListCreate);
  Resolve(module, "ImageList_AddMasked", api.imageListAddMasked);
  Resolve(module, "ImageList_Destroy", api.imageListDestroy);
  Resolve(module, "ImageList_GetImageCount", api.imageListGetImageCount);
  if (api.initCommonControlsEx != nullptr) {
    INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_STANDARD_CLASSES | ICC_TREEVIEW_CLASSES |
                                                                   ICC_BAR_CLASSES | ICC_PROGRESS_CLASS |
                                                                   ICC_TAB_CLASSES | ICC_WIN95_CLASSES};
    api.initCommonControlsEx(&classes);
  }
  return api;
}

}  // namespace

const CommonControls& CommonControls::Get() {
  static const CommonControls api = Load();
  return api;
}

void ImageListTraits::Close(HIMAGELIST list) {
  if (CommonControls::Get().imageListDestroy != nullptr) CommonControls::Get().imageListDestroy(list);
}

}  // namespace vd::win32::views
