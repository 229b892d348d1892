// The kinds of data source the user may add: read from the kinds file below
// the toolkit home, or the three built-in kinds when the file offers none.
#include <exception>

#include "browser/frm_data_browser.h"
#include "platform/ds_kinds_file.h"
#include "platform/dv_reg.h"
#include "platform/services.h"

namespace vd::browser {

void frmDataBrowser::LoadDsKinds() {
  // Through this dialog's own platform, whichever dialog installed its registry last.
  platform::DvReg::UseRegistry(&services.registry);
  const String path = platform::DsKindsFilePath(platform::DvReg::GetDvHome());
  cboDsAdd.Clear();
  if (!CustomDsClasses) CustomDsClasses.emplace();
  CustomDsClasses->Clear();
  // A file that cannot be read, or an entry that cannot be added (a custom
  // name given twice), ends the reading quietly; the entries added so far stay.
  try {
    const platform::DsKindsFile file = platform::LoadDsKindsFile(services.files, path);
    if (file.error != 0) automation::Raise(file.error);
    for (const platform::DsKindEntry& entry : file.entries) AddDsKind(entry.name, entry.className);
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
  }
  if (cboDsAdd.ListCount() == 0) AddDefaultDsKinds();
  cboDsAdd.SetListIndex(0);
}

void frmDataBrowser::AddDsKind(const String& name, const String& className) {
  const std::optional<int32_t> kind = platform::ClassifyDsKind(className);
  if (!kind) return;  // function data sources are not added from this dialog
  switch (*kind) {
    case toolkit::kind::kFile:
      FileDsTypeName = name;
      break;
    case toolkit::kind::kMemory:
      MemoryDsTypeName = name;
      break;
    case toolkit::kind::kConstant:
      ConstantDsTypeName = name;
      break;
    default:
      if (!CustomDsClasses) CustomDsClasses.emplace();
      CustomDsClasses->Add(className, name);  // a name given before raises 457
      break;
  }
  cboDsAdd.AddItem(name);
  cboDsAdd.SetItemData(cboDsAdd.NewIndex(), *kind);
}

void frmDataBrowser::AddDefaultDsKinds() {
  // The built-in names leave FileDsTypeName and its kin empty.
  struct Kind {
    const char16_t* name;
    int32_t code;
  };
  static constexpr Kind kBuiltIn[] = {
      {u"File", toolkit::kind::kFile}, {u"Memory", toolkit::kind::kMemory}, {u"Constant", toolkit::kind::kConstant}};
  for (const Kind& kind : kBuiltIn) {
    cboDsAdd.AddItem(kind.name);
    cboDsAdd.SetItemData(cboDsAdd.NewIndex(), kind.code);
  }
}

}  // namespace vd::browser
