#pragma once
// A form with one control of each kind and a tree of data sources and
// variables, every event of which goes to a log as "control.Event[:detail]".
#include <functional>
#include <string>
#include <vector>

#include "vd/forms/forms.h"

namespace vd::win32::views::testing {

using vd::forms::String;

class SampleForm : public vd::forms::Form {
 public:
  static constexpr int kDataSources = 10;
  static constexpr int kVariablesEach = 30;

  SampleForm();

  // The events so far, in order; the ones whose name (before any ':') is in names.
  std::vector<std::string> log;
  [[nodiscard]] std::vector<std::string> Events(const std::vector<std::string>& names) const;
  [[nodiscard]] size_t Count(const std::string& entry) const;

  // Key of data source i (1-based) and of its variable j.
  static String DsKey(int i);
  static String VarKey(int i, int j);
  // Builds the tree anew: kDataSources data sources, kVariablesEach variables each.
  void BuildTree(int dataSources = kDataSources, int variablesEach = kVariablesEach);

  // What cmdApply does besides logging (a test may make it fail).
  std::function<void()> applyAction;
  std::function<void()> nodeClickAction;
  std::function<void()> keyDownAction;
  // Set by the Unload handler to cancel.
  bool cancelUnload = false;

  vd::forms::Label lblName{*this, u"lblName", u"&Name:"};
  vd::forms::TextBox txtName{*this, u"txtName"};
  vd::forms::CommandButton cmdApply{*this, u"cmdApply", u"&Apply"};
  vd::forms::CheckBox chkExpandAll{*this, u"chkExpandAll", u"E&xpand all"};
  vd::forms::Frame fraFormat{*this, u"fraFormat", u"Format"};
  vd::forms::OptionButton optASCII{fraFormat, u"optASCII", u"A&SCII"};
  vd::forms::OptionButton optBinary{fraFormat, u"optBinary", u"&Binary"};
  vd::forms::ComboBox cboType{*this, u"cboType", vd::forms::ComboStyle::kDropdownList};
  vd::forms::ComboBox cboFind{*this, u"cboFind", vd::forms::ComboStyle::kDropdownCombo};
  vd::forms::ImageList imgList{*this, u"imgList"};
  vd::forms::TreeView treItems{*this, u"treItems"};
  vd::forms::ProgressBar prgLoad{*this, u"prgLoad"};
  vd::forms::CommandButton cmdClose{*this, u"cmdClose", u"&Close"};
  vd::forms::StatusBar sbStatus{*this, u"sbStatus", vd::forms::sbrSimple};

 private:
  void Design();
  void Handle();
  void Log(std::string entry) { log.push_back(std::move(entry)); }
};

// A second, small form to show from a handler of the first.
class SmallForm : public vd::forms::Form {
 public:
  SmallForm();
  vd::forms::TextBox txtValue{*this, u"txtValue"};
  vd::forms::CommandButton cmdOK{*this, u"cmdOK", u"OK"};
};

}  // namespace vd::win32::views::testing
