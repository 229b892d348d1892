#pragma once
// Tells when another program's thread has handled everything posted to it
// before now: a mark posted behind that input is seen once the thread got to
// it. The mark turns over the modified flag of one of the form's edit boxes
// (one the step does not type into), which nothing of the views reads.
#include <windows.h>

namespace vd::win32::robot {

class QueueMarker {
 public:
  // Posts the mark through an edit box of the form other than busy.
  QueueMarker(HWND form, HWND busy);
  // The thread has handled the mark (or the box has gone with its form).
  [[nodiscard]] bool Reached() const;

 private:
  HWND form_;
  HWND edit_ = nullptr;
  LRESULT expected_ = 0;
};

}  // namespace vd::win32::robot
