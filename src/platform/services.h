#pragma once
// What the system asks of the platform it runs on, handed by reference to the
// component's entry and to its dialog. The platform (Windows, or a test) owns
// every service and outlives the objects that use them.
#include "vd/forms/ui_services.h"

namespace vd::platform {

struct Services {
  // Message boxes, input box, file dialog, starting programs, window order.
  forms::UiServices& ui;
};

}  // namespace vd::platform
