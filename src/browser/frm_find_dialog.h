#pragma once
// The find dialog of the data browser: the text to search for, with the texts
// searched before as its list, and the options of the search. It is created
// on first use and only hidden afterwards, so the text, the history and the
// options stay as the user left them for the next search. The search itself
// runs in the data browser, which reads the options from these controls.
#include <cstdint>

#include "vd/automation/string.h"
#include "vd/forms/forms.h"

namespace vd::browser {

class frmFindDialog : public forms::Form {
 public:
  // The most texts the history keeps; the oldest goes first.
  static constexpr int32_t kHistoryLimit = 100;

  frmFindDialog();

  // True when the dialog was left with Cancel.
  bool Cancelled = false;
  // The last text confirmed with Find Next; empty at first.
  automation::String LastFindText;

  forms::Label Label1{*this, u"Label1", u"N&ame:"};
  forms::ComboBox cboFindWhat{*this, u"cboFindWhat", forms::ComboStyle::kDropdownCombo};
  forms::CheckBox chkMatchCase{*this, u"chkMatchCase", u"Match Ca&se"};
  forms::CheckBox chkFindWholeWord{*this, u"chkFindWholeWord", u"Find Whole Word &Only"};
  forms::Frame groupDirection{*this, u"groupDirection", u"Direction"};
  forms::OptionButton optUp{groupDirection, u"optUp", u"&Up"};
  forms::OptionButton optDown{groupDirection, u"optDown", u"&Down"};
  forms::CommandButton OKButton{*this, u"OKButton", u"Find &Next"};
  forms::CommandButton CancelButton{*this, u"CancelButton", u"Cancel"};

 private:
  void DesignControls();
  void Form_Initialize();
  void Form_Load();
  void cboFindWhat_Change();
  void OKButton_Click();
  void CancelButton_Click();
  void CloseFindDialog(bool cancel);
};

}  // namespace vd::browser
