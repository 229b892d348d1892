#pragma once
// A C++ object of the system offered to COM clients as an IDispatch whose
// members come from a name table (no type library needed). Names are matched
// ignoring case; DISPIDs are 1-based positions in the table.
#include <windows.h>

#include <oaidl.h>

#include <atomic>
#include <memory>
#include <optional>
#include <span>

#include "com/com_ptr.h"
#include "expose/invoke_args.h"
#include "server/module.h"
#include "vd/automation/object.h"
#include "vd/automation/text.h"

namespace vd::win32 {

class ExposedObject : public IDispatch {
 public:
  ExposedObject(const ExposedObject&) = delete;
  ExposedObject& operator=(const ExposedObject&) = delete;

  // The object behind the IDispatch.
  [[nodiscard]] const automation::ObjectRef& Target() const { return target_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override;
  ULONG STDMETHODCALLTYPE Release() noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params, VARIANT* result,
                                   EXCEPINFO* exception, UINT* argError) noexcept override;

 protected:
  explicit ExposedObject(automation::ObjectRef target);
  virtual ~ExposedObject();

  [[nodiscard]] virtual std::optional<DISPID> FindMember(automation::StringView name) const = 0;
  // Runs the member; nullopt when the DISPID names no member.
  virtual std::optional<automation::Variant> InvokeMember(DISPID id, const InvokeArgs& args) = 0;

 private:
  friend ComPtr<IDispatch> FindOrAdopt(ExposedObject* created);
  automation::ObjectRef target_;
  std::atomic<ULONG> refs_{1};
  ModuleReference module_;
};

// One entry of a name table: the member's name and what a call does.
template <class I>
struct Member {
  const char16_t* name;
  automation::Variant (*invoke)(I& target, const InvokeArgs& args);
};

template <class I>
class ExposedAs final : public ExposedObject {
 public:
  ExposedAs(std::shared_ptr<I> typed, std::span<const Member<I>> members)
      : ExposedObject(typed), typed_(std::move(typed)), members_(members) {}

 protected:
  [[nodiscard]] std::optional<DISPID> FindMember(automation::StringView name) const override {
    for (size_t i = 0; i < members_.size(); ++i)
      if (automation::EqualsIgnoreCase(members_[i].name, name)) return static_cast<DISPID>(i + 1);
    return std::nullopt;
  }
  std::optional<automation::Variant> InvokeMember(DISPID id, const InvokeArgs& args) override {
    if (id < 1 || static_cast<size_t>(id) > members_.size()) return std::nullopt;
    return members_[static_cast<size_t>(id - 1)].invoke(*typed_, args);
  }

 private:
  std::shared_ptr<I> typed_;
  std::span<const Member<I>> members_;
};

// This module's exposed object behind the IDispatch, or nullptr when it is
// someone else's.
ExposedObject* FindExposed(IDispatch* dispatch);
// The live exposed object of the target, or nullptr.
ComPtr<IDispatch> FindExposedFor(const automation::Object* target);
// Registers a newly created exposed object, unless one for its target is
// alive already: then the new one is dropped and the live one returned.
ComPtr<IDispatch> FindOrAdopt(ExposedObject* created);

// Exposes the object with a name table; the same object gives the same
// IDispatch while that is alive. The table must outlive every call.
template <class I>
ComPtr<IDispatch> ExposeWith(std::shared_ptr<I> object, std::span<const Member<I>> members) {
  if (!object) return nullptr;
  if (auto live = FindExposedFor(object.get())) return live;
  return FindOrAdopt(new ExposedAs<I>(std::move(object), members));
}

}  // namespace vd::win32
