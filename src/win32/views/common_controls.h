#pragma once
// The common-controls functions the views call, taken from the comctl32 that
// the module's activation context selects (version 6 where the manifest is
// present) rather than bound at load time to whichever the process loaded
// first: an image list must come from the same comctl32 as the tree that draws it.
#include <windows.h>
// after windows.h
#include <commctrl.h>

#include "com/unique_handle.h"

namespace vd::win32::views {

struct CommonControls {
  BOOL(WINAPI* initCommonControlsEx)(const INITCOMMONCONTROLSEX*) = nullptr;
  HIMAGELIST(WINAPI* imageListCreate)(int, int, UINT, int, int) = nullptr;
  int(WINAPI* imageListAddMasked)(HIMAGELIST, HBITMAP, COLORREF) = nullptr;
  BOOL(WINAPI* imageListDestroy)(HIMAGELIST) = nullptr;
  int(WINAPI* imageListGetImageCount)(HIMAGELIST) = nullptr;

  // Loaded once under the module's activation context; classes registered.
  static const CommonControls& Get();
};

// An image list of that comctl32, destroyed by the same.
struct ImageListTraits {
  static HIMAGELIST Invalid() { return nullptr; }
  static void Close(HIMAGELIST list);
};
using ImageListHandle = UniqueHandle<HIMAGELIST, ImageListTraits>;

}  // namespace vd::win32::views
