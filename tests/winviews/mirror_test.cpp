// Changes the form makes while its dialog is shown appear in the windows at
// once, and none of them comes back as the user's.
#include <functional>
#include <string>

#include "dialog_test.h"
#include "views/wide_text.h"

namespace vd::win32::views::testing {
namespace {

struct MirrorCase {
  std::string name;
  std::function<void(SampleForm&)> change;
  // Checks the windows; script gives them by control.
  std::function<void(SampleForm&, const DialogScript&)> check;
};

std::string CaseName(const ::testing::TestParamInfo<MirrorCase>& info) { return info.param.name; }

class MirrorTest : public DialogTest, public ::testing::WithParamInterface<MirrorCase> {};

TEST_P(MirrorTest, ShowsTheChangeAndReportsNothingBack) {
  // The same change on a form without a dialog raises the events the rules
  // give; the dialog's windows must add none (no echo as the user's input).
  SampleForm headless;
  headless.txtName.SetFocus();
  headless.log.clear();
  GetParam().change(headless);

  size_t before = 0;
  script.Then("change", [&] {
    before = form.log.size();
    GetParam().change(form);
  });
  script.Then("check", [&] {
    GetParam().check(form, script);
    const std::vector<std::string> raised(form.log.begin() + static_cast<std::ptrdiff_t>(before), form.log.end());
    EXPECT_EQ(raised, headless.log);
  });
  script.Run();
}

HWND W(const DialogScript& script, const vd::forms::Control& control) { return script.Window(control); }
LRESULT Check(const DialogScript& script, const vd::forms::Control& control) {
  return SendMessageW(W(script, control), BM_GETCHECK, 0, 0);
}

const MirrorCase kCases[] = {
    {"TextBoxText", [](SampleForm& f) { f.txtName.SetText(u"Pump 1"); },
     [](SampleForm& f, const DialogScript& s) { EXPECT_EQ(Narrow(WindowText(W(s, f.txtName))), "Pump 1"); }},
    {"LabelCaption", [](SampleForm& f) { f.lblName.SetCaption(u"&Label:"); },
     [](SampleForm& f, const DialogScript& s) { EXPECT_EQ(Narrow(WindowText(W(s, f.lblName))), "&Label:"); }},
    {"ButtonDisabled", [](SampleForm& f) { f.cmdApply.SetEnabled(false); },
     [](SampleForm& f, const DialogScript& s) { EXPECT_FALSE(IsWindowEnabled(W(s, f.cmdApply))); }},
    {"ControlHidden", [](SampleForm& f) { f.txtName.SetVisible(false); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_FALSE(IsWindowVisible(W(s, f.txtName)));
       EXPECT_TRUE(IsWindowVisible(W(s, f.lblName)));
     }},
    {"FrameDisabledDisablesItsOptions", [](SampleForm& f) { f.fraFormat.SetEnabled(false); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_FALSE(IsWindowEnabled(W(s, f.optASCII)));
       EXPECT_FALSE(IsWindowEnabled(W(s, f.optBinary)));
       EXPECT_TRUE(IsWindowEnabled(W(s, f.cboType)));
     }},
    {"FrameHiddenHidesItsOptions", [](SampleForm& f) { f.fraFormat.SetVisible(false); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_FALSE(IsWindowVisible(W(s, f.fraFormat)));
       EXPECT_FALSE(IsWindowVisible(W(s, f.optBinary)));
     }},
    {"ButtonMoved", [](SampleForm& f) { f.cmdApply.Move(3000, 2250, 1500, 450); },
     [](SampleForm& f, const DialogScript& s) {
       const RECT place = PlaceInParent(W(s, f.cmdApply));
       EXPECT_EQ(place.left, 200);
       EXPECT_EQ(place.top, 150);
       EXPECT_EQ(place.right - place.left, 100);
       EXPECT_EQ(place.bottom - place.top, 30);
     }},
    {"FrameMovedCarriesItsOptions", [](SampleForm& f) { f.fraFormat.SetLeft(1620); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_EQ(PlaceInParent(W(s, f.fraFormat)).left, 108);
       EXPECT_EQ(PlaceInParent(W(s, f.optASCII)).left, 116);  // (1620 + 120) / 15
     }},
    {"CheckBoxGrayed", [](SampleForm& f) { f.chkExpandAll.SetValue(vd::forms::vbGrayed); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_EQ(Check(s, f.chkExpandAll), BST_INDETERMINATE);
       EXPECT_EQ(f.Count("chkExpandAll.Click:2"), 1u);
     }},
    {"CheckBoxChecked", [](SampleForm& f) { f.chkExpandAll.SetValue(vd::forms::vbChecked); },
     [](SampleForm& f, const DialogScript& s) { EXPECT_EQ(Check(s, f.chkExpandAll), BST_CHECKED); }},
    {"OptionSelectedClearsItsGroup", [](SampleForm& f) { f.optBinary.SetValue(true); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_EQ(Check(s, f.optBinary), BST_CHECKED);
       EXPECT_EQ(Check(s, f.optASCII), BST_UNCHECKED);
       EXPECT_EQ(f.Events({"optASCII.Click", "optBinary.Click"}), std::vector<std::string>{"optBinary.Click"});
     }},
    {"ComboListIndex", [](SampleForm& f) { f.cboType.SetListIndex(2); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_EQ(SendMessageW(W(s, f.cboType), CB_GETCURSEL, 0, 0), 2);
       EXPECT_EQ(Narrow(WindowText(W(s, f.cboType))), "Long");
       EXPECT_EQ(f.Events({"cboType.Click"}), std::vector<std::string>{"cboType.Click:Long"});
     }},
    {"ComboEntriesAddedAndRemoved",
     [](SampleForm& f) {
       f.cboType.AddItem(u"Text", 0);
       f.cboType.RemoveItem(3);
       f.cboType.SetList(1, u"Unsigned Byte");
     },
     [](SampleForm& f, const DialogScript& s) {
       const HWND combo = W(s, f.cboType);
       ASSERT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), f.cboType.ListCount());
       for (int i = 0; i < f.cboType.ListCount(); ++i)
         EXPECT_EQ(Narrow(ComboEntry(combo, i)), Narrow(f.cboType.List(i))) << i;
       EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), f.cboType.ListIndex());
     }},
    {"ComboCleared", [](SampleForm& f) { f.cboType.Clear(); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_EQ(SendMessageW(W(s, f.cboType), CB_GETCOUNT, 0, 0), 0);
       EXPECT_EQ(WindowText(W(s, f.cboType)), u"");
     }},
    {"EditableComboText", [](SampleForm& f) { f.cboFind.SetText(u"Temp"); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_EQ(Narrow(WindowText(W(s, f.cboFind))), "Temp");
       EXPECT_EQ(SendMessageW(W(s, f.cboFind), CB_GETCURSEL, 0, 0), CB_ERR);
       EXPECT_EQ(f.Events({"cboFind.Change"}), std::vector<std::string>{"cboFind.Change:Temp"});
     }},
    {"StatusText", [](SampleForm& f) { f.sbStatus.SetSimpleText(u"Select: Numeric, any shape"); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_EQ(Narrow(StatusText(W(s, f.sbStatus))), "Select: Numeric, any shape");
     }},
    {"ProgressValue", [](SampleForm& f) { f.prgLoad.SetValue(75); },
     [](SampleForm& f, const DialogScript& s) { EXPECT_EQ(SendMessageW(W(s, f.prgLoad), PBM_GETPOS, 0, 0), 75); }},
    {"ToolTipText", [](SampleForm& f) { f.cmdApply.SetToolTipText(u"Apply the new name"); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_EQ(Narrow(ToolTipText(s.Dialog(), W(s, f.cmdApply))), "Apply the new name");
     }},
    {"FormCaption", [](SampleForm& f) { f.SetCaption(u"Data Selection for Graphs"); },
     [](SampleForm&, const DialogScript& s) {
       EXPECT_EQ(Narrow(WindowText(s.Dialog())), "Data Selection for Graphs");
     }},
    {"FormWidth", [](SampleForm& f) { f.SetWidth(9000); },
     [](SampleForm&, const DialogScript& s) {
       RECT outer{};
       GetWindowRect(s.Dialog(), &outer);
       EXPECT_EQ(outer.right - outer.left, 600);
     }},
    {"FormDisabled", [](SampleForm& f) { f.SetEnabled(false); },
     [](SampleForm&, const DialogScript& s) { EXPECT_FALSE(IsWindowEnabled(s.Dialog())); }},
    {"FocusFromCode", [](SampleForm& f) { f.cmdClose.SetFocus(); },
     [](SampleForm& f, const DialogScript& s) {
       EXPECT_EQ(GetFocus(), W(s, f.cmdClose));
       EXPECT_EQ(f.Events({"cmdClose.GotFocus"}).size(), 1u);
     }},
};

INSTANTIATE_TEST_SUITE_P(Form, MirrorTest, ::testing::ValuesIn(kCases), CaseName);

}  // namespace
}  // namespace vd::win32::views::testing
