#pragma once
// The pictures of a forms image list as a Windows image list. The view draws
// its pictures itself: an image whose picture (or key) names "variable",
// "data_source" or "data_source_open" gets that drawing; any other image the
// drawing of its position (1 variable, 2 data source, 3 open data source, then again).
#include "vd/forms/image_list.h"
#include "views/common_controls.h"

namespace vd::win32::views {

inline constexpr int kTreeImageSize = 16;

enum class Picture { kVariable, kDataSource, kDataSourceOpen };

// Which drawing image index (1-based) of the list gets.
Picture PictureOf(const vd::forms::ImageList& images, int32_t index);

// A Windows image list with one drawing per image of the forms image list.
ImageListHandle BuildImageList(const vd::forms::ImageList& images);

}  // namespace vd::win32::views
