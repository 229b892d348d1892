#include "artifact_path.h"

namespace vd::robot {

vd::automation::String PathUnder(const vd::automation::String& folder, const vd::automation::String& path) {
  const bool absolute =
      (path.size() >= 2 && path[1] == u':') || (!path.empty() && (path[0] == u'\\' || path[0] == u'/'));
  if (absolute || folder.empty()) return path;
  const bool separated = folder.back() == u'\\' || folder.back() == u'/';
  return folder + (separated ? u"" : u"\\") + path;
}

}  // namespace vd::robot
