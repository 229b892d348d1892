#include <gtest/gtest.h>

#include "tree_fixture.h"

namespace vd::forms::test {
namespace {

using vd::automation::ToUtf8;

// Records each change as "control.Property[index]" ("form" for the form's own).
class ChangeRecorder : public PropertyObserver {
 public:
  void PropertyChanged(const Change& change) override {
    std::string entry = change.control != nullptr ? ToUtf8(change.control->Name()) : "form";
    entry += "." + std::to_string(static_cast<int>(change.property));
    if (change.index >= 0) entry += "[" + std::to_string(change.index) + "]";
    if (change.node != nullptr) entry += " " + ToUtf8(change.node->Key());
    changes.push_back(entry);
  }
  std::vector<std::string> changes;
};

std::string Entry(const char* control, Property property, int index = -1, const char* key = nullptr) {
  std::string entry = std::string(control) + "." + std::to_string(static_cast<int>(property));
  if (index >= 0) entry += "[" + std::to_string(index) + "]";
  if (key != nullptr) entry += " " + std::string(key);
  return entry;
}

TEST(PropertyObserver, HearsEachChangeOnceAndNothingForTheSameValue) {
  const struct {
    const char* name;
    std::function<void(EventLogForm&)> change;
    std::vector<std::string> changes;
  } cases[] = {
      {"Caption", [](EventLogForm& f) { f.lblName.SetCaption(u"&Name:"); }, {Entry("lblName", Property::kCaption)}},
      {"SameCaption", [](EventLogForm& f) { f.lblName.SetCaption(u""); }, {}},
      {"TextBeforeChange", [](EventLogForm& f) { f.txtName.SetText(u"x"); }, {Entry("txtName", Property::kText)}},
      {"Enabled", [](EventLogForm& f) { f.cmdOK.SetEnabled(false); }, {Entry("cmdOK", Property::kEnabled)}},
      {"SameEnabled", [](EventLogForm& f) { f.cmdOK.SetEnabled(true); }, {}},
      {"Move",
       [](EventLogForm& f) { f.cmdOK.Move(10, 0, 30, 0); },
       {Entry("cmdOK", Property::kLeft), Entry("cmdOK", Property::kWidth)}},
      {"AddItem", [](EventLogForm& f) { f.cboEdit.AddItem(u"x"); }, {Entry("cboEdit", Property::kListItemAdded, 0)}},
      {"OptionGroup",
       [](EventLogForm& f) {
         f.optForm1.SetValue(true);
         f.optForm2.SetValue(true);
       },
       {Entry("optForm1", Property::kValue), Entry("optForm1", Property::kValue), Entry("optForm2", Property::kValue)}},
      {"FormCaption", [](EventLogForm& f) { f.SetCaption(u"Data Selection"); }, {Entry("form", Property::kCaption)}},
      {"NodeAddedAndRenamed",
       [](EventLogForm& f) { f.treItems.Nodes().Add(Variant(), tvwLast, u"k", u"t")->SetText(u"u"); },
       {Entry("treItems", Property::kNodeAdded, -1, "k"), Entry("treItems", Property::kNodeText, -1, "k")}},
      {"Focus", [](EventLogForm& f) { f.txtName.SetFocus(); }, {Entry("form", Property::kActiveControl)}},
  };
  for (const auto& c : cases) {
    EventLogForm form;
    ChangeRecorder recorder;
    form.AddObserver(recorder);
    c.change(form);
    EXPECT_EQ(recorder.changes, c.changes) << c.name;
    form.RemoveObserver(recorder);
  }
}

TEST(PropertyObserver, ARemovedSubtreeIsReportedBeforeItGoesWithTheSelectionAfter) {
  EventLogForm form;
  BuildTree(form.treItems, 2, 1);
  form.treItems.Nodes().Item(u"1:1")->SetSelected(true);
  ChangeRecorder recorder;
  form.treItems.SetObserver(&recorder);
  bool attachedWhenReported = false;
  struct Probe : PropertyObserver {
    bool* attached;
    explicit Probe(bool* a) : attached(a) {}
    void PropertyChanged(const Change& change) override {
      if (change.property == Property::kNodeRemoving)
        *attached = !change.node->Removed() && change.node->Children() == 1;
    }
  } probe(&attachedWhenReported);
  form.AddObserver(probe);
  form.treItems.Nodes().Remove(DsKey(1));
  EXPECT_TRUE(attachedWhenReported);
  EXPECT_EQ(recorder.changes, (std::vector<std::string>{Entry("treItems", Property::kNodeRemoving, -1, "_Ds1"),
                                                        Entry("treItems", Property::kSelectedItem, -1, "_Ds2")}));
}

}  // namespace
}  // namespace vd::forms::test
