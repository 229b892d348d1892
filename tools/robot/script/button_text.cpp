#include "button_text.h"

namespace vd::robot {

vd::automation::String WithoutAccessKey(vd::automation::StringView text) {
  vd::automation::String plain;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && i + 1 < text.size())
      ++i;  // the marked character (or the second "&") stays
    else if (text[i] == u'&')
      continue;
    plain += text[i];
  }
  return plain;
}

}  // namespace vd::robot
