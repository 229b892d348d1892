#pragma once
// What a control's mirror (the tree's) asks of the view of its form: to run
// what the user did through the form's entry points, and to change its window
// quietly, so that the change is not taken for the user's.
#include <functional>

namespace vd::win32::views {

class MirrorHost {
 public:
  MirrorHost() = default;
  MirrorHost(const MirrorHost&) = delete;
  MirrorHost& operator=(const MirrorHost&) = delete;

  // Runs an action of the user unless the view is changing its windows itself
  // (an echo); an error the form's handlers raise is shown, not thrown.
  virtual void UserAction(const std::function<void()>& action) = 0;
  // Runs a change of the view's windows that is no input of the user.
  virtual void Quietly(const std::function<void()>& change) = 0;
  // Asks for Flush once the handler running now has returned.
  virtual void RequestFlush() = 0;

 protected:
  ~MirrorHost() = default;
};

}  // namespace vd::win32::views
