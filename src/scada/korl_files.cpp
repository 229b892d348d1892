#include "scada/korl_files.h"

#include <array>

#include "vd/automation/text.h"

namespace vd::scada {
namespace {

constexpr size_t kMinNameLength = 6;
constexpr size_t kExtensionLength = 5;
constexpr size_t kInstallationRootLength = 6;
constexpr char16_t kExtension[] = u".KORL";

// The angle-bracket words are for the script's author; nothing fills them.
constexpr std::array<const char16_t*, 15> kTemplateLines = {
    u"; Script file template location",
    u"; <drive>:\\kv\\prog\\graphicsEngine\\support\\TEMPLATEforDataChange.korl",
    u"; Template copied to <drive>:\\kv\\apl\\<application>\\PICT will be used",
    u"; instead of the default template.",
    u"",
    u"; This script is executed when value of OPC item changes (DIRECTION==\"READ\")",
    u"; or when data variable value changes (DIRECTION==\"WRITE\")",
    u"; Variable %L_INPUT contains value, name and data type of OPC item, and direction.",
    u"; Format of the variable %L_INPUT is:",
    u"; LIST(ITEM=<Item ID of OPC item>,VALUE=<value of opc item>, -",
    u";     DATA_TYPE=<data type of OPC item>, DIRECTION=<\"READ\"|\"WRITE\">)",
    u"",
    u"; <Add your code here to modify %L_INPUT.VALUE>",
    u"",
    u"#RETURN %L_INPUT.VALUE",
};

}  // namespace

bool IsKorlFileName(StringView name) {
  if (name.size() < kMinNameLength) return false;
  if (automation::UCase(name.substr(name.size() - kExtensionLength)) != kExtension) return false;
  return name.find_first_of(u"\\:") == StringView::npos;
}

String ApplicationTemplatePath(StringView applicationPath) {
  return String(applicationPath) + kPictFolder + kKorlTemplateName;
}

String InstallationTemplatePath(StringView applicationPath) {
  return String(applicationPath.substr(0, kInstallationRootLength)) + u"prog\\graphicsEngine\\support\\" +
         kKorlTemplateName;
}

String DefaultKorlTemplate() {
  String text;
  for (const char16_t* line : kTemplateLines) text += String(line) + u"\r\n";
  return text;
}

}  // namespace vd::scada
