#include "vd/forms/testing/scripted_ui_services.h"

#include <gtest/gtest.h>

#include "vd/forms/control.h"
#include "vd/forms/form.h"

namespace vd::forms::testing {
namespace {
using vd::automation::ToUtf8;

const char* KindName(int kind) {
  static const char* const names[] = {"a message box", "an input box", "an open-file dialog", "a program start"};
  return names[kind];
}
}  // namespace

ScriptedUiServices::~ScriptedUiServices() {
  if (!answers_.empty()) {
    ADD_FAILURE() << answers_.size() << " scripted answer(s) never used; the first is for "
                  << KindName(static_cast<int>(answers_.front().kind));
  }
}

ScriptedUiServices& ScriptedUiServices::AnswerMessageBox(int32_t button) {
  answers_.push_back(Answer{Kind::kMessageBox, button, {}, std::nullopt, true, {}});
  return *this;
}

ScriptedUiServices& ScriptedUiServices::ExpectMessageBox(String text, int32_t style, int32_t button) {
  answers_.push_back(
      Answer{Kind::kMessageBox, button, {}, MessageBoxCall{std::move(text), style, std::nullopt}, true, {}});
  return *this;
}

ScriptedUiServices& ScriptedUiServices::AnswerInputBox(String text) {
  answers_.push_back(Answer{Kind::kInputBox, vbOK, std::move(text), std::nullopt, true, {}});
  return *this;
}

ScriptedUiServices& ScriptedUiServices::AnswerOpenFile(String path) {
  answers_.push_back(Answer{Kind::kOpenFile, vbOK, std::move(path), std::nullopt, true, {}});
  return *this;
}

ScriptedUiServices& ScriptedUiServices::AnswerStartProgram(bool started, std::function<void()> whileRunning) {
  answers_.push_back(Answer{Kind::kStartProgram, vbOK, {}, std::nullopt, started, std::move(whileRunning)});
  return *this;
}

std::optional<ScriptedUiServices::Answer> ScriptedUiServices::Take(Kind kind, const std::string& call) {
  if (answers_.empty()) {
    ADD_FAILURE() << "unexpected " << KindName(static_cast<int>(kind)) << ": " << call;
    return std::nullopt;
  }
  if (answers_.front().kind != kind) {
    // The scripted answer is dropped with the failure, so that one wrong call
    // does not set every later answer off by one.
    ADD_FAILURE() << "expected " << KindName(static_cast<int>(answers_.front().kind)) << ", got "
                  << KindName(static_cast<int>(kind)) << ": " << call;
    answers_.pop_front();
    return std::nullopt;
  }
  Answer answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

int32_t ScriptedUiServices::MsgBox(StringView text, int32_t style, const std::optional<String>& title) {
  messageBoxes_.push_back(MessageBoxCall{String(text), style, title});
  const auto answer = Take(Kind::kMessageBox, "\"" + ToUtf8(text) + "\"");
  if (!answer) return vbOK;
  if (answer->expected) {
    EXPECT_EQ(ToUtf8(text), ToUtf8(answer->expected->text)) << "message box text";
    EXPECT_EQ(style, answer->expected->style) << "style of the message box \"" << ToUtf8(text) << "\"";
  }
  return answer->button;
}

String ScriptedUiServices::InputBox(StringView prompt, StringView title, StringView defaultText) {
  inputBoxes_.push_back(InputBoxCall{String(prompt), String(title), String(defaultText)});
  const auto answer = Take(Kind::kInputBox, "\"" + ToUtf8(prompt) + "\"");
  return answer ? answer->text : String();
}

String ScriptedUiServices::OpenFileDialog(const Form* owner, StringView title, StringView filter, StringView defaultExt,
                                          uint32_t flags) {
  openFileCalls_.push_back(OpenFileCall{owner != nullptr ? owner->Name() : String(), String(title), String(filter),
                                        String(defaultExt), flags});
  const auto answer = Take(Kind::kOpenFile, "\"" + ToUtf8(title) + "\"");
  return answer ? answer->text : String();
}

bool ScriptedUiServices::StartProgramAndWait(StringView commandLine) {
  startedPrograms_.emplace_back(commandLine);
  auto answer = Take(Kind::kStartProgram, ToUtf8(commandLine));
  if (!answer) return false;
  if (answer->started && answer->whileRunning) answer->whileRunning();
  return answer->started;
}

void ScriptedUiServices::BringToFront(const Form& form) { broughtToFront_.push_back(form.Name()); }

void ScriptedUiServices::SetScreenMousePointer(int16_t pointer) { screenPointers_.push_back(pointer); }

void ScriptedUiServices::RefreshNow(const Control& control) { repainted_.push_back(control.Name()); }

}  // namespace vd::forms::testing
