#pragma once
// What runs while a form is shown modally: on Windows the dialog's message
// loop, in headless tests the test driver acting as the user. RunModal returns
// once the form is hidden (by its own handlers, or by the host giving up).
namespace vd::forms {

class Form;

class ModalHost {
 public:
  ModalHost() = default;
  ModalHost(const ModalHost&) = delete;
  ModalHost& operator=(const ModalHost&) = delete;
  virtual ~ModalHost() = default;
  virtual void RunModal(Form& form) = 0;
};

}  // namespace vd::forms
