#pragma once
// The input box: a small modal dialog built in memory with the prompt, a
// text box, OK and Cancel.
#include <windows.h>

#include <optional>

#include "vd/automation/string.h"

namespace vd::win32::views {

// The text entered, nothing when cancelled.
std::optional<vd::automation::String> ShowInputBox(HWND owner, vd::automation::StringView prompt,
                                                   vd::automation::StringView title,
                                                   vd::automation::StringView defaultText);

// The name it is published by (its controls: lblPrompt, txtInput, OKButton,
// CancelButton), and the ids of its controls, for robots.
inline constexpr char16_t kInputBoxFormName[] = u"InputBox";
inline constexpr int kInputBoxPromptId = 100;
inline constexpr int kInputBoxTextId = 101;

}  // namespace vd::win32::views
