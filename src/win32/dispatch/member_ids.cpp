#include "dispatch/member_ids.h"

#include <windows.h>

#include <dispex.h>

#include <cstring>
#include <map>

#include "com/bstr.h"
#include "com/com_ptr.h"

namespace vd::win32 {
namespace {

struct GuidLess {
  bool operator()(const GUID& a, const GUID& b) const { return std::memcmp(&a, &b, sizeof(GUID)) < 0; }
};

// One table per type GUID for this thread (the apartment the objects live
// in), kept while the thread lives: there are few types, and a type's objects
// come and go.
std::map<GUID, std::shared_ptr<MemberIds>, GuidLess>& SharedTables() {
  thread_local std::map<GUID, std::shared_ptr<MemberIds>, GuidLess> tables;
  return tables;
}

// The GUID of the object's type, or GUID_NULL when it has none of its own.
GUID TypeGuidOf(IDispatch* dispatch) {
  UINT count = 0;
  if (FAILED(dispatch->GetTypeInfoCount(&count)) || count == 0) return GUID_NULL;
  ComPtr<ITypeInfo> typeInfo;
  if (FAILED(dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, typeInfo.Put())) || !typeInfo) return GUID_NULL;
  TYPEATTR* attr = nullptr;
  if (FAILED(typeInfo->GetTypeAttr(&attr)) || !attr) return GUID_NULL;
  GUID guid = attr->guid;
  typeInfo->ReleaseTypeAttr(attr);
  // A type info of plain IDispatch says nothing about the members.
  if (IsEqualGUID(guid, IID_IDispatch) || IsEqualGUID(guid, IID_IUnknown)) return GUID_NULL;
  return guid;
}

}  // namespace

std::optional<DISPID> MemberIds::Find(IDispatch* dispatch, automation::StringView name) {
  for (const auto& [known, id] : ids_) {
    if (known == name) return id;
  }
  ++resolved_;
  std::wstring wide = ToWide(name);
  LPOLESTR names[] = {wide.data()};
  DISPID id = DISPID_UNKNOWN;
  std::optional<DISPID> result;
  if (SUCCEEDED(dispatch->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))) {
    result = id;
  } else {
    ComPtr<IDispatch> holder(dispatch);
    if (auto ex = holder.As<IDispatchEx>(__uuidof(IDispatchEx))) {
      Bstr bstrName(name);
      if (SUCCEEDED(ex->GetDispID(bstrName.Get(), fdexNameCaseInsensitive, &id))) result = id;
    }
  }
  ids_.emplace_back(automation::String(name), result);
  return result;
}

std::shared_ptr<MemberIds> MemberIdsFor(IDispatch* dispatch) {
  GUID guid = TypeGuidOf(dispatch);
  if (IsEqualGUID(guid, GUID_NULL)) return std::make_shared<MemberIds>();
  std::shared_ptr<MemberIds>& table = SharedTables()[guid];
  if (!table) table = std::make_shared<MemberIds>();
  return table;
}

}  // namespace vd::win32
