#pragma once
// UI services for headless tests: every call is recorded, and the calls that
// need an answer (message box, input box, open-file dialog, starting a
// program) take it from a queue that the test fills beforehand, in call order.
// A call whose kind is not at the head of the queue fails the test
// (ADD_FAILURE), drops that answer, and is answered vbOK / "" / false;
// answers left over at the end fail it too.
//
//   ScriptedUiServices ui;
//   ui.ExpectMessageBox(u"The data source \"Plant\" is in use.", vbExclamation);
//   ... run the code ...
//   EXPECT_EQ(ui.MessageBoxes().size(), 1u);
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "vd/forms/ui_services.h"

namespace vd::forms::testing {

class ScriptedUiServices : public UiServices {
 public:
  struct MessageBoxCall {
    String text;
    int32_t style;
    std::optional<String> title;
  };
  struct InputBoxCall {
    String prompt;
    String title;
    String defaultText;
  };
  struct OpenFileCall {
    String owner;  // the owner form's name, "" for none
    String title;
    String filter;
    String defaultExt;
    uint32_t flags;
  };

  ScriptedUiServices() = default;
  ~ScriptedUiServices() override;

  // The next call is a message box, answered with button.
  ScriptedUiServices& AnswerMessageBox(int32_t button = vbOK);
  // As AnswerMessageBox, and the test fails unless the text and style are these.
  ScriptedUiServices& ExpectMessageBox(String text, int32_t style, int32_t button = vbOK);
  ScriptedUiServices& AnswerInputBox(String text);
  ScriptedUiServices& AnswerOpenFile(String path);
  // The program "runs" while whileRunning does (the user's work in it), then ends.
  ScriptedUiServices& AnswerStartProgram(bool started = true, std::function<void()> whileRunning = {});

  [[nodiscard]] const std::vector<MessageBoxCall>& MessageBoxes() const { return messageBoxes_; }
  [[nodiscard]] const std::vector<InputBoxCall>& InputBoxes() const { return inputBoxes_; }
  [[nodiscard]] const std::vector<OpenFileCall>& OpenFileCalls() const { return openFileCalls_; }
  [[nodiscard]] const std::vector<String>& StartedPrograms() const { return startedPrograms_; }
  // Names of the forms brought to the front, of the controls repainted, and
  // the screen pointers set, in order.
  [[nodiscard]] const std::vector<String>& BroughtToFront() const { return broughtToFront_; }
  [[nodiscard]] const std::vector<String>& Repainted() const { return repainted_; }
  [[nodiscard]] const std::vector<int16_t>& ScreenPointers() const { return screenPointers_; }
  [[nodiscard]] size_t PendingAnswers() const { return answers_.size(); }

  int32_t MsgBox(StringView text, int32_t style, const std::optional<String>& title) override;
  String InputBox(StringView prompt, StringView title, StringView defaultText) override;
  String OpenFileDialog(const Form* owner, StringView title, StringView filter, StringView defaultExt,
                        uint32_t flags) override;
  bool StartProgramAndWait(StringView commandLine) override;
  void BringToFront(const Form& form) override;
  void SetScreenMousePointer(int16_t pointer) override;
  void RefreshNow(const Control& control) override;

 private:
  enum class Kind : uint8_t { kMessageBox, kInputBox, kOpenFile, kStartProgram };
  struct Answer {
    Kind kind;
    int32_t button = vbOK;
    String text;  // input box text or chosen path
    std::optional<MessageBoxCall> expected;
    bool started = true;
    std::function<void()> whileRunning;
  };
  // The answer at the head of the queue when it is of this kind; fails the test otherwise.
  std::optional<Answer> Take(Kind kind, const std::string& call);

  std::deque<Answer> answers_;
  std::vector<MessageBoxCall> messageBoxes_;
  std::vector<InputBoxCall> inputBoxes_;
  std::vector<OpenFileCall> openFileCalls_;
  std::vector<String> startedPrograms_;
  std::vector<String> broughtToFront_;
  std::vector<String> repainted_;
  std::vector<int16_t> screenPointers_;
};

}  // namespace vd::forms::testing
