# Files of this folder, relative to it, for the vd_system library.
set(VD_FOLDER_SOURCES)
# Registry, kinds file, file access and the open-file dialog's rules.
list(APPEND VD_FOLDER_SOURCES
  ansi_text.cpp
  common_dialog.cpp
  ds_kinds_file.cpp
  dv_reg.cpp
  native_path.cpp
  std_file_service.cpp
  std_file_system.cpp)
