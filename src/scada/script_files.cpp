// The data-change script file of a generic signal: the combo that lists the
// application's script files, creates a new one from a template and opens
// files in a text editor, waiting for it while the dialog stays painted.
#include <exception>

#include "browser/frm_data_browser.h"
#include "browser/object_access.h"
#include "platform/ansi_text.h"
#include "platform/services.h"
#include "platform/std_file_system.h"
#include "scada/korl_files.h"
#include "vd/automation/error.h"

namespace vd::browser {
namespace {

constexpr int32_t kCreateEntry = 0;
constexpr int32_t kEditEntry = 1;
constexpr uint32_t kEditorPollMilliseconds = 10;

platform::FileSystem& FilesOf(const platform::Services& services) {
  static platform::StdFileSystem realFiles;
  return services.fileSystem != nullptr ? *services.fileSystem : realFiles;
}

void RaiseOnError(int32_t error) {
  if (error != 0) automation::Raise(error);
}

}  // namespace

void frmDataBrowser::FillKorlFileList(const toolkit::DsvRef& dsv, const String& storedFile) {
  cmbKorlFileSelect.Clear();
  cmbKorlFileSelect.AddItem(scada::kCreateKorlFileEntry);
  cmbKorlFileSelect.AddItem(scada::kEditKorlFileEntry);
  const String applicationPath = GetApplicationPath(GetDsApplicationNr(Obj(dsv).GetDsvParent()));
  if (!applicationPath.empty()) {
    for (const String& name : FilesOf(services).Dir(applicationPath + scada::kKorlFilePattern)) {
      if (name == u"." || name == u"..") continue;
      cmbKorlFileSelect.AddItem(name);
      if (name == storedFile) cmbKorlFileSelect.SetListIndex(cmbKorlFileSelect.NewIndex());
    }
  }
  cmbKorlFileSelect.SetText(storedFile);
  KorlFileName = storedFile;
}

void frmDataBrowser::cmbKorlFileSelect_Click() {
  if (PanelFilling) return;
  const int32_t entry = cmbKorlFileSelect.ListIndex();
  if (entry == kCreateEntry || entry == kEditEntry) {
    try {
      if (entry == kCreateEntry) {
        CreateNewKorlFile();
      } else {
        EditSelectedKorlFile();
      }
    } catch (const std::exception&) {
      // A command entry never stays as the combo's text.
      cmbKorlFileSelect.SetText(KorlFileName);
      throw;
    }
    cmbKorlFileSelect.SetText(KorlFileName);
  } else {
    KorlFileName = cmbKorlFileSelect.Text();
  }
  UpdateTelvaneDsvButtons(false);
}

void frmDataBrowser::cmbKorlFileSelect_Change() {
  if (PanelFilling) return;
  KorlFileName = cmbKorlFileSelect.Text();
  UpdateTelvaneDsvButtons(false);
}

void frmDataBrowser::CreateNewKorlFile() {
  const int32_t applicationNr = GetDsApplicationNr(GetCurrentDs());
  if (applicationNr == 0) {
    ShowEntryMessage(u"Application must be defined at data source level before KORL file can be created.");
    return;
  }
  const String name =
      services.ui.InputBox(u"Give file name. File will be located in PICT directory ", u"KORL file", String());
  if (!name.empty() && !scada::IsKorlFileName(name)) {
    ShowEntryMessage(u"File name extension must be .KORL, and it must not contain drive letter or path");
    return;
  }
  if (name.empty()) return;
  const String applicationPath = GetApplicationPath(applicationNr);
  if (applicationPath.empty()) {
    ShowEntryMessage(u"Cannot create KORL file. Check the application definition at data source level.");
    return;
  }
  const String file = applicationPath + scada::kPictFolder + name;
  if (FilesOf(services).FileExists(file)) {
    const int32_t answer =
        services.ui.MsgBox(file + u" already exists." + u"\r\n" + u"Do you want to overwrite it?",
                           forms::vbYesNo + forms::vbExclamation + forms::vbDefaultButton2, Caption());
    if (answer == forms::vbNo) return;
  }
  CreateKorlFile(file, applicationPath);
  EditFileAndWait(scada::kKorlEditor, file);
  KorlFileName = name;
}

void frmDataBrowser::CreateKorlFile(const String& file, const String& applicationPath) {
  platform::FileSystem& files = FilesOf(services);
  const String applicationTemplate = scada::ApplicationTemplatePath(applicationPath);
  if (files.FileExists(applicationTemplate)) {
    RaiseOnError(files.CopyFile(applicationTemplate, file));
    return;
  }
  const String installationTemplate = scada::InstallationTemplatePath(applicationPath);
  if (files.FileExists(installationTemplate)) {
    RaiseOnError(files.CopyFile(installationTemplate, file));
    return;
  }
  RaiseOnError(files.WriteNewFile(file, platform::ToAnsiText(scada::DefaultKorlTemplate())));
}

void frmDataBrowser::EditSelectedKorlFile() {
  if (KorlFileName.empty()) {
    ShowEntryMessage(u"No file selected");
    return;
  }
  const String applicationPath = GetApplicationPath(GetDsApplicationNr(GetCurrentDs()));
  if (applicationPath.empty()) {
    ShowEntryMessage(u"Cannot open KORL file. Check the application definition at data source level.");
    return;
  }
  EditFileAndWait(scada::kKorlEditor, applicationPath + KorlFileName);
}

void frmDataBrowser::EditFileAndWait(const String& program, const String& file) {
  SetEnabled(false);
  try {
    if (services.processes == nullptr) automation::Raise(automation::err::kFileNotFound);
    platform::ProcessService& processes = *services.processes;
    const uint32_t processId = processes.ShellStart(program, file);
    if (processId == 0) automation::Raise(automation::err::kFileNotFound);
    if (const std::unique_ptr<platform::ProcessHandle> process = processes.OpenForWait(processId)) {
      while (process->Wait(kEditorPollMilliseconds) == platform::WaitResult::kTimedOut) processes.DoEvents();
    }  // the handle is closed here
  } catch (const std::exception&) {
    // The dialog comes back also when the editor could not be started.
    SetEnabled(true);
    MakeTopmost();
    throw;
  }
  SetEnabled(true);
  MakeTopmost();
  if (!file.empty() && communication) communication->ScriptFileChanged(file);
}

}  // namespace vd::browser
