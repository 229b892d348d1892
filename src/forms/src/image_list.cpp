#include "vd/forms/image_list.h"

#include "vd/automation/error.h"
#include "vd/automation/text.h"

namespace vd::forms {

ImageList::ImageList(Container& parent, String name) : Control(parent, std::move(name)) {}

int32_t ImageList::Add(String key, String picture) {
  images_.push_back(Image{std::move(key), std::move(picture)});
  Notify(Property::kImageAdded, Count());
  return Count();
}

void ImageList::Clear() {
  if (images_.empty()) return;
  images_.clear();
  Notify(Property::kImagesCleared);
}

const ImageList::Image& ImageList::At(int32_t index) const {
  if (index < 1 || index > Count()) vd::automation::Raise(vd::automation::err::kTreeIndexOutOfBounds);
  return images_[static_cast<size_t>(index - 1)];
}

const String& ImageList::Key(int32_t index) const { return At(index).key; }
const String& ImageList::Picture(int32_t index) const { return At(index).picture; }

int32_t ImageList::IndexOf(StringView key) const {
  for (size_t i = 0; i < images_.size(); ++i)
    if (!images_[i].key.empty() && vd::automation::EqualsIgnoreCase(images_[i].key, key))
      return static_cast<int32_t>(i + 1);
  return 0;
}

}  // namespace vd::forms
