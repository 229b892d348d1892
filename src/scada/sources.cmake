# Files of this folder, relative to it, for the vd_system library.
set(VD_FOLDER_SOURCES
  scada_data_source.cpp)
