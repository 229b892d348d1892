#pragma once
// Every control, the form, and the UI services in one include.
//
// A form class declares its controls as members and wires their events to
// handlers that keep the classic names:
//
//   class frmFind : public vd::forms::Form {
//    public:
//     frmFind() : Form(u"frmFindDialog") {
//       cboFindWhat.onChange = [this] { cboFindWhat_Change(); };
//       OKButton.onClick = [this] { CloseFindDialog(false); };
//     }
//     vd::forms::ComboBox cboFindWhat{*this, u"cboFindWhat"};
//     vd::forms::Frame groupDirection{*this, u"groupDirection", u"Direction"};
//     vd::forms::OptionButton optUp{groupDirection, u"optUp", u"&Up"};
//     vd::forms::CommandButton OKButton{*this, u"OKButton", u"Find &Next"};
//     ...
//   };
//
// Views mirror the controls through PropertyObserver and report the user's
// actions through the controls' User* members; headless tests do the same
// with vd::forms::testing::TestDriver and ScriptedUiServices (vd_forms_testing).
#include "vd/forms/check_box.h"
#include "vd/forms/combo_box.h"
#include "vd/forms/command_button.h"
#include "vd/forms/constants.h"
#include "vd/forms/control.h"
#include "vd/forms/form.h"
#include "vd/forms/frame.h"
#include "vd/forms/image_list.h"
#include "vd/forms/label.h"
#include "vd/forms/modal_host.h"
#include "vd/forms/node.h"
#include "vd/forms/nodes.h"
#include "vd/forms/observer.h"
#include "vd/forms/option_button.h"
#include "vd/forms/progress_bar.h"
#include "vd/forms/status_bar.h"
#include "vd/forms/text_box.h"
#include "vd/forms/tree_view.h"
#include "vd/forms/ui_services.h"
