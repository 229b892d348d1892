#include "dispatch/member_ids.h"

#include <windows.h>

#include <dispex.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <mutex>
#include <set>
#include <string>

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

// The one copy of a member name that the process keeps: tables refer to it.
// Objects are called by the few names their callers know, so the set stays small.
automation::StringView Interned(automation::StringView name) {
  static std::mutex mutex;
  static auto* names = new std::set<automation::String, std::less<>>;  // never destroyed: tables may outlive it
  const std::lock_guard lock(mutex);
  auto found = names->find(name);
  if (found == names->end()) found = names->emplace(name).first;
  return *found;
}

}  // namespace

std::optional<DISPID> MemberIds::Find(IDispatch* dispatch, automation::StringView name) {
  for (size_t i = 0; i < firstCount_; ++i) {
    if (first_[i].name == name) return first_[i].id;
  }
  for (const Entry& entry : more_) {
    if (entry.name == name) return entry.id;
  }
  ++resolved_;
  // The name as a wide, terminated string; a member name fits the buffer.
  std::array<wchar_t, 64> buffer{};
  std::wstring longName;
  LPOLESTR names[] = {buffer.data()};
  if (name.size() < buffer.size()) {
    std::copy(name.begin(), name.end(), buffer.begin());
  } else {
    longName = ToWide(name);
    names[0] = longName.data();
  }
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
  const Entry entry{Interned(name), result};
  if (firstCount_ < kInline) {
    first_[firstCount_++] = entry;
  } else {
    more_.push_back(entry);
  }
  return result;
}

std::shared_ptr<MemberIds> SharedMemberIdsFor(IDispatch* dispatch) {
  GUID guid = TypeGuidOf(dispatch);
  if (IsEqualGUID(guid, GUID_NULL)) return nullptr;
  std::shared_ptr<MemberIds>& table = SharedTables()[guid];
  if (!table) table = std::make_shared<MemberIds>();
  return table;
}

}  // namespace vd::win32
