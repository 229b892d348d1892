# Files of this folder, relative to it, for the vd_system library.
set(VD_FOLDER_SOURCES
  dialog_modes.cpp
  find.cpp
  frm_find_dialog.cpp
  frm_data_browser.cpp
  frm_data_browser_design.cpp
  lifecycle.cpp
  selection_filter.cpp
  tree_build.cpp
  tree_commands.cpp
  tree_events.cpp)
