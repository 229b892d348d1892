#pragma once
// What the system asks of the platform it runs on, handed by reference to the
// component's entry and to its dialog. The platform (Windows, or a test) owns
// every service and outlives the objects that use them.
#include "platform/file_service.h"
#include "platform/registry.h"
#include "vd/forms/ui_services.h"

namespace vd::platform {

// An aggregate, built in one go: Services{ui, registry, files}.
struct Services {
  // Message boxes, input box, file dialog, starting programs, window order.
  forms::UiServices& ui;
  // Where the toolkit's home directory is read from (DvReg::GetDvHome).
  Registry& registry;
  // The files the system reads, such as the list of data source kinds.
  FileService& files;
};

}  // namespace vd::platform
