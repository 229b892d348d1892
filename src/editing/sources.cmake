# Files of this folder, relative to it, for the vd_system library.
set(VD_FOLDER_SOURCES
  ds_kinds.cpp
  ds_panel.cpp
  ds_panel_events.cpp
  dsv_panel.cpp
  dsv_panel_events.cpp)
