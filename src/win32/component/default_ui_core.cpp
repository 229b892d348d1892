// The one place that decides which core a new VarDeskUI COM object drives: the
// system's own VarDeskUI, over the Windows platform of the apartment that
// creates it. Test programs that link the server's code without this file
// bring cores of their own.
#include "component/windows_platform.h"
#include "convert/error_convert.h"
#include "host/var_desk_ui.h"
#include "server/var_desk_ui_object.h"

namespace vd::win32 {

std::unique_ptr<UiCore> MakeDefaultUiCore() {
  return std::make_unique<host::VarDeskUI>(ApartmentPlatform().Services());
}

HRESULT VarDeskUIObject::Create(REFIID iid, void** out) noexcept {
  if (!out) return E_POINTER;
  *out = nullptr;
  return ComBoundary(L"VarDeskGUI.VarDeskUI", IID__VarDeskUI, [&] {
    ComPtr<_VarDeskUI> object = CreateWithCore(MakeDefaultUiCore());
    return object->QueryInterface(iid, out);
  });
}

}  // namespace vd::win32
