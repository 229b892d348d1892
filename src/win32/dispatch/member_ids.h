#pragma once
// The DISPIDs of the members called on one kind of object, resolved once.
// Objects that describe themselves with type info share one table per type
// (keyed by the type's GUID); any other object gets a table of its own.
#include <windows.h>

#include <oaidl.h>

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "vd/automation/string.h"

namespace vd::win32 {

class MemberIds {
 public:
  // The DISPID of the member, nullopt when the object has no such member.
  // Resolves through GetIDsOfNames, else IDispatchEx::GetDispID ignoring case
  // (script class instances answer only the latter).
  std::optional<DISPID> Find(IDispatch* dispatch, automation::StringView name);

  // How many names were resolved by asking the object (not from the table).
  [[nodiscard]] int ResolvedCount() const { return resolved_; }

 private:
  // An object is called by a handful of names: a short list searched in
  // place costs less than hashing. The list holds each name as the one copy
  // the process keeps of it, so remembering a name allocates nothing.
  struct Entry {
    automation::StringView name;
    std::optional<DISPID> id;
  };
  static constexpr size_t kInline = 6;
  std::array<Entry, kInline> first_{};
  size_t firstCount_ = 0;
  std::vector<Entry> more_;
  int resolved_ = 0;
};

// The table shared by every object of this object's type when it has type
// info with a GUID of its own, else nullptr (the object needs its own table).
std::shared_ptr<MemberIds> SharedMemberIdsFor(IDispatch* dispatch);

}  // namespace vd::win32
