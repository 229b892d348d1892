#pragma once
// What the system asks of the platform it runs on, handed by reference to the
// component's entry and to its dialog. The platform (Windows, or a test) owns
// every service and outlives the objects that use them.
#include "platform/file_service.h"
#include "platform/file_system.h"
#include "platform/process_service.h"
#include "platform/registry.h"
#include "vd/forms/ui_services.h"

namespace vd::platform {

// An aggregate, built in one go: Services{ui, registry, files}, with the
// optional services after them.
struct Services {
  // Message boxes, input box, file dialog, starting programs, window order.
  forms::UiServices& ui;
  // Where the toolkit's home directory is read from (DvReg::GetDvHome).
  Registry& registry;
  // The files the system reads, such as the list of data source kinds.
  FileService& files;
  // Folder searches and the files the system writes (the data-change script
  // files); none given: the real file system.
  FileSystem* fileSystem = nullptr;
  // Starting the script editor and waiting for it; none given: no program
  // can be started.
  ProcessService* processes = nullptr;
};

}  // namespace vd::platform
