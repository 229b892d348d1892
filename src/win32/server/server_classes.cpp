#include "server/server_classes.h"

#include <array>

#include "VarDeskGUI.h"
#include "server/class_factory.h"
#include "server/selection_handler_object.h"
#include "server/var_desk_ui_object.h"

namespace vd::win32 {
namespace {

// CLSID, ProgID, description, threading model, creator.
const std::array<ClassEntry, 2> kClasses{{
    {&CLSID_VarDeskUI, L"VarDeskGUI.VarDeskUI", L"VarDeskUI", L"Apartment", &VarDeskUIObject::Create},
    {&CLSID_SelectionHandler, L"VarDeskGUI.SelectionHandler", L"SelectionHandler", L"Apartment",
     &SelectionHandlerObject::Create},
}};

}  // namespace

std::span<const ClassEntry> ServerClasses() { return kClasses; }

HRESULT GetServerClassObject(REFCLSID clsid, REFIID iid, void** out) noexcept {
  return GetClassObject(kClasses, clsid, iid, out);
}

}  // namespace vd::win32
