#pragma once
// A form with one or more controls of every kind, each event recorded in a log
// as "control.Event" (tree events name the node's key).
#include <functional>
#include <string>
#include <vector>

#include "vd/automation/error.h"
#include "vd/forms/forms.h"

namespace vd::forms::test {

class EventLogForm : public Form {
 public:
  EventLogForm();

  Frame fraLeft{*this, u"fraLeft"};
  OptionButton optLeft1{fraLeft, u"optLeft1"};
  OptionButton optLeft2{fraLeft, u"optLeft2"};
  OptionButton optLeft3{fraLeft, u"optLeft3"};
  Frame fraRight{*this, u"fraRight"};
  OptionButton optRight1{fraRight, u"optRight1"};
  OptionButton optRight2{fraRight, u"optRight2"};
  TextBox txtInFrame{fraRight, u"txtInFrame"};
  OptionButton optForm1{*this, u"optForm1"};
  OptionButton optForm2{*this, u"optForm2"};
  TextBox txtName{*this, u"txtName"};
  TextBox txtValue{*this, u"txtValue"};
  CheckBox chkAll{*this, u"chkAll"};
  ComboBox cboList{*this, u"cboList", ComboStyle::kDropdownList};
  ComboBox cboEdit{*this, u"cboEdit"};
  CommandButton cmdOK{*this, u"cmdOK"};
  Label lblName{*this, u"lblName"};
  ImageList imgNodes{*this, u"imgNodes"};
  TreeView treItems{*this, u"treItems"};
  StatusBar sbStatus{*this, u"sbStatus"};
  ProgressBar pbProgress{*this, u"pbProgress"};

  std::vector<std::string> log;
};

// The Automation error number the call raised, 0 for none.
inline int32_t ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const vd::automation::AutomationError& e) {
    return e.Number();
  }
  return 0;
}

}  // namespace vd::forms::test
