#include "queue_marker.h"

#include "window_query.h"

namespace vd::win32::robot {

QueueMarker::QueueMarker(HWND form, HWND busy) : form_(form) {
  edit_ = ChildOfClass(form, L"Edit", busy);
  LRESULT modified = 0;
  if (edit_ == nullptr || !Ask(edit_, EM_GETMODIFY, 0, 0, modified)) {
    edit_ = nullptr;
    return;
  }
  expected_ = modified != 0 ? 0 : 1;
  PostMessageW(edit_, EM_SETMODIFY, static_cast<WPARAM>(expected_), 0);
}

bool QueueMarker::Reached() const {
  // A form without an edit box: its thread answering is all there is to see.
  if (edit_ == nullptr) return !IsWindow(form_) || Answers(form_);
  if (!IsWindow(edit_)) return true;
  LRESULT modified = 0;
  return Ask(edit_, EM_GETMODIFY, 0, 0, modified) && (modified != 0 ? 1 : 0) == expected_;
}

}  // namespace vd::win32::robot
