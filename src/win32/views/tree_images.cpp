#include "views/tree_images.h"

#include <array>

#include "vd/automation/text.h"
#include "views/win_handles.h"

namespace vd::win32::views {

using vd::automation::String;
using vd::automation::StringView;

namespace {

constexpr COLORREF kTransparent = RGB(255, 0, 255);
constexpr COLORREF kOutline = RGB(96, 72, 16);
constexpr COLORREF kFolderBack = RGB(222, 178, 58);
constexpr COLORREF kFolderFront = RGB(250, 214, 100);

String Simplified(StringView name) {
  String out;
  for (const char16_t c : vd::automation::LCase(name))
    if (c != u'_' && c != u'-' && c != u' ') out.push_back(c);
  return out;
}

bool Named(const vd::forms::ImageList& images, int32_t index, StringView simpleName) {
  return Simplified(images.Picture(index)) == simpleName || Simplified(images.Key(index)) == simpleName;
}

void FillPolygon(HDC dc, const POINT* points, int count, COLORREF fill, COLORREF outline) {
  const GdiObject brush(CreateSolidBrush(fill));
  const GdiObject pen(CreatePen(PS_SOLID, 1, outline));
  const SelectedObject useBrush(dc, brush.Get());
  const SelectedObject usePen(dc, pen.Get());
  Polygon(dc, points, count);
}

// A blue value marker: a diamond with a light face.
void DrawVariable(HDC dc) {
  const std::array<POINT, 4> outer{{{8, 2}, {14, 8}, {8, 14}, {2, 8}}};
  FillPolygon(dc, outer.data(), 4, RGB(64, 128, 208), RGB(24, 56, 120));
  const std::array<POINT, 4> face{{{8, 5}, {11, 8}, {8, 11}, {5, 8}}};
  FillPolygon(dc, face.data(), 4, RGB(190, 220, 250), RGB(190, 220, 250));
}

// A closed folder: tab and body.
void DrawDataSource(HDC dc) {
  const std::array<POINT, 6> body{{{1, 4}, {6, 4}, {7, 5}, {14, 5}, {14, 13}, {1, 13}}};
  FillPolygon(dc, body.data(), 6, kFolderBack, kOutline);
  const std::array<POINT, 4> front{{{1, 7}, {14, 7}, {14, 13}, {1, 13}}};
  FillPolygon(dc, front.data(), 4, kFolderFront, kOutline);
}

// An open folder: the back with its tab and the front tilted open.
void DrawDataSourceOpen(HDC dc) {
  const std::array<POINT, 6> back{{{1, 3}, {6, 3}, {7, 4}, {13, 4}, {13, 13}, {1, 13}}};
  FillPolygon(dc, back.data(), 6, kFolderBack, kOutline);
  const std::array<POINT, 4> front{{{4, 7}, {15, 7}, {12, 13}, {1, 13}}};
  FillPolygon(dc, front.data(), 4, kFolderFront, kOutline);
}

GdiObject DrawPicture(Picture picture) {
  const ScreenDc screen;
  GdiObject bitmap(CreateCompatibleBitmap(screen.Get(), kTreeImageSize, kTreeImageSize));
  const HDC dc = CreateCompatibleDC(screen.Get());
  {
    const SelectedObject use(dc, bitmap.Get());
    const RECT all{0, 0, kTreeImageSize, kTreeImageSize};
    const GdiObject background(CreateSolidBrush(kTransparent));
    FillRect(dc, &all, static_cast<HBRUSH>(background.Get()));
    switch (picture) {
      case Picture::kVariable:
        DrawVariable(dc);
        break;
      case Picture::kDataSource:
        DrawDataSource(dc);
        break;
      case Picture::kDataSourceOpen:
        DrawDataSourceOpen(dc);
        break;
    }
  }
  DeleteDC(dc);
  return bitmap;
}

}  // namespace

Picture PictureOf(const vd::forms::ImageList& images, int32_t index) {
  if (Named(images, index, u"variable")) return Picture::kVariable;
  if (Named(images, index, u"datasourceopen")) return Picture::kDataSourceOpen;
  if (Named(images, index, u"datasource")) return Picture::kDataSource;
  static constexpr std::array<Picture, 3> kByPosition{Picture::kVariable, Picture::kDataSource,
                                                      Picture::kDataSourceOpen};
  return kByPosition[static_cast<size_t>(index - 1) % kByPosition.size()];
}

ImageListHandle BuildImageList(const vd::forms::ImageList& images) {
  const CommonControls& api = CommonControls::Get();
  if (api.imageListCreate == nullptr || api.imageListAddMasked == nullptr) return {};
  ImageListHandle list(api.imageListCreate(kTreeImageSize, kTreeImageSize, ILC_COLOR24 | ILC_MASK, images.Count(), 4));
  for (int32_t i = 1; i <= images.Count(); ++i) {
    const GdiObject bitmap = DrawPicture(PictureOf(images, i));
    api.imageListAddMasked(list.Get(), static_cast<HBITMAP>(bitmap.Get()), kTransparent);
  }
  return list;
}

}  // namespace vd::win32::views
