#include "convert/error_convert.h"

#include <new>
#include <string>

#include "com/bstr.h"
#include "com/com_ptr.h"

namespace vd::win32 {
namespace {

constexpr uint32_t kAutomationFacilityBits = 0x800A0000u;

bool IsAutomationHResult(HRESULT hr) { return (static_cast<uint32_t>(hr) & 0xFFFF0000u) == kAutomationFacilityBits; }

// The system's text for an HRESULT, without the trailing line break.
automation::String SystemMessage(HRESULT hr) {
  wchar_t* buffer = nullptr;
  DWORD length =
      FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                     nullptr, static_cast<DWORD>(hr), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
  automation::String text;
  if (length > 0 && buffer) {
    text = FromWide(buffer);
    while (!text.empty() && (text.back() == u'\n' || text.back() == u'\r' || text.back() == u' ')) text.pop_back();
  }
  if (buffer) LocalFree(buffer);
  return text.empty() ? automation::String(u"Automation error") : text;
}

// What the Automation runtime reports for the HRESULTs of IDispatch itself.
automation::AutomationError ErrorForDispatchFailure(HRESULT hr) {
  switch (hr) {
    case DISP_E_MEMBERNOTFOUND:
    case DISP_E_UNKNOWNNAME:
    case E_NOTIMPL:
      return automation::AutomationError(automation::err::kMethodNotSupported);
    case DISP_E_TYPEMISMATCH:
      return automation::AutomationError(automation::err::kTypeMismatch);
    case DISP_E_BADPARAMCOUNT:
    case DISP_E_PARAMNOTOPTIONAL:
      return automation::AutomationError(errnum::kWrongArgumentCount);
    case DISP_E_OVERFLOW:
      return automation::AutomationError(automation::err::kOverflow);
    case DISP_E_BADINDEX:
      return automation::AutomationError(automation::err::kSubscriptOutOfRange);
    case E_OUTOFMEMORY:
      return automation::AutomationError(7, u"Out of memory");
    default:
      break;
  }
  int32_t number = NumberFromHResult(hr);
  if (IsAutomationHResult(hr)) return automation::AutomationError(number);
  return automation::AutomationError(number, SystemMessage(hr));
}

}  // namespace

HRESULT HResultFromNumber(int32_t number) {
  if (number > 0 && number <= 0xFFFF)
    return static_cast<HRESULT>(kAutomationFacilityBits | static_cast<uint32_t>(number));
  if (number < 0) return static_cast<HRESULT>(number);
  return E_FAIL;
}

int32_t NumberFromHResult(HRESULT hr) {
  if (IsAutomationHResult(hr)) return static_cast<int32_t>(static_cast<uint32_t>(hr) & 0xFFFFu);
  return static_cast<int32_t>(hr);
}

automation::AutomationError ErrorFromInvoke(HRESULT hr, EXCEPINFO& info) {
  if (hr != DISP_E_EXCEPTION) return ErrorFromHResult(hr);
  if (info.pfnDeferredFillIn) info.pfnDeferredFillIn(&info);
  Bstr description = Bstr::Attach(info.bstrDescription);
  Bstr source = Bstr::Attach(info.bstrSource);
  Bstr helpFile = Bstr::Attach(info.bstrHelpFile);
  info.bstrDescription = info.bstrSource = info.bstrHelpFile = nullptr;

  int32_t number = 0;
  if (info.scode != 0) {
    number = NumberFromHResult(info.scode);
  } else if (info.wCode != 0) {
    number = info.wCode;
  } else {
    number = static_cast<int32_t>(E_FAIL);
  }
  automation::String text = description.ToString();
  if (!text.empty()) return automation::AutomationError(number, std::move(text));
  if (number > 0) return automation::AutomationError(number);
  return automation::AutomationError(number, SystemMessage(static_cast<HRESULT>(number)));
}

automation::AutomationError ErrorFromHResult(HRESULT hr) {
  ComPtr<IErrorInfo> errorInfo;
  if (GetErrorInfo(0, errorInfo.Put()) == S_OK && errorInfo) {
    Bstr description;
    if (SUCCEEDED(errorInfo->GetDescription(description.Put())) && description.Length() > 0)
      return automation::AutomationError(NumberFromHResult(hr), description.ToString());
  }
  return ErrorForDispatchFailure(hr);
}

void FillExcepInfo(const automation::AutomationError& error, const wchar_t* source, EXCEPINFO& info) {
  info = EXCEPINFO{};
  info.scode = HResultFromNumber(error.Number());
  info.bstrSource = SysAllocString(source);
  const automation::String& text = error.Description();
  info.bstrDescription =
      SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()), static_cast<UINT>(text.size()));
}

HRESULT ReportError(const automation::AutomationError& error, const wchar_t* source, REFIID iid) {
  ComPtr<ICreateErrorInfo> create;
  if (SUCCEEDED(CreateErrorInfo(create.Put())) && create) {
    create->SetGUID(iid);
    create->SetSource(const_cast<wchar_t*>(source));
    std::wstring description = ToWide(error.Description());
    create->SetDescription(description.data());
    if (auto info = create.As<IErrorInfo>()) SetErrorInfo(0, info.Get());
  }
  return HResultFromNumber(error.Number());
}

automation::AutomationError ErrorFromCurrentException() {
  try {
    throw;
  } catch (const automation::AutomationError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return automation::AutomationError(7, u"Out of memory");
  } catch (const std::exception& error) {
    return automation::AutomationError(static_cast<int32_t>(E_UNEXPECTED),
                                       u"Unexpected failure: " + automation::FromUtf8(error.what()));
  } catch (...) {
    return automation::AutomationError(static_cast<int32_t>(E_UNEXPECTED), u"Unexpected failure");
  }
}

}  // namespace vd::win32
