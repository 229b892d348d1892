#pragma once
// The data-change script files of a SCADA application: the command entries of
// the script file combo, the file name rule, the templates and the default
// text of a new file. Pure functions, so that tests reach them without a form.
#include "vd/automation/string.h"

namespace vd::scada {

using automation::String;
using automation::StringView;

// The combo's command entries, list indexes 0 and 1.
inline constexpr char16_t kCreateKorlFileEntry[] = u"Create and edit new file...";
inline constexpr char16_t kEditKorlFileEntry[] = u"Edit selected file...";
// The editor the files are opened in.
inline constexpr char16_t kKorlEditor[] = u"Notepad";
// The script files of an application, under its directory.
inline constexpr char16_t kKorlFilePattern[] = u"PICT\\*.KORL";
inline constexpr char16_t kPictFolder[] = u"PICT\\";
inline constexpr char16_t kKorlTemplateName[] = u"TEMPLATEforDataChange.korl";

// At least six characters, ending in ".KORL" (any case), with no "\" and no ":".
bool IsKorlFileName(StringView name);
// The application's own template: the application path + "PICT\" + the template's name.
String ApplicationTemplatePath(StringView applicationPath);
// The installation's template: the first six characters of the application
// path (the drive and the installation's root folder) + the support folder.
String InstallationTemplatePath(StringView applicationPath);
// The text of a new file when neither template exists: fifteen lines, each
// ending in CR LF.
String DefaultKorlTemplate();

}  // namespace vd::scada
