# Files of this folder, relative to it, for the vd_system library.
set(VD_FOLDER_SOURCES
  ds_settings.cpp
  ds_settings_events.cpp
  item_id.cpp
  korl_files.cpp
  object_mapping.cpp
  object_mapping_events.cpp
  rescan.cpp
  sa_data_sources.cpp
  sa_offsets.cpp
  scada_data_source.cpp
  script_files.cpp)
