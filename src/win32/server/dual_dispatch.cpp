#include "server/dual_dispatch.h"

namespace vd::win32 {

HRESULT ExceptionFromErrorInfo(HRESULT hr, EXCEPINFO* exception) {
  if (SUCCEEDED(hr) || hr == DISP_E_EXCEPTION || !exception) return hr;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.Put()) != S_OK || !info) return hr;
  *exception = EXCEPINFO{};
  exception->scode = hr;
  info->GetSource(&exception->bstrSource);
  info->GetDescription(&exception->bstrDescription);
  return DISP_E_EXCEPTION;
}

}  // namespace vd::win32
