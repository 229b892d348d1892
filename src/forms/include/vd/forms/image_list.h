#pragma once
// The images a tree view draws its nodes with, numbered from 1. Headless, an
// image is only its key and the name of the picture a view loads for it.
#include <cstdint>
#include <vector>

#include "vd/forms/control.h"

namespace vd::forms {

class ImageList : public Control {
 public:
  ImageList(Container& parent, String name);
  [[nodiscard]] ControlKind Kind() const override { return ControlKind::kImageList; }

  // Appends an image; answers its 1-based index.
  int32_t Add(String key = {}, String picture = {});
  void Clear();
  [[nodiscard]] int32_t Count() const { return static_cast<int32_t>(images_.size()); }
  // Error 35600 outside 1..Count.
  [[nodiscard]] const String& Key(int32_t index) const;
  [[nodiscard]] const String& Picture(int32_t index) const;
  // The index of the image with this key (ignoring case), 0 when none.
  [[nodiscard]] int32_t IndexOf(StringView key) const;

 private:
  struct Image {
    String key;
    String picture;
  };
  const Image& At(int32_t index) const;
  std::vector<Image> images_;
};

}  // namespace vd::forms
