#include "server/registration.h"

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <vector>

#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/reg_key.h"
#include "server/module.h"
#include "vd/automation/error.h"

namespace vd::win32 {
namespace {

// The Automation marshaler, for interfaces described by a type library.
constexpr wchar_t kAutomationProxyStub[] = L"{00020424-0000-0000-C000-000000000046}";

std::wstring GuidText(const GUID& guid) {
  wchar_t text[40] = {};
  StringFromGUID2(guid, text, 40);
  return text;
}

HKEY ClassesRoot(RegistrationScope scope, RegKey& holder) {
  holder =
      RegKey::Create(scope == RegistrationScope::kUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, L"Software\\Classes");
  return holder.Get();
}

// What the module's type library contributes to the registry.
struct TypeLibFacts {
  std::wstring libId;
  std::wstring version;   // "1.0"
  std::wstring platform;  // "win32" / "win64"
  std::wstring description;
  std::vector<std::pair<std::wstring, std::wstring>> interfaces;  // IID text, name
};

TypeLibFacts ReadTypeLib() {
  ComPtr<ITypeLib> library = ModuleTypeLib();
  TypeLibFacts facts;
  TLIBATTR* attr = nullptr;
  if (FAILED(library->GetLibAttr(&attr)) || !attr)
    automation::Raise(static_cast<int32_t>(TYPE_E_CANTLOADLIBRARY), u"The type library cannot be read");
  facts.libId = GuidText(attr->guid);
  facts.version = std::to_wstring(attr->wMajorVerNum) + L"." + std::to_wstring(attr->wMinorVerNum);
  facts.platform = attr->syskind == SYS_WIN64 ? L"win64" : L"win32";
  library->ReleaseTLibAttr(attr);
  Bstr docString;
  library->GetDocumentation(-1, nullptr, docString.Put(), nullptr, nullptr);
  facts.description = ToWide(docString.ToString());

  const UINT count = library->GetTypeInfoCount();
  for (UINT i = 0; i < count; ++i) {
    TYPEKIND kind{};
    if (FAILED(library->GetTypeInfoType(i, &kind))) continue;
    if (kind != TKIND_DISPATCH && kind != TKIND_INTERFACE) continue;
    ComPtr<ITypeInfo> info;
    if (FAILED(library->GetTypeInfo(i, info.Put()))) continue;
    TYPEATTR* typeAttr = nullptr;
    if (FAILED(info->GetTypeAttr(&typeAttr)) || !typeAttr) continue;
    const bool automation = kind == TKIND_DISPATCH || (typeAttr->wTypeFlags & TYPEFLAG_FOLEAUTOMATION);
    GUID iid = typeAttr->guid;
    info->ReleaseTypeAttr(typeAttr);
    if (!automation) continue;
    Bstr name;
    library->GetDocumentation(static_cast<INT>(i), name.Put(), nullptr, nullptr, nullptr);
    facts.interfaces.emplace_back(GuidText(iid), ToWide(name.ToString()));
  }
  return facts;
}

std::wstring ModuleFolder() {
  std::wstring path = ThisModulePath();
  size_t slash = path.find_last_of(L"\\/");
  return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash);
}

void WriteClass(HKEY root, const ClassEntry& entry, const TypeLibFacts* typeLib) {
  const std::wstring clsid = GuidText(*entry.clsid);
  RegKey classKey = RegKey::Create(root, L"CLSID\\" + clsid);
  classKey.SetString(L"", entry.description);
  RegKey server = classKey.CreateSubKey(L"InprocServer32");
  server.SetString(L"", ThisModulePath());
  server.SetString(L"ThreadingModel", entry.threadingModel);
  classKey.CreateSubKey(L"ProgID").SetString(L"", entry.progId);
  classKey.CreateSubKey(L"VersionIndependentProgID").SetString(L"", entry.progId);
  classKey.CreateSubKey(L"Programmable");
  if (typeLib) {
    classKey.CreateSubKey(L"TypeLib").SetString(L"", typeLib->libId);
    classKey.CreateSubKey(L"Version").SetString(L"", typeLib->version);
  }
  RegKey progIdKey = RegKey::Create(root, entry.progId);
  progIdKey.SetString(L"", entry.description);
  progIdKey.CreateSubKey(L"CLSID").SetString(L"", clsid);
}

void WriteTypeLib(HKEY root, const TypeLibFacts& facts) {
  RegKey versionKey = RegKey::Create(root, L"TypeLib\\" + facts.libId + L"\\" + facts.version);
  versionKey.SetString(L"", facts.description);
  versionKey.CreateSubKey(L"0\\" + facts.platform).SetString(L"", ThisModulePath());
  versionKey.CreateSubKey(L"FLAGS").SetString(L"", L"0");
  versionKey.CreateSubKey(L"HELPDIR").SetString(L"", ModuleFolder());
  for (const auto& [iid, name] : facts.interfaces) {
    RegKey interfaceKey = RegKey::Create(root, L"Interface\\" + iid);
    interfaceKey.SetString(L"", name);
    interfaceKey.CreateSubKey(L"ProxyStubClsid").SetString(L"", kAutomationProxyStub);
    interfaceKey.CreateSubKey(L"ProxyStubClsid32").SetString(L"", kAutomationProxyStub);
    RegKey typeLibKey = interfaceKey.CreateSubKey(L"TypeLib");
    typeLibKey.SetString(L"", facts.libId);
    typeLibKey.SetString(L"Version", facts.version);
  }
}

}  // namespace

RegistrationScope ScopeFromCommandLine(const wchar_t* commandLine) {
  if (commandLine && CompareStringOrdinal(commandLine, -1, L"user", -1, TRUE) == CSTR_EQUAL)
    return RegistrationScope::kUser;
  return RegistrationScope::kMachine;
}

void RegisterServer(std::span<const ClassEntry> classes, bool withTypeLib, RegistrationScope scope) {
  RegKey classesKey;
  HKEY root = ClassesRoot(scope, classesKey);
  TypeLibFacts facts;
  if (withTypeLib) facts = ReadTypeLib();
  for (const ClassEntry& entry : classes) WriteClass(root, entry, withTypeLib ? &facts : nullptr);
  if (withTypeLib) WriteTypeLib(root, facts);
}

void UnregisterServer(std::span<const ClassEntry> classes, bool withTypeLib, RegistrationScope scope) {
  RegKey classesKey;
  HKEY root = ClassesRoot(scope, classesKey);
  for (const ClassEntry& entry : classes) {
    DeleteKeyTree(root, L"CLSID\\" + GuidText(*entry.clsid));
    DeleteKeyTree(root, entry.progId);
  }
  if (!withTypeLib) return;
  TypeLibFacts facts = ReadTypeLib();
  for (const auto& [iid, name] : facts.interfaces) DeleteKeyTree(root, L"Interface\\" + iid);
  DeleteKeyTree(root, L"TypeLib\\" + facts.libId + L"\\" + facts.version);
  DeleteKeyIfEmpty(root, L"TypeLib\\" + facts.libId);
}

}  // namespace vd::win32
