#include "host/var_desk_ui.h"

#include <exception>

#include "browser/frm_data_browser.h"

namespace vd::host {
namespace {
String& ApplicationHelpFile() {
  static String path;
  return path;
}
}  // namespace

VarDeskUI::VarDeskUI(platform::Services& services) : dataBrowser(std::make_unique<browser::frmDataBrowser>(services)) {
  dataBrowser->EditCustomDs = [this](automation::ObjectRef& obj) { dataBrowser_EditCustomDs(obj); };
  dataBrowser->EditCustomDsv = [this](automation::ObjectRef& obj) { dataBrowser_EditCustomDsv(obj); };
}

VarDeskUI::~VarDeskUI() {
  try {
    dataBrowser->Unload();
  } catch (const std::exception&) {
    // Nothing can be reported from here; the form goes all the same.
  }
  dataBrowser.reset();
}

void VarDeskUI::dataBrowser_EditCustomDs(automation::ObjectRef& obj) {
  if (onEditCustomDs) onEditCustomDs(obj);
}

void VarDeskUI::dataBrowser_EditCustomDsv(automation::ObjectRef& obj) {
  if (onEditCustomDsv) onEditCustomDsv(obj);
}

bool VarDeskUI::IsModified() { return dataBrowser->IsModified(); }

void VarDeskUI::ShowDialogIgnoringErrors() {
  try {
    dataBrowser->Show(true);
  } catch (const std::exception&) {
    // The run is over: the next one must find the form hidden, as always between runs.
    dataBrowser->Hide();
  }
}

void VarDeskUI::EditDataSources(const toolkit::DisplayRef& display) {
  dataBrowser->InitDBForEdit(display);
  ShowDialogIgnoringErrors();
}

toolkit::DsvRef VarDeskUI::SelectDataVar(const toolkit::DisplayRef& display, int32_t context, int32_t dsvType,
                                         int32_t rows, int32_t cols) {
  toolkit::DsvRef result;
  dataBrowser->InitDBForSelect(display, context, dsvType, rows, cols);
  ShowDialogIgnoringErrors();
  try {
    result = dataBrowser->GetSelectedDsv();
  } catch (const std::exception&) {
    // Ignored: the result stays Nothing.
  }
  return result;
}

String VarDeskUI::HelpFile() { return ApplicationHelpFile(); }

void VarDeskUI::SetHelpFile(const String& path) { ApplicationHelpFile() = path; }

void VarDeskUI::SetCommunication(const toolkit::CommunicationRef& comm) {
  if (dataBrowser) dataBrowser->SetCommunication(comm);
}

toolkit::CommunicationRef VarDeskUI::GetCommunication() { return nullptr; }

}  // namespace vd::host
