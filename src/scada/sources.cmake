# Files of this folder, relative to it, for the vd_system library.
set(VD_FOLDER_SOURCES
  ds_settings.cpp
  object_mapping.cpp
  scada_data_source.cpp)
