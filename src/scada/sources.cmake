# Files of this folder, relative to it, for the vd_system library.
set(VD_FOLDER_SOURCES
  ds_settings.cpp
  ds_settings_events.cpp
  item_id.cpp
  object_mapping.cpp
  object_mapping_events.cpp
  sa_data_sources.cpp
  scada_data_source.cpp)
