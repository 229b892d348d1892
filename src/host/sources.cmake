# Files of this folder, relative to it, for the vd_system library.
set(VD_FOLDER_SOURCES
  selection_handler.cpp
  var_desk_ui.cpp)
