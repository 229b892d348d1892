#include "server/server_classes.h"

#include <array>

#include "VarDeskGUI.h"
#include "server/class_factory.h"
#include "server/selection_handler_object.h"
#include "server/var_desk_ui_object.h"

namespace vd::win32 {
namespace {

const std::array<ClassEntry, 2> kClasses{{
    {&CLSID_VarDeskUI, L"VarDeskGUI.VarDeskUI", L"VarDeskUI"},
    {&CLSID_SelectionHandler, L"VarDeskGUI.SelectionHandler", L"SelectionHandler"},
}};

}  // namespace

std::span<const ClassEntry> ServerClasses() { return kClasses; }

HRESULT GetServerClassObject(REFCLSID clsid, REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (IsEqualCLSID(clsid, CLSID_VarDeskUI)) return GetClassFactory(&VarDeskUIObject::Create, iid, out);
  if (IsEqualCLSID(clsid, CLSID_SelectionHandler)) return GetClassFactory(&SelectionHandlerObject::Create, iid, out);
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace vd::win32
