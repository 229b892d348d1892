#include "platform/common_dialog.h"

#include <algorithm>

namespace vd::platform::modCommonDialog {

uint32_t OpenFileFlags(bool fileMustExist, bool multiSelect) {
  uint32_t flags = kOfnAlways;
  if (fileMustExist) flags |= kOfnFileMustExist;
  if (multiSelect) flags |= kOfnAllowMultiSelect;
  return flags;
}

String FilterWithNuls(StringView filter) {
  String text(filter);
  std::replace(text.begin(), text.end(), u'|', u'\0');
  return text;
}

std::string_view TextBeforeDoubleNul(std::string_view buffer) {
  const size_t pair = buffer.find(std::string_view("\0\0", 2));
  return pair == std::string_view::npos ? buffer : buffer.substr(0, pair);
}

}  // namespace vd::platform::modCommonDialog
