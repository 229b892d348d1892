#pragma once
// The component's entry: the host creates one VarDeskUI, hands it a display
// and opens the data browser for an editing run (EditDataSources, then
// IsModified) or a selection run (SelectDataVar). The object owns the one
// dialog form for its whole life; between runs the form is hidden.
#include <cstdint>
#include <memory>

#include "host/ui_core.h"
#include "vd/automation/object.h"
#include "vd/automation/string.h"
#include "vd/toolkit/communication.h"
#include "vd/toolkit/toolkit.h"

namespace vd::platform {
struct Services;
}
namespace vd::browser {
class frmDataBrowser;
}

namespace vd::host {

using automation::String;

class VarDeskUI final : public UiCore {
 public:
  // Creates the dialog form at once.
  explicit VarDeskUI(platform::Services& services);
  // Unloads the form, then releases it.
  ~VarDeskUI() override;
  VarDeskUI(const VarDeskUI&) = delete;
  VarDeskUI& operator=(const VarDeskUI&) = delete;

  // True when the last run changed the display's data.
  bool IsModified() override;
  // An editing run over every data source of the display. Errors while the
  // dialog is prepared propagate; errors while it is shown are ignored.
  void EditDataSources(const toolkit::DisplayRef& display) override;
  // A selection run: the variable chosen with OK, nullptr when the user closed
  // the dialog. context picks the caption (5: writable variables only);
  // dsvType, rows and cols are the filter. Errors while the dialog is prepared
  // propagate; errors while it is shown or the result is fetched are ignored.
  toolkit::DsvRef SelectDataVar(const toolkit::DisplayRef& display, int32_t context, int32_t dsvType, int32_t rows,
                                int32_t cols) override;
  // The help-file path, one for the whole application.
  String HelpFile() override;
  void SetHelpFile(const String& path) override;
  // Handed to the dialog, which keeps it for the SCADA settings.
  void SetCommunication(const toolkit::CommunicationRef& comm) override;
  // Always nullptr: the object handed in is never given back.
  toolkit::CommunicationRef GetCommunication();

  // onEditCustomDs / onEditCustomDsv (UiCore) are raised synchronously while
  // the dialog is shown, when the user asks the host to edit a custom data
  // source or variable itself; the sink may replace the object.

  // The dialog form, for the views that show it; nullptr after destruction began.
  [[nodiscard]] browser::frmDataBrowser* DataBrowser() const { return dataBrowser.get(); }

 private:
  void dataBrowser_EditCustomDs(automation::ObjectRef& obj);
  void dataBrowser_EditCustomDsv(automation::ObjectRef& obj);
  // Runs the modal show; an error ends it and leaves the form hidden.
  void ShowDialogIgnoringErrors();

  std::unique_ptr<browser::frmDataBrowser> dataBrowser;
};

}  // namespace vd::host
