#pragma once
// The host's IDispatch objects as the toolkit's interfaces. Every object works
// that answers the members by name: a C++ host's, a script's class instance,
// another DLL's. The same IDispatch gives the same adapter while one is alive;
// an object that this module exposed comes back as itself.
#include <windows.h>

#include <oaidl.h>

#include <memory>

#include "com/unique_variant.h"
#include "vd/toolkit/communication.h"
#include "vd/toolkit/toolkit.h"

namespace vd::win32 {

// The object as interface I, nullptr for Nothing. Raises 13 when the object is
// one of this module's own that does not implement I.
template <class I>
std::shared_ptr<I> AdaptAs(IDispatch* dispatch);

// An object of the same interface as model, over another IDispatch (an event
// sink may replace the object it was given).
automation::ObjectRef AdaptLike(const automation::ObjectRef& model, IDispatch* dispatch);

// The object a call returned, as interface I: Nothing (also Empty) is nullptr,
// anything that is no object raises 13.
template <class I>
std::shared_ptr<I> ObjectResult(const UniqueVariant& result);

extern template std::shared_ptr<toolkit::Display> AdaptAs<toolkit::Display>(IDispatch*);
extern template std::shared_ptr<toolkit::Display> ObjectResult<toolkit::Display>(const UniqueVariant&);
extern template std::shared_ptr<toolkit::DsList> AdaptAs<toolkit::DsList>(IDispatch*);
extern template std::shared_ptr<toolkit::DsList> ObjectResult<toolkit::DsList>(const UniqueVariant&);
extern template std::shared_ptr<toolkit::Ds> AdaptAs<toolkit::Ds>(IDispatch*);
extern template std::shared_ptr<toolkit::Ds> ObjectResult<toolkit::Ds>(const UniqueVariant&);
extern template std::shared_ptr<toolkit::DsvList> AdaptAs<toolkit::DsvList>(IDispatch*);
extern template std::shared_ptr<toolkit::DsvList> ObjectResult<toolkit::DsvList>(const UniqueVariant&);
extern template std::shared_ptr<toolkit::Dsv> AdaptAs<toolkit::Dsv>(IDispatch*);
extern template std::shared_ptr<toolkit::Dsv> ObjectResult<toolkit::Dsv>(const UniqueVariant&);
extern template std::shared_ptr<toolkit::ParamList> AdaptAs<toolkit::ParamList>(IDispatch*);
extern template std::shared_ptr<toolkit::ParamList> ObjectResult<toolkit::ParamList>(const UniqueVariant&);
extern template std::shared_ptr<toolkit::Param> AdaptAs<toolkit::Param>(IDispatch*);
extern template std::shared_ptr<toolkit::Param> ObjectResult<toolkit::Param>(const UniqueVariant&);
extern template std::shared_ptr<toolkit::CustomDs> AdaptAs<toolkit::CustomDs>(IDispatch*);
extern template std::shared_ptr<toolkit::CustomDs> ObjectResult<toolkit::CustomDs>(const UniqueVariant&);
extern template std::shared_ptr<toolkit::CustomDsv> AdaptAs<toolkit::CustomDsv>(IDispatch*);
extern template std::shared_ptr<toolkit::CustomDsv> ObjectResult<toolkit::CustomDsv>(const UniqueVariant&);
extern template std::shared_ptr<toolkit::Communication> AdaptAs<toolkit::Communication>(IDispatch*);
extern template std::shared_ptr<toolkit::Communication> ObjectResult<toolkit::Communication>(const UniqueVariant&);

}  // namespace vd::win32
