#include "views/error_report.h"

#include <exception>
#include <new>

#include "vd/automation/error.h"
#include "views/wide_text.h"

namespace vd::win32::views {
namespace {
constexpr int32_t kOutOfMemory = 7;
constexpr int32_t kAutomationError = 440;
}  // namespace

ReportedError CurrentError() {
  try {
    throw;
  } catch (const vd::automation::AutomationError& error) {
    return {error.Number(), error.Description()};
  } catch (const std::bad_alloc&) {
    return {kOutOfMemory, u"Out of memory"};
  } catch (const std::exception& error) {
    String text = vd::automation::FromUtf8(error.what());
    return {kAutomationError, text.empty() ? String(u"Automation error") : std::move(text)};
  } catch (...) {
    return {kAutomationError, u"Automation error"};
  }
}

String ErrorMessageText(const ReportedError& error) {
  return u"Run-time error '" + vd::automation::ToDecimal(error.number) + u"':\r\n\r\n" + error.description;
}

void ShowErrorMessageBox(HWND owner, StringView title, const ReportedError& error) {
  const String text = ErrorMessageText(error);
  const String caption(title);
  MessageBoxW(owner, Wide(text), Wide(caption), MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace vd::win32::views
