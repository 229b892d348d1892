# Files of this folder, relative to it, for the vd_system library.
set(VD_FOLDER_SOURCES
  ds_panel.cpp
  dsv_panel.cpp)
