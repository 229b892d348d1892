#include "event_log_form.h"

namespace vd::forms::test {
namespace {
using vd::automation::ToUtf8;
}

EventLogForm::EventLogForm() : Form(u"frmEvents") {
  for (Control* control : AllControls()) {
    const std::string name = ToUtf8(control->Name());
    control->onClick = [this, name] { log.push_back(name + ".Click"); };
    control->onDblClick = [this, name] { log.push_back(name + ".DblClick"); };
    control->onGotFocus = [this, name] { log.push_back(name + ".GotFocus"); };
    control->onLostFocus = [this, name] { log.push_back(name + ".LostFocus"); };
    control->onKeyDown = [this, name](int16_t& code, int16_t shift) {
      log.push_back(name + ".KeyDown " + std::to_string(code) + "/" + std::to_string(shift));
    };
    control->onKeyPress = [this, name](int16_t& ascii) { log.push_back(name + ".KeyPress " + std::to_string(ascii)); };
    control->onMouseMove = [this, name](int16_t, int16_t, float, float) { log.push_back(name + ".MouseMove"); };
    if (auto* box = dynamic_cast<TextBox*>(control)) box->onChange = [this, name] { log.push_back(name + ".Change"); };
    if (auto* combo = dynamic_cast<ComboBox*>(control)) {
      combo->onChange = [this, name] { log.push_back(name + ".Change"); };
      combo->onDropDown = [this, name] { log.push_back(name + ".DropDown"); };
    }
  }
  auto keyed = [this](const char* event) {
    return [this, event](const NodeRef& node) {
      log.push_back(std::string("treItems.") + event + " " + ToUtf8(node->Key()));
    };
  };
  treItems.onNodeClick = keyed("NodeClick");
  treItems.onCollapse = keyed("Collapse");
  treItems.onExpand = keyed("Expand");
  onKeyDown = [this](int16_t& code, int16_t shift) {
    log.push_back("form.KeyDown " + std::to_string(code) + "/" + std::to_string(shift));
  };
  onKeyPress = [this](int16_t& ascii) { log.push_back("form.KeyPress " + std::to_string(ascii)); };
  for (int i = 0; i < 3; ++i) imgNodes.Add();
  treItems.SetImageList(&imgNodes);
}

}  // namespace vd::forms::test
